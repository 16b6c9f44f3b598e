#include "tests/contract/WindowsHand.h"

#include <cstring>

#include "platform/windows/SystemText.h"
#include "platform/windows/WindowImpl.h"
#include "tests/contract/WindowsInput.h"

namespace contract {

using platform::Point;
using platform::TreeItem;
using platform::Window;

namespace {

constexpr wchar_t kTickerClass[] = L"ContractTicker";
constexpr UINT kTickMilliseconds = 10;
constexpr DWORD kHoldMilliseconds = 1000;

// The uppermost window of this thread that takes input; of a property sheet the page that is shown.
BOOL CALLBACK FindTop(HWND handle, LPARAM found) {
    if (!IsWindowVisible(handle) || !IsWindowEnabled(handle)) return TRUE;
    Window* window = platform::windows::WindowOf(handle);
    for (HWND page = nullptr;
         !window && (page = FindWindowExW(handle, page, L"#32770", nullptr)) != nullptr;) {
        if (IsWindowVisible(page)) window = platform::windows::WindowOf(page);
    }
    *reinterpret_cast<Window**>(found) = window;
    return window == nullptr;
}

}  // namespace

WindowsHand::WindowsHand() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        auto* hand = reinterpret_cast<WindowsHand*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_TIMER && hand) hand->Tick();
        return DefWindowProcW(window, message, wParam, lParam);
    };
    windowClass.lpszClassName = kTickerClass;
    RegisterClassW(&windowClass);
    ticker_ = CreateWindowExW(0, kTickerClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(ticker_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetTimer(ticker_, 1, kTickMilliseconds, nullptr);
}

WindowsHand::~WindowsHand() { DestroyWindow(ticker_); }

void WindowsHand::Tick() {
    if (questions_.Answer()) return;
    if (heldUntil_ != 0) {
        if (GetTickCount64() < heldUntil_) return;
        SendMouse(heldPlace_, MOUSEEVENTF_LEFTUP);
        heldUntil_ = 0;
        return;
    }
    if (steps_.empty()) return;
    const testing_support::Step step = std::move(steps_.front());
    steps_.pop_front();
    step();
}

Window* WindowsHand::Top() {
    Window* top = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindTop, reinterpret_cast<LPARAM>(&top));
    return top;
}

HWND WindowsHand::Frame() { return platform::windows::FrameOf(Top()); }

// A sheet's own buttons are beside its page.
HWND WindowsHand::Item(int id) {
    const HWND own = GetDlgItem(Frame(), id);
    return own ? own : GetDlgItem(GetParent(Frame()), id);
}

void WindowsHand::SendPen(Point place, DWORD flags) {
    POINT desktop{place.x, place.y};
    ClientToScreen(Top()->Handle()->page, &desktop);
    SendMouse(desktop, flags);
}

// The program can't take a message while this step runs, so the system merges all moves into one.
void WindowsHand::PenMove(const std::vector<Point>& places) {
    for (const Point& place : places) SendPen(place, 0);
}

void WindowsHand::TakePenAway() {
    SetCapture(ticker_);
    ReleaseCapture();
}

