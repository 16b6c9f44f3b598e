#include "platform/windows/Processes.h"

#include "platform/Shell.h"
#include "platform/windows/ShellHeaders.h"

namespace platform::windows {

namespace {

template <typename Ask>
std::wstring FolderFrom(Ask ask) {
    std::wstring folder(ask(nullptr, 0), L'\0');
    const UINT length = ask(folder.data(), static_cast<UINT>(folder.size()));
    folder.resize(length < folder.size() ? length : 0);
    return folder;
}

}  // namespace

void PrepareProcess() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    SetDllDirectoryW(L"");
    SetSearchPathMode(BASE_SEARCH_PATH_ENABLE_SAFE_SEARCHMODE | BASE_SEARCH_PATH_PERMANENT);
}

std::wstring PathBesideProgram(const std::wstring& fileName) {
    const std::wstring program = ProgramPath();
    return program.substr(0, program.rfind(L'\\') + 1) + fileName;
}

std::wstring SystemFolder() { return FolderFrom(GetSystemDirectoryW); }
std::wstring WindowsFolder() { return FolderFrom(GetWindowsDirectoryW); }

bool StartProcess(const ProcessStart& start, OwnedHandle* process) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    std::wstring commandLine = start.commandLine;
    if (!CreateProcessW(start.program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                        start.flags | CREATE_DEFAULT_ERROR_MODE, nullptr,
                        start.folder.empty() ? nullptr : start.folder.c_str(), &startup, &information)) {
        return false;
    }
    const OwnedHandle thread(information.hThread);
    OwnedHandle started(information.hProcess);
    if (process) *process = std::move(started);
    return true;
}

SystemObjects::SystemObjects() : initialized_(SUCCEEDED(OleInitialize(nullptr))) {}

SystemObjects::~SystemObjects() {
    if (initialized_) OleUninitialize();
}

}  // namespace platform::windows
