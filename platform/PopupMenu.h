#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ink/Geometry.h"

namespace platform {

class Window;

// A menu built item by item and shown once. Texts are shown as they are; there are no access keys.
class PopupMenu {
  public:
    void Add(int command, const std::wstring& text, bool enabled = true);
    void AddSeparator();
    void AddSubmenu(const std::wstring& text, const PopupMenu& submenu);

    // Shows the menu at `place` (handheld screen pixels), kept on the screen, and waits for the choice.
    // Returns its command, 0 when it was dismissed.
    int Choose(Window& owner, ink::Point place) const;

    struct Item {
        int command = 0;  // 0 = separator
        std::wstring text;
        bool enabled = true;
        std::shared_ptr<const PopupMenu> submenu;  // null for a command
    };
    const std::vector<Item>& Items() const { return items_; }

  private:
    std::vector<Item> items_;
};

}  // namespace platform
