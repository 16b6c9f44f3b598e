#include "tests/support/DeskHand.h"

#include <algorithm>

namespace testing_support {

std::vector<SeenBox> DeskHand::Boxes() const {
    std::vector<SeenBox> boxes;
    for (const auto& shown : desk_.messages) boxes.push_back({shown.text, shown.caption});
    return boxes;
}

void DeskHand::ChooseEntries(const std::vector<std::wstring>& texts) {
    desk_.chooseFromMenu = [this, texts, menus = size_t{0}](const auto& items) mutable {
        menu_.clear();
        return FindEntry(items, texts[std::min(menus++, texts.size() - 1)]);
    };
}

int DeskHand::FindEntry(const std::vector<platform::PopupMenu::Item>& items, const std::wstring& text) {
    int command = 0;
    for (const platform::PopupMenu::Item& item : items) {
        menu_.push_back(item.text.empty() ? L"-" : item.enabled ? item.text : L"(" + item.text + L")");
        if (item.text == text && item.command != 0) command = item.command;
        if (item.submenu != nullptr && command == 0) command = FindEntry(item.submenu->Items(), text);
    }
    return command;
}

}  // namespace testing_support
