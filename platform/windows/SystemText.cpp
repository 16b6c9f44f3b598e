#include "platform/windows/SystemText.h"

#include <iterator>
#include <vector>

namespace platform::windows {

std::wstring EnvironmentText(const wchar_t* name) {
    std::vector<wchar_t> text(GetEnvironmentVariableW(name, nullptr, 0));
    if (text.empty()) return {};
    const DWORD length = GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size()));
    return length < text.size() ? std::wstring(text.data(), length) : std::wstring();
}

bool IsOfClass(HWND window, const wchar_t* className) {
    wchar_t name[64] = L"";
    if (window) GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return lstrcmpiW(name, className) == 0;
}

}  // namespace platform::windows
