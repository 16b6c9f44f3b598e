#include "manager/FolderPicker.h"

#include <algorithm>

#include "app/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "platform/Window.h"

namespace manager {

namespace {

constexpr int kFirstCommand = 1000;
constexpr int kCancelCommand = 1;
constexpr int kBackCommand = 2;
constexpr int kDeepest = 6;  // submenus beyond would leave the screen: "Back" ends them

std::vector<std::wstring> SubFolders(const std::wstring& folder, bool isRoot) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(app::WithoutTrailingBackslashes(folder), L"*.*", entries);
    std::vector<std::wstring> names;
    for (const platform::FolderEntry& entry : entries) {
        if (entry.isFolder && !(isRoot && app::IsReservedName(entry.name))) names.push_back(entry.name);
    }
    std::sort(names.begin(), names.end(),
              [](const std::wstring& a, const std::wstring& b) { return platform::CompareNames(a, b) < 0; });
    return names;
}

}  // namespace

FolderPicker::FolderPicker(const std::wstring& rootPrefix, const std::wstring& moved)
    : rootPrefix_(rootPrefix), moved_(moved) {}

std::wstring FolderPicker::Pick(platform::Window& owner, ink::Point place) {
    folders_.clear();
    platform::PopupMenu menu;
    // A folder may also become a folder of the root; notes lie in folders only.
    if (!moved_.empty()) {
        menu.Add(kFirstCommand, L"Notes");
        folders_.push_back(rootPrefix_);
        menu.AddSeparator();
    }
    AddFolders(menu, rootPrefix_, true, 1);
    menu.AddSeparator();
    menu.Add(kCancelCommand, L"Cancel");
    const int command = menu.Choose(owner, place) - kFirstCommand;
    const bool isPicked = command >= 0 && command < static_cast<int>(folders_.size());
    return isPicked ? folders_[static_cast<size_t>(command)] : std::wstring();
}

void FolderPicker::AddFolders(platform::PopupMenu& menu, const std::wstring& folder, bool isRoot, int depth) {
    bool isEmpty = true;
    for (const std::wstring& name : SubFolders(folder, isRoot)) {
        const std::wstring path = folder + name;
        if (!moved_.empty() && platform::EqualNoCase(path, moved_)) continue;
        isEmpty = false;
        if (depth < kDeepest && !SubFolders(path + L"\\", false).empty()) {
            menu.AddSubmenu(name, MenuOf(path + L"\\", false, depth + 1));
            continue;
        }
        menu.Add(kFirstCommand + static_cast<int>(folders_.size()), name);
        folders_.push_back(path + L"\\");
    }
    if (isEmpty && isRoot) menu.Add(kBackCommand, L"No Folders Exist!", false);
}

platform::PopupMenu FolderPicker::MenuOf(const std::wstring& folder, bool isRoot, int depth) {
    platform::PopupMenu menu;
    menu.Add(kFirstCommand + static_cast<int>(folders_.size()),
             app::NameOf(app::WithoutTrailingBackslashes(folder)));
    folders_.push_back(folder);
    menu.AddSeparator();
    AddFolders(menu, folder, isRoot, depth);
    if (depth == kDeepest) {
        menu.AddSeparator();
        menu.Add(kBackCommand, L"Back");
    }
    return menu;
}

}  // namespace manager
