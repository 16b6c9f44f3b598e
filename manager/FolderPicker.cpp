#include "manager/FolderPicker.h"

#include <deque>
#include <utility>

#include "app/store/StoreListing.h"
#include "app/store/StorePaths.h"
#include "platform/TextEncoding.h"
#include "platform/Window.h"

namespace manager {

namespace {

constexpr int kFirstCommand = 1000;
constexpr int kCancelCommand = 1;
constexpr int kBackCommand = 2;
constexpr int kNoCommand = 3;
constexpr int kDeepest = 6;        // levels of one menu; more would leave the screen
constexpr int kMostFolders = 300;  // read for one menu: no wait, and an end where links lead in a circle

}  // namespace

FolderPicker::FolderPicker(const std::wstring& rootPrefix, const std::wstring& moved)
    : rootPrefix_(rootPrefix), moved_(moved) {}

std::wstring FolderPicker::Pick(platform::Window& owner, ink::Point place) {
    std::vector<std::wstring> way{rootPrefix_};
    for (;;) {
        const int command = Show(way.back(), owner, place);
        if (command == kBackCommand) {
            way.pop_back();
            continue;
        }
        const int index = command - kFirstCommand;
        if (index < 0 || index >= static_cast<int>(choices_.size())) return {};
        const Choice& choice = choices_[static_cast<size_t>(index)];
        if (!choice.opensMenu) return choice.folder;
        way.push_back(choice.folder);
    }
}

// The menu that begins at a folder. Gives its command.
int FolderPicker::Show(const std::wstring& folder, platform::Window& owner, ink::Point place) {
    choices_.clear();
    Branch top;
    top.path = folder;
    Read(top);
    platform::PopupMenu menu;
    const bool isRoot = folder == rootPrefix_;
    // A folder may also become a folder of the root; notes lie in folders only.
    if (!isRoot || !moved_.empty()) {
        const std::wstring name = store::NameOf(store::WithoutTrailingBackslashes(folder));
        AddChoice(menu, isRoot ? L"Notes" : name, {folder});
        menu.AddSeparator();
    }
    AddFolders(menu, top, 1);
    if (isRoot && top.folders.empty()) menu.Add(kNoCommand, L"No Folders Exist!", false);
    menu.AddSeparator();
    if (!isRoot) menu.Add(kBackCommand, L"Back");
    menu.Add(kCancelCommand, L"Cancel");
    return menu.Choose(owner, place);
}

// Level by level, so that what is left out is what lies deepest.
void FolderPicker::Read(Branch& top) const {
    std::deque<std::pair<Branch*, int>> waiting{{&top, 0}};
    for (int count = 0; !waiting.empty() && count < kMostFolders; ++count) {
        const auto [branch, level] = waiting.front();
        waiting.pop_front();
        branch->folders = FoldersIn(branch->path);
        branch->isRead = true;
        if (level == kDeepest) continue;
        for (Branch& folder : branch->folders) waiting.emplace_back(&folder, level + 1);
    }
}

std::vector<FolderPicker::Branch> FolderPicker::FoldersIn(const std::wstring& folder) const {
    std::vector<Branch> folders;
    const bool isRoot = folder == rootPrefix_;
    for (const std::wstring& name :
         isRoot ? store::ListUserFolders(folder) : store::ListStoreFolder(folder).folders) {
        const bool isMoved = platform::EqualNoCase(folder + name, moved_);
        if (!isMoved) folders.push_back({name, folder + name + L"\\", false, {}});
    }
    return folders;
}

void FolderPicker::AddFolders(platform::PopupMenu& menu, const Branch& branch, int level) {
    for (const Branch& folder : branch.folders) {
        if (folder.isRead && folder.folders.empty()) {
            AddChoice(menu, folder.name, {folder.path});
        } else if (!folder.isRead || level == kDeepest) {
            AddChoice(menu, folder.name + L"...", {folder.path, true});
        } else {
            platform::PopupMenu submenu;
            AddChoice(submenu, folder.name, {folder.path});
            submenu.AddSeparator();
            AddFolders(submenu, folder, level + 1);
            menu.AddSubmenu(folder.name, submenu);
        }
    }
}

void FolderPicker::AddChoice(platform::PopupMenu& menu, const std::wstring& text, const Choice& choice) {
    menu.Add(kFirstCommand + static_cast<int>(choices_.size()), text);
    choices_.push_back(choice);
}

}  // namespace manager
