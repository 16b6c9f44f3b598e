#include "tests/support/DeskHand.h"

#include <algorithm>

#include "platform/Dialog.h"
#include "platform/Screen.h"
#include "platform/host/HostToolBar.h"
#include "platform/host/HostWindow.h"

namespace testing_support {

void DeskHand::PressClose() {
    desk_.Command(Top()->Handle()->isDialog ? platform::kIdCancel : platform::kIdOk);
}

ToolState DeskHand::Tool(int command) {
    const platform::HostButton* button = platform::ToolBar::Impl::Find(*Top(), command);
    return button == nullptr ? ToolState{} : ToolState{button->checked, button->pressed, button->enabled};
}

uint32_t DeskHand::PixelAt(platform::Point place) {
    return Top()->Handle()->shown.Surface().Row(place.y)[place.x];
}

void DeskHand::HoldEdit(int item) {
    const platform::Rect place = dynamic_cast<platform::Dialog&>(*Top()).ItemRect(item);
    desk_.Hold(item, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

platform::TreeView& DeskHand::TreeControl() { return *Top()->Handle()->tree; }

Texts DeskHand::PathOf(platform::TreeItem item) {
    Texts path;
    for (; item != 0; item = TreeControl().Parent(item)) path.insert(path.begin(), TreeControl().Text(item));
    return path;
}

// Somewhere inside the tree, in pixels of the handheld's screen.
void DeskHand::HoldTree(platform::TreeItem item) {
    const platform::Rect& place = TreeControl().Handle()->place;
    Tree().Hold(PathOf(item), {place.left + 10, place.top + 10 + platform::kBarHeight});
}

std::optional<std::wstring> DeskHand::EditedLabel() {
    if (TreeControl().Handle()->editing == nullptr) return std::nullopt;
    return TreeControl().Handle()->editText;
}

void DeskHand::EndEditing(const std::optional<std::wstring>& text) {
    text ? Tree().EndEdit(*text) : Tree().CancelEdit();
}

std::vector<SeenBox> DeskHand::Boxes() const {
    std::vector<SeenBox> boxes;
    for (const auto& shown : desk_.messages) {
        const bool isSecond = shown.defaultButton == platform::DefaultButton::Second;
        boxes.push_back({shown.text, shown.caption, isSecond});
    }
    return boxes;
}

void DeskHand::ChooseEntries(const Texts& texts) {
    desk_.chooseFromMenu = [this, texts, menus = size_t{0}](const auto& items) mutable {
        return ReadMenu(items, texts[std::min(menus++, texts.size() - 1)]);
    };
}

}  // namespace testing_support
