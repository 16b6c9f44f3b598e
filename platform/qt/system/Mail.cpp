#include "platform/qt/system/Mail.h"

#include <fcntl.h>

#include "platform/qt/system/OwnedFd.h"
#include "platform/qt/system/Processes.h"

namespace platform::qt {

namespace {

constexpr int kPatienceMilliseconds = 2000;
// Says how it ended where StartProcess has put its end of the pipe, and leaves that to nobody else.
constexpr char kScript[] = "\"$1\" --attach \"$2\" 3>&-; echo $? >&3";

}  // namespace

bool OpenMailMessage(const std::string& file) {
    const std::string tool = PathOfCommand("xdg-email");
    int ends[2];
    if (tool.empty() || pipe2(ends, O_CLOEXEC) != 0) return false;
    const OwnedFd report(ends[0]);
    OwnedFd tell(ends[1]);
    if (!StartProcess({"/bin/sh", {"-c", kScript, "sh", tool, file}, "/", {}, tell.Get()})) return false;
    tell.Close();
    std::string outcome;
    return !ReadUntilClosed(report.Get(), kPatienceMilliseconds, outcome) || outcome == "0\n";
}

}  // namespace platform::qt
