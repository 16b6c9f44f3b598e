#pragma once

#include <string>
#include <vector>

#include "platform/PopupMenu.h"

namespace platform {
class Window;
}

namespace manager {

// A cascading menu of the store's folders. Each submenu begins with the folder it belongs to. What lies
// deeper than a screen has room for, or would take long to read, is reached by an entry that opens a further
// menu.
class FolderPicker {
  public:
    // `moved` is a folder that is itself to be moved (whole path, without trailing "\"): it and what is
    // below it can't be picked. Empty when a note is moved.
    FolderPicker(const std::wstring& rootPrefix, const std::wstring& moved);

    // Shows the menu at `place` (handheld screen pixels). The folder that was picked ends in "\"; empty when
    // none was.
    std::wstring Pick(platform::Window& owner, ink::Point place);

  private:
    struct Branch {
        std::wstring name;
        std::wstring path;  // ends in "\"
        bool isRead = false;
        std::vector<Branch> folders;
    };
    struct Choice {
        std::wstring folder;
        bool opensMenu = false;
    };

    int Show(const std::wstring& folder, platform::Window& owner, ink::Point place);
    void Read(Branch& top) const;
    std::vector<Branch> FoldersIn(const std::wstring& folder) const;
    void AddFolders(platform::PopupMenu& menu, const Branch& branch, int level);
    void AddChoice(platform::PopupMenu& menu, const std::wstring& text, const Choice& choice);

    std::wstring rootPrefix_;
    std::wstring moved_;
    std::vector<Choice> choices_;  // of the menu that is shown, by command
};

}  // namespace manager
