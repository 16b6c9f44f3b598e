#pragma once

#include <string>

#include "platform/PopupMenu.h"

namespace platform {
class Window;
}

namespace manager {

// A cascading menu of the store's folders. Each submenu begins with the folder it belongs to.
class FolderPicker {
  public:
    // `moved` is a folder that is itself to be moved (whole path, without trailing "\"): it and what is
    // below it can't be picked. Empty when a note is moved.
    FolderPicker(const std::wstring& rootPrefix, const std::wstring& moved);

    // Shows the menu at `place` (handheld screen pixels). The folder that was picked ends in "\"; empty when
    // none was.
    std::wstring Pick(platform::Window& owner, ink::Point place);

  private:
    platform::PopupMenu MenuOf(const std::wstring& folder, bool isRoot, int depth);
    void AddFolders(platform::PopupMenu& menu, const std::wstring& folder, bool isRoot, int depth);

    std::wstring rootPrefix_;
    std::wstring moved_;
    std::vector<std::wstring> folders_;  // by command, from kFirstCommand on
};

}  // namespace manager
