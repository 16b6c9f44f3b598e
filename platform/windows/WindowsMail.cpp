#include "platform/Shell.h"
#include "platform/TextEncoding.h"
#include "platform/windows/Processes.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace {

constexpr UINT kGetPlatformType = 257;  // a handheld's question; desktops refuse it
constexpr wchar_t kAppPaths[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";

bool IsPocketPc() {
    wchar_t name[256] = L"";
    return SystemParametersInfoW(kGetPlatformType, sizeof name, name, 0) && EqualNoCase(name, L"PocketPC");
}

bool IsRegistered(const std::wstring& program) {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        DWORD size = 0;
        const std::wstring key = kAppPaths + program;
        if (RegGetValueW(root, key.c_str(), nullptr, RRF_RT_ANY, nullptr, nullptr, &size) == ERROR_SUCCESS)
            return true;
    }
    return false;
}

bool IsInSearchPath(const std::wstring& program) {
    const DWORD length = GetEnvironmentVariableW(L"PATH", nullptr, 0);
    std::wstring folders(length, L'\0');
    if (length == 0 || GetEnvironmentVariableW(L"PATH", folders.data(), length) == 0) return false;
    return SearchPathW(folders.c_str(), program.c_str(), nullptr, 0, nullptr, nullptr) != 0;
}

// The system's own program of this name where it knows one, else the one that lies beside this program.
std::wstring MailProgram() {
    const std::wstring program = IsPocketPc() ? L"tmail.exe" : L"pmail.exe";
    if (IsRegistered(program) || IsInSearchPath(program)) return program;
    return windows::PathBesideProgram(program);
}

}  // namespace

void StartMailProgram(Window& owner, const std::wstring& attachment) {
    const std::wstring program = MailProgram();
    const std::wstring parameters = L"-attach \"" + attachment + L"\"";
    SHELLEXECUTEINFOW launch{};
    launch.cbSize = sizeof launch;
    launch.hwnd = windows::FrameOf(&owner);
    launch.lpVerb = L"open";
    launch.lpFile = program.c_str();
    launch.lpParameters = parameters.c_str();
    launch.nShow = SW_SHOWNORMAL;
    ShellExecuteExW(&launch);
}

}  // namespace platform
