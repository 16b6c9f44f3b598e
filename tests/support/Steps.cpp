#include "tests/support/Steps.h"

#include <gtest/gtest.h>

namespace testing_support {

int Hand::ReadMenu(const std::vector<platform::PopupMenu::Item>& items, const std::wstring& wanted) {
    menu_.clear();
    return ReadEntries(items, wanted);
}

int Hand::ReadEntries(const std::vector<platform::PopupMenu::Item>& items, const std::wstring& wanted) {
    int command = 0;
    for (const platform::PopupMenu::Item& item : items) {
        menu_.push_back(item.text.empty() ? L"-" : item.enabled ? item.text : L"(" + item.text + L")");
        if (item.text == wanted && item.enabled && item.command != 0) command = item.command;
        const int below = item.submenu == nullptr ? 0 : ReadEntries(item.submenu->Items(), wanted);
        if (command == 0) command = below;
    }
    return command;
}

void Steps::Play(const Script& script) {
    for (const Step& step : script) hand_.Then(step);
}

Step Steps::Write(const std::vector<platform::Point>& points) {
    return [this, points] {
        hand_.PenDown(points.front());
        for (size_t i = 1; i < points.size(); ++i) hand_.PenMove({points[i]});
        hand_.PenUp(points.back());
    };
}

Step Steps::ExpectTitle(const std::wstring& title) {
    return [this, title] {
        ASSERT_NE(hand_.Top(), nullptr);
        EXPECT_EQ(hand_.Top()->Title(), title);
    };
}

Step Steps::ExpectBox(const std::wstring& text, const std::wstring& caption, platform::MessageAnswer answer) {
    return [=] {
        expected_.push_back({text, caption});
        hand_.Answer(answer);
    };
}

void Steps::CheckBoxes() {
    const std::vector<SeenBox> seen = hand_.Boxes();
    for (size_t i = 0; i < std::max(seen.size(), expected_.size()); ++i) {
        const SeenBox shown = i < seen.size() ? seen[i] : SeenBox{};
        const SeenBox wanted = i < expected_.size() ? expected_[i] : SeenBox{};
        EXPECT_EQ(shown.text, wanted.text);
        EXPECT_EQ(shown.caption, wanted.caption);
    }
}

}  // namespace testing_support
