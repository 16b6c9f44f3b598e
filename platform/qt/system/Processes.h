#pragma once

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

namespace platform::qt {

// The file that a process runs, all links followed; empty when that is not known.
std::string FileOfProcess(pid_t process);
std::string ProgramFile();  // of this one
std::string PathBesideProgram(const std::string& fileName);

// The file that a command of this name would start; empty when there is none.
std::string PathOfCommand(const std::string& name);

struct ProcessStart {
    std::string program;
    std::vector<std::string> arguments = {};
    std::string folder = {};  // working directory; empty: that of this process
    std::vector<std::pair<std::string, std::string>> environment =
        {};           // an empty value takes the variable out
    int report = -1;  // the process has it as descriptor 3; it hears of its end by the end of what it reads
};
constexpr int kReportDescriptor = 3;

// Starts a program and leaves it to itself: it outlives this one and has none of its files. False when it
// can't be started.
bool StartProcess(const ProcessStart& start);

// What comes through a pipe until its other end is closed, or `milliseconds` have passed; then false.
bool ReadUntilClosed(int fd, int milliseconds, std::string& bytes);

}  // namespace platform::qt
