#include "platform/Shell.h"
#include "platform/TextEncoding.h"
#include "platform/windows/HandheldPath.h"
#include "platform/windows/PathTranslation.h"
#include "platform/windows/Processes.h"
#include "platform/windows/SystemText.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace {

constexpr UINT kGetPlatformType = 257;  // a handheld's question; desktops refuse it
constexpr wchar_t kAppPaths[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";

bool IsPocketPc() {
    wchar_t name[256] = L"";
    return SystemParametersInfoW(kGetPlatformType, sizeof name, name, 0) && EqualNoCase(name, L"PocketPC");
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Where the program is registered to lie; empty when it is not.
std::wstring RegisteredPath(const std::wstring& program) {
    const std::wstring key = kAppPaths + program;
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        wchar_t path[MAX_PATH] = L"";
        DWORD size = sizeof path;
        const LSTATUS got = RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path, &size);
        std::wstring unquoted = got == ERROR_SUCCESS ? windows::Unquoted(path) : std::wstring();
        if (windows::IsAbsolute(unquoted) && IsFile(unquoted)) return unquoted;
    }
    return {};
}

std::wstring PathInSearchFolders(const std::wstring& program) {
    for (const std::wstring& folder : windows::AbsoluteFolders(windows::EnvironmentText(L"PATH"))) {
        std::wstring path = folder;
        path.append(L"\\").append(program);
        if (IsFile(path)) return path;
    }
    return {};
}

// The system's own program of this name where it knows one, else the one that lies beside this program: by
// its full path, or the current directory would be looked through.
std::wstring MailProgram() {
    const std::wstring program = IsPocketPc() ? L"tmail.exe" : L"pmail.exe";
    std::wstring path = RegisteredPath(program);
    if (path.empty()) path = PathInSearchFolders(program);
    return path.empty() ? windows::PathBesideProgram(program) : path;
}

}  // namespace

void StartMailProgram(Window& owner, const std::wstring& attachment) {
    const windows::SystemObjects objects;
    const std::wstring program = MailProgram();
    const std::wstring parameters = L"-attach \"" + attachment + L"\"";
    SHELLEXECUTEINFOW launch{};
    launch.cbSize = sizeof launch;
    launch.fMask = SEE_MASK_NOASYNC;  // done before the objects go
    launch.hwnd = windows::FrameOf(&owner);
    launch.lpVerb = L"open";
    launch.lpFile = program.c_str();
    launch.lpParameters = parameters.c_str();
    launch.nShow = SW_SHOWNORMAL;
    ShellExecuteExW(&launch);
}

}  // namespace platform
