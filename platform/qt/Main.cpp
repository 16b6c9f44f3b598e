#include <QMessageBox>
#include <QThread>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "platform/FaultText.h"
#include "platform/ProgramEntry.h"
#include "platform/qt/Application.h"
#include "platform/qt/system/CommandText.h"

namespace {

// What Require ends the program with, and whatever else nobody caught. Nothing of the program is used any
// more; no clean-up either, which could make things worse.
[[noreturn]] void ShowAndEnd() {
    const QString text = QString::fromStdString(platform::FaultText());
    qCritical("%s", qPrintable(text));
    // Only one thread may have windows.
    if (QThread::currentThread() == QCoreApplication::instance()->thread())
        QMessageBox(QMessageBox::Critical, " Inkwright", text, QMessageBox::Ok).exec();
    std::_Exit(3);
}

}  // namespace

int main(int count, char** arguments) {
    platform::qt::Application application(count, arguments);
    std::set_terminate(ShowAndEnd);
    application.Listen();
    std::vector<std::string> words;
    for (const QString& word : QCoreApplication::arguments().sliced(1)) words.push_back(word.toStdString());
    return platform::RunProgram(platform::qt::CommandTextOf(words));
}
