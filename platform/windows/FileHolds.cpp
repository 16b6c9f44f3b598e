#include "platform/windows/FileHolds.h"

#include "platform/windows/Guards.h"

namespace platform::windows {

namespace {

constexpr ULONGLONG kPatienceMilliseconds = 300;
constexpr DWORD kPauseMilliseconds = 15;

// A deleted entry stays in its folder while somebody holds it, and refuses every question.
bool IsVanishing(const std::wstring& hostPath) {
    return GetFileAttributesW(hostPath.c_str()) == INVALID_FILE_ATTRIBUTES &&
           GetLastError() == ERROR_ACCESS_DENIED;
}

bool HoldsOnlyVanishing(const std::wstring& hostFolder) {
    WIN32_FIND_DATAW found{};
    const OwnedSearch search = OwnSearch(FindFirstFileW((hostFolder + L"\\*").c_str(), &found));
    if (!search) return false;
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L".." && !IsVanishing(hostFolder + L"\\" + name)) return false;
    } while (FindNextFileW(search.get(), &found));
    return true;
}

bool MayPass(DWORD error, const std::wstring& hostPath) {
    switch (error) {
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE:
            return true;
        case ERROR_ACCESS_DENIED:
            return IsVanishing(hostPath);
        case ERROR_DIR_NOT_EMPTY:
            return HoldsOnlyVanishing(hostPath);
        default:
            return false;
    }
}

}  // namespace

bool TryThroughHolds(const std::wstring& hostPath, const std::function<bool()>& attempt) {
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        if (attempt()) return true;
        const DWORD error = GetLastError();
        const bool isFinal = GetTickCount64() - start >= kPatienceMilliseconds || !MayPass(error, hostPath);
        SetLastError(error);
        if (isFinal) return false;
        Sleep(kPauseMilliseconds);
    }
}

}  // namespace platform::windows
