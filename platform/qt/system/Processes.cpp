#include "platform/qt/system/Processes.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <sstream>

#include "platform/qt/system/OwnedFd.h"
#include "platform/qt/system/UserFolders.h"

namespace platform::qt {

namespace {

using Pointers = std::vector<char*>;

Pointers PointersTo(std::vector<std::string>& texts) {
    Pointers pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> EnvironmentFor(const ProcessStart& start) {
    std::vector<std::string> variables;
    for (char** each = environ; *each; ++each) {
        const std::string variable = *each;
        bool isChanged = false;
        for (const auto& change : start.environment)
            isChanged = isChanged || variable.compare(0, change.first.size() + 1, change.first + "=") == 0;
        if (!isChanged) variables.push_back(variable);
    }
    for (const auto& change : start.environment) {
        if (!change.second.empty()) variables.push_back(change.first + "=" + change.second);
    }
    return variables;
}

// From here on the process has no other threads, and memory may be locked for ever: nothing but calls of the
// system. `failed` ends up behind what is closed.
[[noreturn]] void BecomeProgram(const ProcessStart& start, char* const* arguments, char* const* variables,
                                int failed) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none,
                nullptr);  // what the keeper waits for would be blocked in the program, too
    setsid();
    const int nothing = open("/dev/null", O_RDWR);
    for (int standard = 0; standard < 3; ++standard) dup2(nothing, standard);
    const int kept = fcntl(failed, F_DUPFD_CLOEXEC, kReportDescriptor + 1);
    if (start.report >= 0 && start.report != kReportDescriptor) dup2(start.report, kReportDescriptor);
    if (start.report == kReportDescriptor) fcntl(kReportDescriptor, F_SETFD, 0);
    if (start.report < 0) close(kReportDescriptor);
    for (int fd = kReportDescriptor + 1, end = static_cast<int>(sysconf(_SC_OPEN_MAX)); fd < end && fd < 4096;
         ++fd) {
        if (fd != kept) close(fd);
    }
    const bool isThere = start.folder.empty() || chdir(start.folder.c_str()) == 0;
    if (isThere) execve(start.program.c_str(), arguments, variables);
    const char code = 1;
    if (write(kept, &code, 1) != 1) _exit(126);
    _exit(127);
}

// An update takes the file away from under a running program.
std::string WithoutMark(const std::string& file) {
    constexpr char kDeleted[] = " (deleted)";
    const size_t length = sizeof kDeleted - 1;
    const bool isMarked = file.size() > length && file.compare(file.size() - length, length, kDeleted) == 0;
    return isMarked ? file.substr(0, file.size() - length) : file;
}

}  // namespace

std::string FileOfProcess(pid_t process) {
    char path[PATH_MAX];
    const std::string link = "/proc/" + std::to_string(process) + "/exe";
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    return length > 0 ? WithoutMark(std::string(path, static_cast<size_t>(length))) : std::string();
}

std::string ProgramFile() { return FileOfProcess(getpid()); }

std::string PathBesideProgram(const std::string& fileName) {
    return FolderOf(ProgramFile()) + "/" + fileName;
}

std::string PathOfCommand(const std::string& name) {
    std::istringstream folders(Environment("PATH"));
    for (std::string folder; std::getline(folders, folder, ':');) {
        std::string path = PathIn(folder, name);
        if (!folder.empty() && folder[0] == '/' && access(path.c_str(), X_OK) == 0) return path;
    }
    return {};
}

// By way of a process in between, whose end leaves the program to the system: this one need not bury it.
bool StartProcess(const ProcessStart& start) {
    std::vector<std::string> words{start.program};
    words.insert(words.end(), start.arguments.begin(), start.arguments.end());
    std::vector<std::string> variables = EnvironmentFor(start);
    const Pointers arguments = PointersTo(words);
    const Pointers environment = PointersTo(variables);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    const OwnedFd failed(ends[0]);
    OwnedFd tellFailed(ends[1]);
    const pid_t between = fork();
    if (between == 0) {
        const pid_t program = fork();
        if (program == 0) BecomeProgram(start, arguments.data(), environment.data(), ends[1]);
        _exit(program > 0 ? 0 : 1);
    }
    tellFailed.Close();
    int status = 1;
    while (between > 0 && waitpid(between, &status, 0) < 0 && errno == EINTR) continue;
    char code = 0;
    return between > 0 && status == 0 && read(failed.Get(), &code, 1) == 0;
}

bool ReadUntilClosed(int fd, int milliseconds, std::string& bytes) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd wait{fd, POLLIN, 0};
        if (left <= 0 || poll(&wait, 1, static_cast<int>(left)) == 0) return false;
        char piece[512];
        const ssize_t got = read(fd, piece, sizeof piece);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return got == 0;
        bytes.append(piece, static_cast<size_t>(got));
    }
}

}  // namespace platform::qt
