#include <iterator>
#include <map>

#include "platform/Shell.h"
#include "platform/TextEncoding.h"
#include "platform/Window.h"
#include "platform/windows/Guards.h"
#include "platform/windows/HandheldPath.h"

namespace platform {

namespace {

constexpr size_t kLongestPath = 32768;
constexpr UINT kPatienceMilliseconds = 1000;
constexpr WPARAM kTodayItemsChanged = 0xF2;

HWND TodayWindow() { return FindWindowW(L"DesktopExplorerWindow", L"Desktop"); }

std::wstring ImageOf(HANDLE process) {
    std::wstring path(kLongestPath, L'\0');
    auto length = static_cast<DWORD>(path.size());
    if (!QueryFullProcessImageNameW(process, 0, path.data(), &length)) return {};
    path.resize(length);
    return path;
}

// Tells the processes that run the same executable file as this one.
class CopyFinder {
  public:
    CopyFinder()
        : ownPath_(ImageOf(GetCurrentProcess())),
          startPath_(ProgramPath()),
          foreground_(GetForegroundWindow()) {}

    void Look(HWND window) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process == 0 || process == GetCurrentProcessId() || !IsCopy(process)) return;
        found_.push_back(
            {reinterpret_cast<uintptr_t>(window), IsWindowEnabled(window) != FALSE, window == foreground_});
    }

    const std::vector<OtherWindow>& Found() const { return found_; }

  private:
    // The system may report a path as the program was started or in its canonical form.
    bool IsCopy(DWORD process) {
        const auto known = isCopy_.find(process);
        if (known != isCopy_.end()) return known->second;
        const windows::OwnedHandle handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
        const std::wstring path = handle ? ImageOf(handle.get()) : std::wstring();
        const bool same = !path.empty() && (EqualNoCase(path, ownPath_) || EqualNoCase(path, startPath_));
        isCopy_[process] = same;
        return same;
    }

    std::wstring ownPath_;
    std::wstring startPath_;
    HWND foreground_;
    std::map<DWORD, bool> isCopy_;
    std::vector<OtherWindow> found_;
};

BOOL CALLBACK LookForCopy(HWND window, LPARAM finder) {
    reinterpret_cast<CopyFinder*>(finder)->Look(window);
    return TRUE;
}

struct TitleSearch {
    const std::wstring& title;
    HWND found = nullptr;
};

BOOL CALLBACK CompareTitle(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<TitleSearch*>(parameter);
    wchar_t text[256];
    const int length = GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    if (EqualNoCase(std::wstring(text, static_cast<size_t>(length)), search->title)) search->found = window;
    return search->found == nullptr;
}

BOOL CALLBACK CompareTitlesWithin(HWND window, LPARAM parameter) {
    if (CompareTitle(window, parameter)) EnumChildWindows(window, CompareTitle, parameter);
    return reinterpret_cast<TitleSearch*>(parameter)->found == nullptr;
}

// A window that hangs must not take this program with it.
void SendPatiently(HWND window, UINT message, WPARAM wParam) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, message, wParam, 0, SMTO_ABORTIFHUNG, kPatienceMilliseconds, &answer);
}

void PostTo(const OtherWindow& window, UINT message, WPARAM wParam) {
    PostMessageW(reinterpret_cast<HWND>(window.reference), message, wParam, 0);
}

}  // namespace

std::wstring ProgramPath() {
    std::wstring path(kLongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

std::wstring DeviceName() {
    wchar_t computer[MAX_COMPUTERNAME_LENGTH + 1] = L"";
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    GetComputerNameW(computer, &size);
    return computer + std::wstring(L" ") + windows::DeviceFolder();
}

std::vector<OtherWindow> WindowsOfOtherCopies() {
    CopyFinder finder;
    EnumWindows(LookForCopy, reinterpret_cast<LPARAM>(&finder));
    return finder.Found();
}

void PostCommandTo(const OtherWindow& window, int id) {
    PostTo(window, WM_COMMAND, static_cast<WPARAM>(id) & 0xFFFF);
}

void PostPrivateMessageTo(const OtherWindow& window, uint32_t code) { PostTo(window, kPrivateMessage, code); }

bool NotifyTodayItem(const std::wstring& title) {
    TitleSearch search{title};
    EnumWindows(CompareTitlesWithin, reinterpret_cast<LPARAM>(&search));
    if (!search.found) return false;
    SendPatiently(search.found, WM_DEVICECHANGE, 0);
    return true;
}

bool HasTodayScreen() { return TodayWindow() != nullptr; }

void ReloadTodayScreen() {
    if (const HWND today = TodayWindow()) SendPatiently(today, WM_WININICHANGE, kTodayItemsChanged);
}

// Desktops bring their touch keyboard up themselves.
void ShowInputPanel(bool) {}

}  // namespace platform
