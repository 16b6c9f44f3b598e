#include "platform/FileSystem.h"
#include "platform/windows/Guards.h"
#include "platform/windows/HandheldPath.h"
#include "platform/windows/Processes.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

using windows::OwnedItemIds;

namespace {

constexpr DWORD kLongestPath = 32768;

OwnedItemIds ItemIdsOf(const std::wstring& hostPath) {
    PIDLIST_ABSOLUTE ids = nullptr;
    if (FAILED(SHParseDisplayName(hostPath.c_str(), nullptr, &ids, 0, nullptr))) return nullptr;
    return OwnedItemIds(ids);
}

int CALLBACK OpenAtStart(HWND chooser, UINT message, LPARAM, LPARAM startPath) {
    if (message == BFFM_INITIALIZED) SendMessageW(chooser, BFFM_SETSELECTIONW, TRUE, startPath);
    return 0;
}

}  // namespace

bool ChooseFolder(Window* owner, const std::wstring& title, const std::wstring& start, std::wstring& chosen) {
    const windows::SystemObjects objects;
    const std::wstring startPath = windows::ToShellPath(start);
    // A folder that stands for the whole device bounds the choice: outside it there is nothing to name.
    const OwnedItemIds root = windows::DeviceFolder().empty() ? nullptr : ItemIdsOf(windows::ToShellPath(L"\\"));
    wchar_t name[MAX_PATH] = L"";
    BROWSEINFOW request{};
    request.hwndOwner = windows::FrameOf(owner);
    request.pidlRoot = root.get();
    request.pszDisplayName = name;
    request.lpszTitle = title.c_str();
    request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    request.lpfn = OpenAtStart;
    request.lParam = reinterpret_cast<LPARAM>(startPath.c_str());
    const OwnedItemIds picked(SHBrowseForFolderW(&request));
    if (!picked) return false;
    std::wstring path(kLongestPath, L'\0');
    if (!SHGetPathFromIDListEx(picked.get(), path.data(), kLongestPath, GPFIDL_DEFAULT)) return false;
    path.resize(path.find(L'\0'));
    chosen = windows::ToHandheldPath(path);
    return true;
}

}  // namespace platform
