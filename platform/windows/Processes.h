#pragma once

#include <string>

#include "platform/windows/Guards.h"

namespace platform::windows {

// To be called first by every program: no boxes of the system's own about drives without a disk, and nothing
// is looked for in the current directory.
void PrepareProcess();

// Path of a file in the folder of the running program.
std::wstring PathBesideProgram(const std::wstring& fileName);

// The system's folders, no "\" at the end; empty on failure.
std::wstring SystemFolder();
std::wstring WindowsFolder();

struct ProcessStart {
    std::wstring program;      // full path
    std::wstring commandLine;  // includes its name
    std::wstring folder;       // working directory; empty: that of this process
    DWORD flags = 0;
};

// Starts a program and leaves it to itself. False when it can't be started. `process` is null for a program
// of another system that Wine has started.
bool StartProcess(const ProcessStart& start, OwnedHandle* process = nullptr);

// Lets the calling thread use the shell's and other system objects while it lives.
class SystemObjects {
  public:
    SystemObjects();
    SystemObjects(const SystemObjects&) = delete;
    SystemObjects& operator=(const SystemObjects&) = delete;
    ~SystemObjects();

  private:
    bool initialized_;
};

}  // namespace platform::windows
