// A hand that gives real input to real windows. Steps run in the program's own thread, from a timer: the
// system reports a timer only when nothing else waits, so a step comes when what went before it has been
// handled, in whatever loop the program is waiting: its own, a message box's or a menu's.
#pragma once

#include "tests/contract/WindowsQuestions.h"

namespace contract {

class WindowsHand : public testing_support::Hand {
  public:
    WindowsHand();
    WindowsHand(const WindowsHand&) = delete;
    WindowsHand& operator=(const WindowsHand&) = delete;
    ~WindowsHand() override;

    // Folders that are chosen lie below this one of the host.
    std::wstring deviceFolder;

    void Then(testing_support::Step step) override { steps_.push_back(std::move(step)); }
    bool IsDone() const override { return steps_.empty() && questions_.AllAsked(); }
    platform::Window* Top() override;

    void PenDown(platform::Point place) override { SendPen(place, MOUSEEVENTF_LEFTDOWN); }
    void PenMove(const std::vector<platform::Point>& places) override;
    void PenUp(platform::Point place) override { SendPen(place, MOUSEEVENTF_LEFTUP); }
    void TakePenAway() override;
    void PressButton(int id) override;
    testing_support::ToolState Tool(int command) override;
    void PressKey(platform::Key key) override;
    void PressShortcut(wchar_t letter) override;
    void TurnWheel(int notches) override;
    void Scroll(platform::ScrollCode code, int position) override;
    void PressClose() override { PostMessageW(Frame(), WM_SYSCOMMAND, SC_CLOSE, 0); }
    void SendPrivateMessage(uint32_t code, intptr_t payload) override {
        PostMessageW(Frame(), platform::kPrivateMessage, code, payload);
    }
    void PassTime(uint32_t milliseconds) override { Sleep(milliseconds); }
    uint32_t PixelAt(platform::Point place) override;

    void TypeInto(int item, const std::wstring& text) override;
    void Choose(int item, int index) override;
    void Select(int item, size_t start, size_t end) override;
    void HoldEdit(int item) override;
    void DoubleTapDay(int item) override;
    void ShowPage(size_t index) override { PostMessageW(GetParent(Frame()), PSM_SETCURSEL, index, 0); }

    void TapTree(platform::TreeItem item) override;
    void DoubleTapTree(platform::TreeItem item) override;
    void HoldTree(platform::TreeItem item) override;
    void RightClickTree(platform::TreeItem item) override;
    void CloseBranch(platform::TreeItem item) override;
    void PressInTree(platform::Key key) override { PressKey(key); }
    std::optional<std::wstring> EditedLabel() override;
    void EndEditing(const std::optional<std::wstring>& text) override;

    void Answer(platform::MessageAnswer answer) override { questions_.answers.push_back(answer); }
    std::vector<testing_support::SeenBox> Boxes() const override { return questions_.boxes; }
    void ChooseEntries(const testing_support::Texts& texts) override;
    void ChooseFolder(const std::wstring& folder) override;

  private:
    HWND Frame();       // of the window on top; of a sheet its page
    HWND Item(int id);  // a control of it
    HWND Tree();
    HWND ToolBarControl();
    HWND LabelEdit() { return reinterpret_cast<HWND>(SendMessageW(Tree(), TVM_GETEDITCONTROL, 0, 0)); }
    POINT PlaceOf(platform::TreeItem item);
    void SendPen(platform::Point place, DWORD flags);
    void HoldAt(POINT desktop);
    void Tick();

    HWND ticker_ = nullptr;
    std::deque<testing_support::Step> steps_;
    WindowsQuestions questions_;
    // The pen that is held still: when and where it is lifted.
    ULONGLONG heldUntil_ = 0;
    POINT heldPlace_{};
};

}  // namespace contract
