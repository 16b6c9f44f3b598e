// Programs that are started for the user: for mail, and for reading the guide.
#include "platform/MessageBox.h"
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

SHELLEXECUTEINFOW Launch(Window& owner, const std::wstring& file, ULONG mask) {
    SHELLEXECUTEINFOW launch{};
    launch.cbSize = sizeof launch;
    launch.fMask = mask | SEE_MASK_NOASYNC;  // done before the objects go
    launch.hwnd = windows::FrameOf(&owner);
    launch.lpVerb = L"open";
    launch.lpFile = file.c_str();
    launch.nShow = SW_SHOWNORMAL;
    return launch;
}

}  // namespace

// By whatever shows pages of this kind, else by what shows those of the web.
void OpenUserGuide(Window& owner) {
    const windows::SystemObjects objects;
    const std::wstring page = windows::PathBesideProgram(L"guide\\index.html");
    SHELLEXECUTEINFOW file = Launch(owner, page, SEE_MASK_FLAG_NO_UI);
    SHELLEXECUTEINFOW web = Launch(owner, page, SEE_MASK_FLAG_NO_UI | SEE_MASK_CLASSNAME);
    web.lpClass = L"http";
    if (IsFile(page) && (ShellExecuteExW(&file) || ShellExecuteExW(&web))) return;
    ShowMessage(&owner, L"Opening '" + page + L"' failed!", L" Error", MessageButtons::Ok,
                MessageIcon::Error);
}

void StartMailProgram(Window& owner, const std::wstring& attachment) {
    const windows::SystemObjects objects;
    const std::wstring program = MailProgram();
    const std::wstring parameters = L"-attach \"" + attachment + L"\"";
    SHELLEXECUTEINFOW launch = Launch(owner, program, 0);
    launch.lpParameters = parameters.c_str();
    ShellExecuteExW(&launch);
}

}  // namespace platform
