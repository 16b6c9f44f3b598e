#pragma once

#include <algorithm>

#include "platform/Dialog.h"
#include "platform/Screen.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostToolBar.h"
#include "platform/host/HostTreeView.h"
#include "platform/host/HostWindow.h"
#include "tests/support/Steps.h"

namespace testing_support {

class DeskHand : public Hand {
  public:
    explicit DeskHand(platform::host::HostDevice& device) : desk_(device.desk) {}

    void Then(Step step) override { desk_.Then(std::move(step)); }
    bool IsDone() const override { return !desk_.StepWaiting() && desk_.problems.empty(); }
    platform::Window* Top() override { return desk_.Top(); }
    void PenDown(platform::Point place) override { desk_.PenDown(place); }
    void PenMove(const std::vector<platform::Point>& places) override {
        desk_.PenMove(places.back(), {places.begin(), places.end() - 1});
    }
    void PenUp(platform::Point place) override { desk_.PenUp(place); }
    void TakePenAway() override { desk_.TakePenAway(); }
    void PressButton(int id) override { desk_.Command(id); }
    ToolState Tool(int command) override {
        const platform::HostButton* button = platform::ToolBar::Impl::Find(*Top(), command);
        return button == nullptr ? ToolState{} : ToolState{button->checked, button->pressed, button->enabled};
    }
    void PressKey(platform::Key key) override { desk_.Press(key); }
    void PressShortcut(wchar_t letter) override { desk_.PressShortcut(letter); }
    void TurnWheel(int notches) override { desk_.TurnWheel(notches); }
    void DropThumb(int position) override { desk_.Scroll(platform::ScrollCode::ThumbPosition, position); }
    void PressClose() override {
        desk_.Command(Top()->Handle()->isDialog ? platform::kIdCancel : platform::kIdOk);
    }
    void TakeOver() override { desk_.PrivateMessage(platform::kTakeOver); }
    void PassTime(uint32_t milliseconds) override { desk_.PassTime(milliseconds); }
    uint32_t PixelAt(platform::Point place) override {
        const platform::Rect pixel = Top()->PageScale().ToSurface({place.x, place.y, 0, 0});
        return Top()->Handle()->shown.Surface().Row(pixel.top)[pixel.left];
    }
    void ChangeScale(ink::Scale scale) override { desk_.Rescale(scale); }

    void TypeInto(int item, const std::wstring& text) override { desk_.Type(item, text); }
    void Choose(int item, int index) override { desk_.Choose(item, index); }
    void Select(int item, size_t start, size_t end) override { desk_.Select(item, start, end); }
    void HoldEdit(int item) override {
        const platform::Rect place = dynamic_cast<platform::Dialog&>(*Top()).ItemRect(item);
        desk_.Hold(item, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    }
    void DoubleTapDay(int) override { desk_.Command(platform::kIdOk); }
    void ShowPage(size_t index) override { desk_.ShowPage(index); }

    void TapTree(platform::TreeItem item) override { Tree().Tap(PathOf(item)); }
    void DoubleTapTree(platform::TreeItem item) override { Tree().Activate(PathOf(item)); }
    // Somewhere inside the tree, in pixels of the handheld's screen.
    void HoldTree(platform::TreeItem item) override {
        const platform::Rect& place = TreeControl().Handle()->place;
        Tree().Hold(PathOf(item), {place.left + 10, place.top + 10 + platform::kBarHeight});
    }
    void CloseBranch(platform::TreeItem item) override { Tree().CloseBranch(PathOf(item)); }
    void PressInTree(platform::Key key) override { Tree().PressKey(key); }
    std::optional<std::wstring> EditedLabel() override {
        if (TreeControl().Handle()->editing == nullptr) return std::nullopt;
        return TreeControl().Handle()->editText;
    }
    void EndEditing(const std::optional<std::wstring>& text) override {
        text ? Tree().EndEdit(*text) : Tree().CancelEdit();
    }

    void Answer(platform::MessageAnswer answer) override { desk_.answers.push_back(answer); }
    std::vector<SeenBox> Boxes() const override {
        std::vector<SeenBox> boxes;
        for (const auto& shown : desk_.messages) {
            const bool isSecond = shown.defaultButton == platform::DefaultButton::Second;
            boxes.push_back({shown.text, shown.caption, isSecond});
        }
        return boxes;
    }
    void ChooseEntries(const Texts& texts) override {
        desk_.chooseFromMenu = [this, texts, menus = size_t{0}](const auto& items) mutable {
            return ReadMenu(items, texts[std::min(menus++, texts.size() - 1)]);
        };
    }
    void ChooseFolder(const std::wstring& folder) override { desk_.chosenFolder = folder; }
    void ChoosePlace(const std::wstring& place) override { desk_.chosenPlace = place; }

  private:
    platform::TreeView& TreeControl() { return *Top()->Handle()->tree; }
    platform::host::HostTree Tree() { return platform::host::HostTree(TreeControl()); }
    Texts PathOf(platform::TreeItem item) {
        Texts path;
        for (; item != 0; item = TreeControl().Parent(item))
            path.insert(path.begin(), TreeControl().Text(item));
        return path;
    }

    platform::host::HostDesk& desk_;
};

}  // namespace testing_support
