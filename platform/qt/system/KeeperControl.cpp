#include "platform/qt/system/KeeperControl.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <string>

#include "platform/qt/system/HeldFile.h"
#include "platform/qt/system/Processes.h"
#include "platform/qt/system/UserFolders.h"

namespace platform::qt {

namespace {

constexpr char kProgram[] = "inkalarms";
constexpr int kPatienceMilliseconds = 10000;

OwnedFd OpenLock(const char* name) {
    MakeLevels(DataFolder());
    const std::string path = DataFolder() + "/" + name;
    return OwnedFd(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
}

OwnedFd RoleFile() { return OpenLock("keeper.lock"); }
OwnedFd ClaimFile() { return OpenLock("firing.lock"); }

flock OneByte(uint32_t at) {
    flock lock{};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = at;
    lock.l_len = 1;
    return lock;
}

// 0 when none runs. Locks of this kind tell whose they are, but for processes that can't be seen from here:
// -1.
pid_t KeeperProcess() {
    const OwnedFd file = RoleFile();
    flock lock = OneByte(0);
    const bool isHeld = file && fcntl(file.Get(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    if (!isHeld) return 0;
    return lock.l_pid > 0 ? lock.l_pid : -1;
}

std::string AutostartFile() { return ConfigHome() + "/autostart/inkalarms.desktop"; }

// As the desktop unquotes it: once as a value and once as a command line.
std::string QuotedForDesktop(const std::string& program) {
    std::string quoted = "\"";
    for (const char c : program) {
        if (c == '\\') quoted += "\\\\\\";
        if (c == '"' || c == '`' || c == '$') quoted += "\\\\";
        quoted += c == '%' ? std::string("%%") : std::string(1, c);
    }
    return quoted + "\"";
}

// Stands before an entry of the same name that is everybody's.
void WriteAutostart(const std::string& lines) {
    const std::string path = AutostartFile();
    const std::string text = "[Desktop Entry]\nType=Application\nName=Inkwright Alarms\n" + lines;
    MakeLevels(FolderOf(path));
    const std::string beside = path + "~";
    {
        const OwnedFd file(open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
        if (!file || !WriteAll(file.Get(), text.data(), text.size())) return;
    }
    std::rename(beside.c_str(), path.c_str());
}

void StartWithSessions(const std::string& program, bool replace) {
    if (!replace && access(AutostartFile().c_str(), F_OK) == 0) return;
    WriteAutostart("Comment=Opens notes at their alarms\nNoDisplay=true\nExec=" + QuotedForDesktop(program) +
                   " " + kSessionSwitch + "\n");
}

bool StartKeeper(const std::string& program) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    const OwnedFd report(ends[0]);
    OwnedFd tell(ends[1]);
    if (!StartProcess({program, {kReportSwitch}, "/", {}, tell.Get()})) return false;
    tell.Close();
    std::string nothing;
    ReadUntilClosed(report.Get(), kPatienceMilliseconds, nothing);
    return KeeperProcess() != 0;  // it ends when another one was faster
}

}  // namespace

bool EnsureKeeper() {
    const std::string program = PathBesideProgram(kProgram);
    const bool isRunning = KeeperProcess() != 0;
    if (!isRunning && !StartKeeper(program)) return false;
    StartWithSessions(program, !isRunning);
    return true;
}

void ForgetSessions() { WriteAutostart("Hidden=true\n"); }

bool StopKeeper() {
    while (const pid_t keeper = KeeperProcess()) {
        const OwnedFd process(static_cast<int>(syscall(SYS_pidfd_open, keeper, 0)));
        if (KeeperProcess() != keeper) continue;  // the number may be another's by now
        pollfd ended{process.Get(), POLLIN, 0};
        if (!process || kill(keeper, SIGTERM) != 0 || poll(&ended, 1, kPatienceMilliseconds) != 1)
            return false;
    }
    return true;
}

KeeperRole::KeeperRole() : file_(RoleFile()) {
    flock lock = OneByte(0);
    held_ = file_ && fcntl(file_.Get(), F_SETLK, &lock) == 0;
}

bool KeeperRole::IsLost() const {
    struct stat found {};
    return fstat(file_.Get(), &found) != 0 || found.st_nlink == 0;
}

FiringClaim::FiringClaim(uint32_t handle) : file_(ClaimFile()) {
    flock lock = OneByte(handle);
    held_ = file_ && fcntl(file_.Get(), F_OFD_SETLK, &lock) == 0;
}

bool FiringClaim::IsTaken(uint32_t handle) {
    const OwnedFd file = ClaimFile();
    flock lock = OneByte(handle);
    return file && fcntl(file.Get(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

}  // namespace platform::qt
