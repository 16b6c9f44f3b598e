#include <QFileInfo>
#include <QMessageBox>
#include <cstdlib>
#include <exception>
#include <string>

#include "platform/FileSystem.h"
#include "platform/ProgramEntry.h"
#include "platform/qt/Application.h"
#include "platform/qt/Text.h"

namespace {

// A lone slash begins a switch unless there is such a file.
bool NamesPlaceOfHost(const QString& argument) {
    if (argument.startsWith(u'\\') || argument.isEmpty()) return false;
    return argument.lastIndexOf(u'/') > 0 || QFileInfo::exists(argument);
}

// One text as on the handheld, with the handheld's paths, and quotes around what holds blanks.
std::wstring ArgumentText(const QStringList& arguments) {
    std::wstring text;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const bool isOfHost = NamesPlaceOfHost(arguments[i]);
        const QString whole = isOfHost ? QFileInfo(arguments[i]).absoluteFilePath() : arguments[i];
        std::wstring argument = platform::qt::FromQt(whole);
        if (isOfHost) argument = platform::FromHostPath(argument);
        const bool isPath = isOfHost || argument.front() == L'\\';
        if (isPath && argument.find(L' ') != std::wstring::npos) argument = L'"' + argument + L'"';
        text += (text.empty() ? L"" : L" ") + argument;
    }
    return text;
}

// What Require ends the program with, and whatever else nobody caught. Nothing of the program is used any
// more; no clean-up either, which could make things worse.
[[noreturn]] void ShowAndEnd() {
    std::string what = "unknown";
    try {
        if (const std::exception_ptr failure = std::current_exception()) std::rethrow_exception(failure);
    } catch (const std::exception& failure) {
        what = failure.what();
    } catch (...) {
        what = "not an exception of the library";
    }
    const QString text =
        "Inkwright has found a fault in itself and must close. Notes that were saved are not "
        "touched.\n\n" +
        QString::fromStdString(what);
    qCritical("%s", qPrintable(text));
    QMessageBox(QMessageBox::Critical, " Inkwright", text, QMessageBox::Ok).exec();
    std::_Exit(3);
}

}  // namespace

int main(int count, char** arguments) {
    platform::qt::Application application(count, arguments);
    std::set_terminate(ShowAndEnd);
    application.Listen();
    return platform::RunProgram(ArgumentText(QCoreApplication::arguments()));
}
