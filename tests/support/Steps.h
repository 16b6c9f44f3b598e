// The words of a test's script, for the program on a device in memory and for the contract tests of each
// port.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/MessageBox.h"
#include "platform/PopupMenu.h"
#include "platform/TreeView.h"
#include "platform/Window.h"

namespace testing_support {

using Step = std::function<void()>;
using Script = std::vector<Step>;
using Texts = std::vector<std::wstring>;

struct SeenBox {
    std::wstring text;
    std::wstring caption;
    bool isSecondDefault = false;  // the button that Enter presses
};

struct ToolState {
    bool checked = false;
    bool pressed = false;
    bool enabled = false;
};

// The hand of a person at one device, or of another program there: each port has its own. Events go to the
// window on top, places are its client pixels.
class Hand {
  public:
    virtual ~Hand() = default;

    // Done when the program next waits for an event, after what the step before it caused.
    virtual void Then(Step step) = 0;
    virtual bool IsDone() const = 0;
    virtual platform::Window* Top() = 0;

    virtual void PenDown(platform::Point place) = 0;
    // Through all of the places before the program sees the last one.
    virtual void PenMove(const std::vector<platform::Point>& places) = 0;
    virtual void PenUp(platform::Point place) = 0;
    virtual void TakePenAway() = 0;
    // A button of the tool bar, of a dialog or of a sheet's page. Greyed ones do nothing.
    virtual void PressButton(int id) = 0;
    virtual ToolState Tool(int command) = 0;  // nothing of it without such a button
    virtual void PressKey(platform::Key key) = 0;
    virtual void PressShortcut(wchar_t letter) = 0;  // with Ctrl
    virtual void TurnWheel(int notches) = 0;         // up when positive
    virtual void DropThumb(int position) = 0;        // of the scroll bar
    virtual void PressClose() = 0;                   // the title bar's button
    virtual void TakeOver() = 0;                     // as another copy of the program
    virtual void PassTime(uint32_t milliseconds) = 0;
    // 0x00RRGGBB of what is shown, at the top left of a page pixel.
    virtual uint32_t PixelAt(platform::Point place) = 0;
    virtual void ChangeScale(ink::Scale scale) = 0;  // the window comes to a monitor of this scale

    // Controls of a dialog.
    virtual void TypeInto(int item, const std::wstring& text) = 0;
    virtual void Choose(int item, int index) = 0;
    virtual void Select(int item, size_t start, size_t end) = 0;  // text of an edit
    virtual void HoldEdit(int item) = 0;                          // in its middle
    virtual void DoubleTapDay(int item) = 0;                      // the chosen one of a month calendar
    virtual void ShowPage(size_t index) = 0;                      // of a property sheet

    // The tree of the window: on an item's text, or on the empty part for item 0.
    virtual void TapTree(platform::TreeItem item) = 0;
    virtual void DoubleTapTree(platform::TreeItem item) = 0;
    virtual void HoldTree(platform::TreeItem item) = 0;
    virtual void CloseBranch(platform::TreeItem item) = 0;  // of the root, by its button
    virtual void PressInTree(platform::Key key) = 0;
    virtual std::optional<std::wstring> EditedLabel() = 0;
    virtual void EndEditing(const std::optional<std::wstring>& text) = 0;  // nothing: given up

    virtual void Answer(platform::MessageAnswer answer) = 0;
    virtual std::vector<SeenBox> Boxes() const = 0;
    // The menus that come next are answered with the entries of these texts, one after another.
    virtual void ChooseEntries(const Texts& texts) = 0;
    virtual void ChooseFolder(const std::wstring& folder) = 0;  // in the folder chooser; empty: cancelled
    virtual void ChoosePlace(const std::wstring& place) = 0;    // in the save chooser, likewise

    // All entries of the last menu: greyed ones in brackets, separators as "-", submenus' after their text.
    const Texts& Menu() const { return menu_; }

  protected:
    // Reads a menu; the command of the entry with this text, 0 for none.
    int ReadMenu(const std::vector<platform::PopupMenu::Item>& items, const std::wstring& wanted) {
        menu_.clear();
        return ReadEntries(items, wanted);
    }

