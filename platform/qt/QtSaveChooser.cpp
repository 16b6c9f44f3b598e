#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

#include "platform/FileSystem.h"
#include "platform/SaveChooser.h"
#include "platform/qt/Application.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowImpl.h"
#include "platform/qt/system/HandheldPath.h"

namespace platform {

namespace {

QString FolderToOpen(const std::wstring& folder) {
    const QString last = qt::ToQt(folder);
    const bool isThere = !last.isEmpty() && QFileInfo(last).isDir();
    return isThere ? last : QFile::decodeName(qt::ToHostPath(DocumentsFolder()).c_str());
}

QStringList FiltersFor(const std::vector<FileKind>& kinds) {
    QStringList filters;
    for (const FileKind& kind : kinds) filters.append(qt::ToQt(kind.name + L" (*" + kind.ending + L")"));
    return filters;
}

}  // namespace

// A name without an ending gets that of the chosen kind while the dialog can still ask about what is there.
bool ChooseSavePlace(Window& owner, const SaveQuestion& question, SavePlace& place) {
    if (qt::Application::The().IsEnding()) return false;
    const QStringList filters = FiltersFor(question.kinds);
    QFileDialog dialog(qt::FrameOf(&owner), qt::ToQt(question.title), FolderToOpen(question.folder));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    const auto useEnding = [&](const QString& filter) {
        const qsizetype kind = std::max<qsizetype>(filters.indexOf(filter), 0);
        dialog.setDefaultSuffix(qt::ToQt(question.kinds[static_cast<size_t>(kind)].ending.substr(1)));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, useEnding);
    useEnding(filters.front());
    dialog.selectFile(qt::ToQt(question.name + question.kinds.front().ending));
    const qt::SystemDialog running(&owner, [&dialog] { dialog.reject(); });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
    const QString chosen = dialog.selectedFiles().front();
    const qsizetype kind = std::max<qsizetype>(filters.indexOf(dialog.selectedNameFilter()), 0);
    place.shown = qt::FromQt(chosen);
    TellKind(question, static_cast<size_t>(kind), place);
    place.path = QFile::encodeName(qt::ToQt(place.shown)).toStdString();
    place.folder = qt::FromQt(QFileInfo(chosen).path());
    return true;
}

}  // namespace platform
