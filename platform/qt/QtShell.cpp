// What the desktop does for the user.
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputMethod>
#include <QUrl>

#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Shell.h"
#include "platform/qt/Application.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowImpl.h"
#include "platform/qt/system/HandheldPath.h"

namespace platform {

namespace {

// Beside the program where it was built, in the folder for shared data where it is installed.
QString GuidePage() {
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + "/guide/index.html";
    const QString shared = folder + "/../share/inkwright/guide/index.html";
    return QFileInfo::exists(beside) || !QFileInfo::exists(shared) ? beside : shared;
}

}  // namespace

void OpenUserGuide(Window& owner) {
    const QString page = GuidePage();
    if (QFileInfo::exists(page) && QDesktopServices::openUrl(QUrl::fromLocalFile(page))) return;
    ShowMessage(&owner, L"Opening '" + qt::FromQt(page) + L"' failed!", L" Error", MessageButtons::Ok,
                MessageIcon::Error);
}

void ShowInputPanel(bool up) { QGuiApplication::inputMethod()->setVisible(up); }

// A place that has no name on the handheld can't be chosen: the question comes again.
bool ChooseFolder(Window* owner, const std::wstring& title, const std::wstring& start, std::wstring& chosen) {
    if (qt::Application::The().IsEnding()) return false;
    QFileDialog dialog(qt::FrameOf(owner), qt::ToQt(title), QString::fromStdString(qt::ToHostPath(start)));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    const qt::SystemDialog running(owner, [&dialog] { dialog.reject(); });
    while (dialog.exec() == QDialog::Accepted) {
        const QStringList picked = dialog.selectedFiles();
        const std::wstring path =
            picked.isEmpty() ? std::wstring() : FromHostPath(qt::FromQt(picked.front()));
        if (path.empty() || path.front() != L'\\') continue;
        chosen = path;
        return true;
    }
    return false;
}

}  // namespace platform