  private:
    int ReadEntries(const std::vector<platform::PopupMenu::Item>& items, const std::wstring& wanted) {
        int command = 0;
        for (const platform::PopupMenu::Item& item : items) {
            menu_.push_back(item.text.empty() ? L"-" : item.enabled ? item.text : L"(" + item.text + L")");
            if (item.text == wanted && item.enabled && item.command != 0) command = item.command;
            const int below = item.submenu == nullptr ? 0 : ReadEntries(item.submenu->Items(), wanted);
            if (command == 0) command = below;
        }
        return command;
    }

    Texts menu_;
};

// What makes steps for a hand. A script is a list of them: Play({Write({{30, 100}, {40, 110}}), Press(id)}).
class Steps {
  public:
    explicit Steps(Hand& hand) : hand_(hand) {}

    void Play(const Script& script) {
        for (const Step& step : script) hand_.Then(step);
    }

    // A step of the hand alone: Do(&Hand::TapTree, item).
    template <typename... Wanted, typename... Given>
    Step Do(void (Hand::*act)(Wanted...), Given... given) {
        return [=] { (hand_.*act)(given...); };
    }
    Step Down(platform::Point place) { return Do(&Hand::PenDown, place); }
    Step Move(platform::Point place) { return Move(std::vector{place}); }
    Step Move(const std::vector<platform::Point>& places) { return Do(&Hand::PenMove, places); }
    Step Up(platform::Point place) { return Do(&Hand::PenUp, place); }
    Step Write(const std::vector<platform::Point>& points) {
        return [this, points] {
            hand_.PenDown(points.front());
            for (size_t i = 1; i < points.size(); ++i) hand_.PenMove({points[i]});
            hand_.PenUp(points.back());
        };
    }
    Step Press(int id) { return Do(&Hand::PressButton, id); }
    Step Press(platform::Key key) { return Do(&Hand::PressKey, key); }
    Step Shortcut(wchar_t letter) { return Do(&Hand::PressShortcut, letter); }
    Step Wait(uint32_t milliseconds) { return Do(&Hand::PassTime, milliseconds); }
    Step TakePenAway() { return Do(&Hand::TakePenAway); }
    Step TakeOver() { return Do(&Hand::TakeOver); }
    Step TypeInto(int item, const std::wstring& text) { return Do(&Hand::TypeInto, item, text); }
    Step Choose(int item, int index) { return Do(&Hand::Choose, item, index); }
    Step ShowPage(size_t index) { return Do(&Hand::ShowPage, index); }
    Step Close() { return Press(platform::kIdOk); }
    // The menus that the next step opens are answered so: Picked({L"Change Folder...", L"Home"}).
    Step Picked(const Texts& texts) { return Do(&Hand::ChooseEntries, texts); }
    Step ExpectTitle(const std::wstring& title) {
        return [this, title] {
            ASSERT_NE(hand_.Top(), nullptr);
            EXPECT_EQ(hand_.Top()->Title(), title);
        };
    }
    // A box with this text comes up before the script is over, and is answered so. Boxes nobody expects are
    // faults, see CheckBoxes.
    Step ExpectBox(const std::wstring& text, const std::wstring& caption,
                   platform::MessageAnswer answer = platform::MessageAnswer::Ok) {
        return [=] {
            expected_.push_back({text, caption});
            hand_.Answer(answer);
        };
    }

    void CheckBoxes() {
        const std::vector<SeenBox> seen = hand_.Boxes();
        for (size_t i = 0; i < std::max(seen.size(), expected_.size()); ++i) {
            const SeenBox shown = i < seen.size() ? seen[i] : SeenBox{};
            const SeenBox wanted = i < expected_.size() ? expected_[i] : SeenBox{};
            EXPECT_EQ(shown.text, wanted.text);
            EXPECT_EQ(shown.caption, wanted.caption);
        }
    }

  protected:
    Hand& hand_;

  private:
    std::vector<SeenBox> expected_;
};

}  // namespace testing_support
