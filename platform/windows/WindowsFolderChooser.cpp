#include "platform/FileSystem.h"
#include "platform/windows/Guards.h"
#include "platform/windows/HandheldPath.h"
#include "platform/windows/Processes.h"
#include "platform/windows/ShellHeaders.h"
#include "platform/windows/SystemDialog.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

using windows::OwnedItemIds;
using windows::ReleaseObject;

namespace {

constexpr DWORD kLongestPath = 32768;

OwnedItemIds ItemIdsOf(const std::wstring& hostPath) {
    PIDLIST_ABSOLUTE ids = nullptr;
    if (FAILED(SHParseDisplayName(hostPath.c_str(), nullptr, &ids, 0, nullptr))) return nullptr;
    return OwnedItemIds(ids);
}

// The place of a folder below `root`, for a chooser that is bound to that very root: the same folder reached
// by its whole path may have other ids on the way, which carry times.
OwnedItemIds ItemIdsBelow(PCIDLIST_ABSOLUTE root, std::wstring relativePath) {
    void* object = nullptr;
    PIDLIST_RELATIVE ids = nullptr;
    if (FAILED(SHBindToObject(nullptr, root, nullptr, IID_IShellFolder, &object))) return nullptr;
    const std::unique_ptr<IShellFolder, ReleaseObject> folder(static_cast<IShellFolder*>(object));
    if (FAILED(folder->ParseDisplayName(nullptr, nullptr, relativePath.data(), nullptr, &ids, nullptr)))
        return nullptr;
    const std::unique_ptr<ITEMIDLIST, windows::FreeTaskMemory> below(ids);
    return OwnedItemIds(ILCombine(root, below.get()));
}

// A folder that stands for the whole device bounds the choice: outside it there is nothing to name.
OwnedItemIds ChoiceRoot() {
    return windows::DeviceFolder().empty() ? nullptr : ItemIdsOf(windows::ToShellPath(L"\\"));
}

// Ids carry the time of the last access, too, and Wine compares them whole: the first look into a folder
// since it changed must not come between making them and the chooser's own look.
void LookIntoEachLevel(const std::wstring& hostPath) {
    for (size_t end = hostPath.find(L'\\', 2); end != std::wstring::npos;) {
        end = hostPath.find(L'\\', end + 1);
        WIN32_FIND_DATAW found{};
        windows::OwnSearch(FindFirstFileW((hostPath.substr(0, end) + L"\\*").c_str(), &found));
    }
}

OwnedItemIds StartIds(const std::wstring& start, PCIDLIST_ABSOLUTE root) {
    LookIntoEachLevel(windows::ToShellPath(start));
    if (!root) return ItemIdsOf(windows::ToShellPath(start));
    const size_t first = start.find_first_not_of(L'\\');
    return first == std::wstring::npos ? nullptr : ItemIdsBelow(root, start.substr(first));
}

int CALLBACK OpenAtStart(HWND chooser, UINT message, LPARAM, LPARAM startIds) {
    if (message == BFFM_INITIALIZED && startIds != 0)
        SendMessageW(chooser, BFFM_SETSELECTIONW, FALSE, startIds);
    return 0;
}

}  // namespace

bool ChooseFolder(Window* owner, const std::wstring& title, const std::wstring& start, std::wstring& chosen) {
    const windows::SystemObjects objects;
    const OwnedItemIds root = ChoiceRoot();
    const OwnedItemIds startIds = StartIds(start, root.get());
    wchar_t name[MAX_PATH] = L"";
    BROWSEINFOW request{};
    request.hwndOwner = windows::FrameOf(owner);
    request.pidlRoot = root.get();
    request.pszDisplayName = name;
    request.lpszTitle = title.c_str();
    request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    request.lpfn = OpenAtStart;
    request.lParam = reinterpret_cast<LPARAM>(startIds.get());
    const windows::SystemDialog running(owner, IDCANCEL);
    const OwnedItemIds picked(SHBrowseForFolderW(&request));
    if (!picked) return false;
    std::wstring path(kLongestPath, L'\0');
    if (!SHGetPathFromIDListEx(picked.get(), path.data(), kLongestPath, GPFIDL_DEFAULT)) return false;
    path.resize(path.find(L'\0'));
    chosen = windows::ToHandheldPath(path);
    return true;
}

}  // namespace platform
