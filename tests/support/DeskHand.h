// A person's hand at the device in memory.
#pragma once

#include "platform/host/HostDevice.h"
#include "platform/host/HostTreeView.h"
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
    ToolState Tool(int command) override;
    void PressKey(platform::Key key) override { desk_.Press(key); }
    void PressShortcut(wchar_t letter) override { desk_.PressShortcut(letter); }
    void TurnWheel(int notches) override { desk_.TurnWheel(notches); }
    void DropThumb(int position) override { desk_.Scroll(platform::ScrollCode::ThumbPosition, position); }
    void PressClose() override;
    void TakeOver() override { desk_.PrivateMessage(platform::kTakeOver); }
    void PassTime(uint32_t milliseconds) override { desk_.PassTime(milliseconds); }
    uint32_t PixelAt(platform::Point place) override;

    void TypeInto(int item, const std::wstring& text) override { desk_.Type(item, text); }
    void Choose(int item, int index) override { desk_.Choose(item, index); }
    void Select(int item, size_t start, size_t end) override { desk_.Select(item, start, end); }
    void HoldEdit(int item) override;
    void DoubleTapDay(int) override { desk_.Command(platform::kIdOk); }
    void ShowPage(size_t index) override { desk_.ShowPage(index); }

    void TapTree(platform::TreeItem item) override { Tree().Tap(PathOf(item)); }
    void DoubleTapTree(platform::TreeItem item) override { Tree().Activate(PathOf(item)); }
    void HoldTree(platform::TreeItem item) override;
    void CloseBranch(platform::TreeItem item) override { Tree().CloseBranch(PathOf(item)); }
    void PressInTree(platform::Key key) override { Tree().PressKey(key); }
    std::optional<std::wstring> EditedLabel() override;
    void EndEditing(const std::optional<std::wstring>& text) override;

    void Answer(platform::MessageAnswer answer) override { desk_.answers.push_back(answer); }
    std::vector<SeenBox> Boxes() const override;
    void ChooseEntries(const Texts& texts) override;
    void ChooseFolder(const std::wstring& folder) override { desk_.chosenFolder = folder; }

  private:
    platform::TreeView& TreeControl();
    platform::host::HostTree Tree() { return platform::host::HostTree(TreeControl()); }
    Texts PathOf(platform::TreeItem item);

    platform::host::HostDesk& desk_;
};

}  // namespace testing_support
