#pragma once

#include <string>

#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// Path of a file in the folder of the running program.
std::wstring PathBesideProgram(const std::wstring& fileName);

// Starts a program and leaves it to itself; `commandLine` includes its name. False when it can't be started.
bool StartProcess(const std::wstring& program, std::wstring commandLine, DWORD flags = 0);

// Lets the calling thread use the shell's and other system objects while it lives.
class SystemObjects {
  public:
    SystemObjects() : initialized_(SUCCEEDED(OleInitialize(nullptr))) {}
    SystemObjects(const SystemObjects&) = delete;
    SystemObjects& operator=(const SystemObjects&) = delete;
    ~SystemObjects() {
        if (initialized_) OleUninitialize();
    }

  private:
    bool initialized_;
};

}  // namespace platform::windows