void WindowsHand::PressButton(int id) {
    RECT place{};
    if (const HWND button = Item(id)) {
        GetWindowRect(button, &place);
        return Click({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    }
    SendMessageW(ToolBarControl(), TB_GETRECT, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&place));
    Click(MiddleOf(ToolBarControl(), place));
}

HWND WindowsHand::ToolBarControl() {
    const HWND strip = FindWindowExW(Frame(), nullptr, L"InkwrightMenuBar", nullptr);
    return FindWindowExW(strip, nullptr, TOOLBARCLASSNAMEW, nullptr);
}

testing_support::ToolState WindowsHand::Tool(int command) {
    const LRESULT state = SendMessageW(ToolBarControl(), TB_GETSTATE, static_cast<WPARAM>(command), 0);
    if (!ToolBarControl() || state == -1) return {};
    return {(state & TBSTATE_CHECKED) != 0, (state & TBSTATE_PRESSED) != 0, (state & TBSTATE_ENABLED) != 0};
}

void WindowsHand::PressKey(platform::Key key) { SendKey(KeyCode(key)); }
void WindowsHand::PressShortcut(wchar_t letter) { SendShortcut(static_cast<WORD>(letter)); }

void WindowsHand::TurnWheel(int notches) {
    SendPen({50, 50}, 0);
    SendWheel(notches * WHEEL_DELTA);
}

void WindowsHand::Scroll(platform::ScrollCode code, int position) {
    constexpr WORD kCodes[] = {SB_LINEUP,        SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN,
                               SB_THUMBPOSITION, SB_TOP,      SB_BOTTOM, SB_ENDSCROLL};
    const auto wParam = static_cast<WPARAM>(MAKELONG(kCodes[static_cast<size_t>(code)], position));
    PostMessageW(Frame(), WM_VSCROLL, wParam, 0);
}

uint32_t WindowsHand::PixelAt(Point place) {
    const HWND page = Top()->Handle()->page;
    const HDC dc = GetDC(page);
    const COLORREF color = GetPixel(dc, place.x, place.y);
    ReleaseDC(page, dc);
    return static_cast<uint32_t>(GetRValue(color)) << 16 | static_cast<uint32_t>(GetGValue(color)) << 8 |
           GetBValue(color);
}

void WindowsHand::TypeInto(int item, const std::wstring& text) {
    SendMessageW(Item(item), EM_SETSEL, 0, -1);
    SendMessageW(Item(item), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void WindowsHand::Choose(int item, int index) {
    const HWND list = Item(item);
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(Frame(), WM_COMMAND, MAKEWPARAM(item, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
}

void WindowsHand::Select(int item, size_t start, size_t end) {
    SendMessageW(Item(item), EM_SETSEL, start, static_cast<LPARAM>(end));
}

void WindowsHand::HoldEdit(int item) {
    RECT place{};
    GetWindowRect(Item(item), &place);
    HoldAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void WindowsHand::HoldAt(POINT desktop) {
    heldPlace_ = desktop;
    heldUntil_ = GetTickCount64() + kHoldMilliseconds;
    SendMouse(desktop, MOUSEEVENTF_LEFTDOWN);
}

void WindowsHand::DoubleTapDay(int item) {
    const HWND calendar = Item(item);
    SYSTEMTIME chosen{};
    SendMessageW(calendar, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&chosen));
    RECT area{};
    GetClientRect(calendar, &area);
    MCHITTESTINFO hit{};
    hit.cbSize = MCHITTESTINFO_V1_SIZE;
    const auto isChosen = [&] {
        SendMessageW(calendar, MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        return hit.uHit == MCHT_CALENDARDATE && hit.st.wDay == chosen.wDay;
    };
    while (hit.pt.y < area.bottom && !isChosen()) {
        hit.pt.x += 4;
        if (hit.pt.x >= area.right) hit.pt = {0, hit.pt.y + 4};
    }
    const POINT place = MiddleOf(calendar, {hit.pt.x, hit.pt.y, hit.pt.x, hit.pt.y});
    Click(place);
    Click(place);
}

// Trees.

HWND WindowsHand::Tree() { return FindWindowExW(Top()->Handle()->page, nullptr, WC_TREEVIEWW, nullptr); }

// The middle of the item's text, or the empty part of the tree below all items.
POINT WindowsHand::PlaceOf(TreeItem item) {
    RECT area{};
    if (item == 0) {
        GetClientRect(Tree(), &area);
        area.top = area.bottom - 4;
        return MiddleOf(Tree(), area);
    }
    static_assert(sizeof item <= sizeof area, "the control takes the item where it puts the rectangle");
    std::memcpy(&area, &item, sizeof item);
    SendMessageW(Tree(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area));
    return MiddleOf(Tree(), area);
}

void WindowsHand::TapTree(TreeItem item) { Click(PlaceOf(item)); }

void WindowsHand::DoubleTapTree(TreeItem item) {
    Click(PlaceOf(item));
    Click(PlaceOf(item));
}

void WindowsHand::HoldTree(TreeItem item) { HoldAt(PlaceOf(item)); }

void WindowsHand::RightClickTree(TreeItem item) {
    SendMouse(PlaceOf(item), MOUSEEVENTF_RIGHTDOWN);
    SendMouse(PlaceOf(item), MOUSEEVENTF_RIGHTUP);
}

void WindowsHand::CloseBranch(TreeItem item) {
    TVHITTESTINFO hit{};
    hit.pt = PlaceOf(item);
    ScreenToClient(Tree(), &hit.pt);
    do {
        --hit.pt.x;
        SendMessageW(Tree(), TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    } while (hit.pt.x > 0 && (hit.flags & TVHT_ONITEMBUTTON) == 0);
    Click(MiddleOf(Tree(), {hit.pt.x - 1, hit.pt.y, hit.pt.x - 1, hit.pt.y}));
}

std::optional<std::wstring> WindowsHand::EditedLabel() {
    if (!LabelEdit()) return std::nullopt;
    wchar_t text[256] = L"";
    GetWindowTextW(LabelEdit(), text, 256);
    return text;
}

void WindowsHand::EndEditing(const std::optional<std::wstring>& text) {
    if (text) SendMessageW(LabelEdit(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text->c_str()));
    SendKey(text ? VK_RETURN : VK_ESCAPE);
}

// Questions.

void WindowsHand::ChooseEntries(const testing_support::Texts& texts) {
    questions_.entries.assign(texts.begin(), texts.end());
    questions_.readMenu = [this](const auto& items, const std::wstring& wanted) {
        return ReadMenu(items, wanted);
    };
}

void WindowsHand::ChooseFolder(const std::wstring& folder) {
    questions_.folders.push_back(folder.empty() ? folder : deviceFolder + folder);
}

}  // namespace contract
