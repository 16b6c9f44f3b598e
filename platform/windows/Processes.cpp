#include "platform/windows/Processes.h"

#include "platform/Shell.h"
#include "platform/windows/Guards.h"

namespace platform::windows {

std::wstring PathBesideProgram(const std::wstring& fileName) {
    const std::wstring program = ProgramPath();
    return program.substr(0, program.rfind(L'\\') + 1) + fileName;
}

bool StartProcess(const std::wstring& program, std::wstring commandLine, DWORD flags) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr,
                        &startup, &process)) {
        return false;
    }
    // Null for a program of another system that Wine has started.
    const OwnedHandle thread(process.hThread);
    const OwnedHandle started(process.hProcess);
    return true;
}

}  // namespace platform::windows
