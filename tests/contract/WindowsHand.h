// Real input to real windows, as a pen, a mouse and a keyboard give it. Steps run in the program's own
// thread, from a timer: that comes when nothing else waits, in whatever loop the program is, its own or a
// menu's.
#pragma once

#include <cstring>
#include <deque>

#include "platform/windows/ScreenScale.h"
#include "platform/windows/SystemText.h"
#include "platform/windows/WindowImpl.h"
#include "tests/support/Steps.h"

namespace contract {

using platform::Point;
using platform::TreeItem;

inline void SendMouse(POINT desktop, DWORD flags, DWORD data = 0) {
    // 16 bits of a side of the desktop, so that the system's own rounding comes out at the same pixel.
    const auto absolute = [](LONG place, int metric) {
        const LONG side = GetSystemMetrics(metric);
        return static_cast<DWORD>((place * 65536 + side - 1) / side);
    };
    mouse_event(MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags, absolute(desktop.x, SM_CXSCREEN),
                absolute(desktop.y, SM_CYSCREEN), data, 0);
}

inline void Click(POINT desktop) {
    SendMouse(desktop, MOUSEEVENTF_LEFTDOWN);
    SendMouse(desktop, MOUSEEVENTF_LEFTUP);
}

inline void SendKey(WORD code) {
    keybd_event(static_cast<BYTE>(code), 0, 0, 0);
    keybd_event(static_cast<BYTE>(code), 0, KEYEVENTF_KEYUP, 0);
}

inline POINT MiddleOf(HWND window, const RECT& area) {
    POINT middle{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ClientToScreen(window, &middle);
    return middle;
}

inline POINT MiddleOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

class WindowsHand : public testing_support::Hand {
  public:
    WindowsHand() { TickAfter(kTickMilliseconds); }
    WindowsHand(const WindowsHand&) = delete;
    WindowsHand& operator=(const WindowsHand&) = delete;
    ~WindowsHand() override { DestroyWindow(ticker_); }

    void Then(testing_support::Step step) override { steps_.push_back(std::move(step)); }
    bool IsDone() const override { return steps_.empty() && answers_.empty(); }
    // Of a property sheet the page that is shown.
    platform::Window* Top() override {
        const HWND active = GetActiveWindow();
        // What a dialog of the system's keeps in the place of our window means nothing to us.
        const bool isOurs = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(active, GWLP_HINSTANCE)) ==
                            platform::windows::Module();
        platform::Window* window = isOurs ? platform::windows::WindowOf(active) : nullptr;
        const LRESULT page = window ? 0 : SendMessageW(active, PSM_GETCURRENTPAGEHWND, 0, 0);
        return page == 0 ? window : platform::windows::WindowOf(reinterpret_cast<HWND>(page));
    }

    void PenDown(Point place) override { SendMouse(OnPage(place), MOUSEEVENTF_LEFTDOWN); }
    // The program can't take a message while this step runs, so the system merges all moves into one.
    void PenMove(const std::vector<Point>& places) override {
        for (const Point& place : places) SendMouse(OnPage(place), 0);
    }
    void PenUp(Point place) override { SendMouse(OnPage(place), MOUSEEVENTF_LEFTUP); }
    void TakePenAway() override {
        SetCapture(ticker_);
        ReleaseCapture();
    }
    void PressButton(int id) override {
        if (Item(id)) return Click(MiddleOf(Item(id)));
        RECT place{};
        SendMessageW(ToolBar(), TB_GETRECT, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&place));
        Click(MiddleOf(ToolBar(), place));
    }
    testing_support::ToolState Tool(int command) override {
        const LRESULT state = SendMessageW(ToolBar(), TB_GETSTATE, static_cast<WPARAM>(command), 0);
        if (state == -1) return {};
        return {(state & TBSTATE_CHECKED) != 0, (state & TBSTATE_PRESSED) != 0,
                (state & TBSTATE_ENABLED) != 0};
    }
    void PressKey(platform::Key key) override {
        constexpr WORD kCodes[] = {VK_LEFT,   VK_UP,   VK_RIGHT, VK_DOWN,   VK_PRIOR,
                                   VK_NEXT,   VK_HOME, VK_END,   VK_RETURN, VK_ESCAPE,
                                   VK_DELETE, VK_F2,   VK_F1,    VK_F11,    'Q'};
        SendKey(kCodes[static_cast<size_t>(key)]);
    }
    void PressShortcut(wchar_t letter) override {
        const bool withShift = letter >= L'a';
        keybd_event(VK_CONTROL, 0, 0, 0);
        if (withShift) keybd_event(VK_SHIFT, 0, 0, 0);
        SendKey(withShift ? letter - L'a' + L'A' : letter);
        if (withShift) keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
        keybd_event(VK_CONTROL, 0, KEYEVENTF_KEYUP, 0);
    }
    void TurnWheel(int notches) override {
        SendMouse(OnPage({50, 50}), MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA));
    }
    void DropThumb(int position) override {
        PostMessageW(Frame(), WM_VSCROLL, static_cast<WPARAM>(MAKELONG(SB_THUMBPOSITION, position)), 0);
    }
    void PressClose() override { PostMessageW(Frame(), WM_SYSCOMMAND, SC_CLOSE, 0); }
    void TakeOver() override { PostMessageW(Frame(), platform::kPrivateMessage, platform::kTakeOver, 0); }
    void PassTime(uint32_t milliseconds) override { Sleep(milliseconds); }
    uint32_t PixelAt(Point place) override {
        const HDC dc = GetDC(Top()->Handle()->page);
        const RECT pixel = platform::windows::ToDesktop({place.x, place.y, 0, 0}, Top()->PageScale());
        const COLORREF color = GetPixel(dc, pixel.left, pixel.top);
        ReleaseDC(Top()->Handle()->page, dc);
        return RGB(GetBValue(color), GetGValue(color), GetRValue(color));
    }

    // The system asks for a frame that grows with the scale.
    void ChangeScale(ink::Scale scale) override {
        RECT frame{};
        GetWindowRect(Frame(), &frame);
        frame.right = frame.left + MulDiv(frame.right - frame.left, scale.Dots(), Top()->PageScale().Dots());
        frame.bottom = frame.top + MulDiv(frame.bottom - frame.top, scale.Dots(), Top()->PageScale().Dots());
        SendMessageW(Frame(), WM_DPICHANGED, MAKEWPARAM(scale.Dots(), scale.Dots()),
                     reinterpret_cast<LPARAM>(&frame));
    }

    void TypeInto(int item, const std::wstring& text) override {
        Select(item, 0, static_cast<size_t>(-1));
        SendMessageW(Item(item), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void Choose(int item, int index) override {
        SendMessageW(Item(item), CB_SETCURSEL, static_cast<WPARAM>(index - 1), 0);
        SendMessageW(Item(item), WM_KEYDOWN, VK_DOWN, 0);
    }
    void Select(int item, size_t start, size_t end) override {
        SendMessageW(Item(item), EM_SETSEL, start, static_cast<LPARAM>(end));
    }
    void HoldEdit(int item) override {
        const POINT place = MiddleOf(Item(item));
        SendMouse(place, MOUSEEVENTF_LEFTDOWN);
        steps_.push_front([place] { SendMouse(place, MOUSEEVENTF_LEFTUP); });
        TickAfter(kHoldMilliseconds);
    }
    // In the middle of a calendar is a day.
    void DoubleTapDay(int item) override {
        PressButton(item);
        PressButton(item);
    }
    void ShowPage(size_t index) override { PostMessageW(GetParent(Frame()), PSM_SETCURSEL, index, 0); }

    void TapTree(TreeItem item) override { Click(PlaceOf(item)); }
    void DoubleTapTree(TreeItem item) override {
        TapTree(item);
        TapTree(item);
    }
    void HoldTree(TreeItem item) override {
        SendMouse(PlaceOf(item), MOUSEEVENTF_RIGHTDOWN);
        SendMouse(PlaceOf(item), MOUSEEVENTF_RIGHTUP);
    }
    void CloseBranch(TreeItem item) override {
        POINT button{static_cast<LONG>(SendMessageW(Tree(), TVM_GETINDENT, 0, 0)) / 2, 0};
        ClientToScreen(Tree(), &button);
        Click({button.x, PlaceOf(item).y});
    }
    void PressInTree(platform::Key key) override { PressKey(key); }
    std::optional<std::wstring> EditedLabel() override {
        wchar_t text[256] = L"";
        if (!LabelEdit()) return std::nullopt;
        GetWindowTextW(LabelEdit(), text, 256);
        return text;
    }
    void EndEditing(const std::optional<std::wstring>& text) override {
        if (text) SendMessageW(LabelEdit(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text->c_str()));
        SendKey(text ? VK_RETURN : VK_ESCAPE);
    }

    void Answer(platform::MessageAnswer answer) override { answers_.push_back(answer); }
    std::vector<testing_support::SeenBox> Boxes() const override { return boxes_; }
    void ChooseEntries(const testing_support::Texts&) override {}  // no test here opens a menu
    // Of the choosers what they propose, or nothing.
    void ChooseFolder(const std::wstring& folder) override {
        Answer(folder.empty() ? platform::MessageAnswer::Cancel : platform::MessageAnswer::Ok);
    }
    void ChoosePlace(const std::wstring& place) override { ChooseFolder(place); }

  private:
    static constexpr UINT kTickMilliseconds = 10;
    static constexpr UINT kHoldMilliseconds = 1000;

    void TickAfter(UINT milliseconds) {
        const auto tick = [](HWND, UINT, UINT_PTR hand, DWORD) {
            reinterpret_cast<WindowsHand*>(hand)->Tick();
        };
        SetTimer(ticker_, reinterpret_cast<UINT_PTR>(this), milliseconds, tick);
    }
    void Tick() {
        TickAfter(kTickMilliseconds);
        if (AnswerQuestion() || steps_.empty()) return;
        const testing_support::Step step = std::move(steps_.front());
        steps_.pop_front();
        step();
    }

    HWND Frame() { return platform::windows::FrameOf(Top()); }
    // A control; a sheet's own buttons are beside its page.
    HWND Item(int id) {
        const HWND own = GetDlgItem(Frame(), id);
        return own ? own : GetDlgItem(GetParent(Frame()), id);
    }
    HWND ToolBar() {
        const HWND strip = FindWindowExW(Frame(), nullptr, L"InkwrightMenuBar", nullptr);
        return FindWindowExW(strip, nullptr, TOOLBARCLASSNAMEW, nullptr);
    }
    HWND Tree() { return FindWindowExW(Top()->Handle()->page, nullptr, WC_TREEVIEWW, nullptr); }
    HWND LabelEdit() { return reinterpret_cast<HWND>(SendMessageW(Tree(), TVM_GETEDITCONTROL, 0, 0)); }
    POINT OnPage(Point place) {
        const RECT pixel = platform::windows::ToDesktop({place.x, place.y, 0, 0}, Top()->PageScale());
        return MiddleOf(Top()->Handle()->page, {pixel.left, pixel.top, pixel.left, pixel.top});
    }
    POINT PlaceOf(TreeItem item) {
        RECT text{};  // where the control takes the item and puts the rectangle
        std::memcpy(&text, &item, sizeof item);
        SendMessageW(Tree(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&text));
        return MiddleOf(Tree(), text);
    }

    // True when the program asks something through a window of the system, answered or not.
    bool AnswerQuestion() {
        const HWND dialog = GetActiveWindow();
        if (!platform::windows::IsOfClass(dialog, L"#32770") || Top()) return false;
        if (!answers_.empty()) AnswerBox(dialog);
        return true;
    }
    void AnswerBox(HWND box) {
        constexpr int kTextId = 0xFFFF;
        constexpr int kButtons[] = {IDOK, IDCANCEL, IDYES, IDNO};
        wchar_t caption[100] = L"";
        wchar_t text[500] = L"";
        GetWindowTextW(box, caption, 100);
        GetDlgItemTextW(box, kTextId, text, 500);
        boxes_.push_back({text, caption, GetDlgCtrlID(GetFocus()) == IDNO});
        SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(kButtons[static_cast<size_t>(answers_.front())]),
                     0);
        answers_.pop_front();
    }

    HWND ticker_ = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    std::deque<testing_support::Step> steps_;
    std::deque<platform::MessageAnswer> answers_;
    std::vector<testing_support::SeenBox> boxes_;
};

}  // namespace contract
