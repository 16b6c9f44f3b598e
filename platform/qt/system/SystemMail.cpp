#include <fcntl.h>

#include "platform/MessageBox.h"
#include "platform/Shell.h"
#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/OwnedFd.h"
#include "platform/qt/system/Processes.h"

namespace platform {

namespace {

// A mail program that is still busy then has opened the message.
constexpr int kPatienceMilliseconds = 2000;
// Says how it ended where StartProcess has put its end of the pipe, and leaves that to nobody else.
constexpr char kScript[] = "xdg-email --attach \"$1\" 3>&-; echo $? >&3";

bool OpenMessage(const std::string& file) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    const qt::OwnedFd report(ends[0]);
    qt::OwnedFd tell(ends[1]);
    if (qt::PathOfCommand("xdg-email").empty() ||
        !qt::StartProcess({"/bin/sh", {"-c", kScript, "sh", file}, "/", {}, tell.Get()}))
        return false;
    tell.Close();
    std::string outcome;
    return !qt::ReadUntilClosed(report.Get(), kPatienceMilliseconds, outcome) || outcome == "0\n";
}

}  // namespace

void StartMailProgram(Window& owner, const std::wstring& attachment) {
    const std::string file = qt::ToHostPath(attachment);
    if (!file.empty() && OpenMessage(file)) return;
    ShowMessage(&owner,
                L"No mail program was found.\n\nThe picture of your note is:\n" + qt::TextFromDisk(file),
                L" Inkwright", MessageButtons::Ok, MessageIcon::Information);
}

}  // namespace platform
