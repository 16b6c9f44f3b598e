#include "platform/keeper/NoticeWindow.h"

#include <algorithm>

#include "platform/keeper/NoticePlace.h"
#include "platform/windows/Guards.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/WindowImpl.h"

namespace platform::windows {

namespace {

constexpr wchar_t kClass[] = L"InkwrightNotice";
constexpr wchar_t kPlacingName[] = L"Local\\InkwrightNoticePlacing";
constexpr DWORD kPlacingMilliseconds = 2000;
// Page pixels.
constexpr int kWidth = 300;  // of the client area
constexpr int kMargin = 14;
constexpr int kButtonWidth = 76;
constexpr int kButtonHeight = 24;
constexpr int kTextSize = 13;
constexpr int kTextId = 100;
constexpr int kDismissed = 1;
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExStyle = WS_EX_TOPMOST | WS_EX_APPWINDOW;
// Above and below the text.
constexpr int kAroundText = 3 * kMargin + kButtonHeight;

LRESULT CALLBACK NoticeProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) SendMessageW(handle, WM_CLOSE, 0, 0);
            return 0;
        case WM_CLOSE:
            PostQuitMessage(kDismissed);
            return 0;
        case WM_ENDSESSION:
            if (wParam) PostQuitMessage(0);
            return 0;
        case WM_SETFOCUS:
            SetFocus(GetDlgItem(handle, IDOK));
            return 0;
        case WM_CTLCOLORSTATIC:
            SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_BTNFACE));
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
        default:
            return DefWindowProcW(handle, message, wParam, lParam);
    }
}

void RegisterNotice() {
    RegisterWindowClass(kClass, NoticeProcedure, 0, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
}

// What a notice is made of, at the scale of the main monitor, where notices come up.
struct Looks {
    ink::Scale scale = ScaleAt(nullptr);
    OwnedFont font{CreateFontW(-static_cast<int>(scale.ToScreen(kTextSize)), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                               FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma")};
};

HWND AddControl(HWND parent, const wchar_t* kind, const std::wstring& text, DWORD style, const Rect& place,
                int id, const Looks& looks) {
    const RECT area = ToDesktop(place, looks.scale);
    const HWND control = CreateWindowExW(0, kind, text.c_str(), WS_CHILD | WS_VISIBLE | style, area.left,
                                         area.top, area.right - area.left, area.bottom - area.top, parent,
                                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                         GetModuleHandleW(nullptr), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(looks.font.get()), TRUE);
    return control;
}

std::wstring WithReturns(const std::wstring& text) {
    std::wstring lines;
    for (const wchar_t unit : text) lines += unit == L'\n' ? L"\r\n" : std::wstring(1, unit);
    return lines;
}

// Names that are longer than a line are broken, too, as in an edit.
int TextHeight(const std::wstring& text, const Looks& looks) {
    const ClientDc screen(nullptr);
    const Selection selected(screen.Get(), looks.font.get());
    RECT area = ToDesktop(Rect{0, 0, kWidth - 2 * kMargin, 0}, looks.scale);
    DrawTextW(screen.Get(), text.c_str(), -1, &area,
              DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX);
    return WholePagePixels(area.bottom, looks.scale);
}

Rect WorkArea() {
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    return {work.left, work.top, work.right, work.bottom};
}

// Adds the text, in an edit that scrolls when it is higher than `limit`, and returns the height it takes.
int AddText(HWND notice, const std::wstring& text, int limit, const Looks& looks) {
    const int height = TextHeight(text, looks);
    const Rect place{kMargin, kMargin, kWidth - kMargin, kMargin + std::min(height, limit)};
    if (height <= limit) {
        AddControl(notice, L"STATIC", text, SS_NOPREFIX | SS_EDITCONTROL, place, kTextId, looks);
    } else {
        constexpr DWORD kScrolling = ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL;
        AddControl(notice, L"EDIT", WithReturns(text), kScrolling, place, kTextId, looks);
    }
    return place.Height();
}

SIZE FrameFor(int textHeight, const Looks& looks) {
    RECT frame = ToDesktop(Rect{0, 0, kWidth, kAroundText + textHeight}, looks.scale);
    AdjustWindowRectEx(&frame, kStyle, FALSE, kExStyle);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

HWND MakeNotice(const std::wstring& title, const std::wstring& text, const Looks& looks) {
    const HWND notice = CreateWindowExW(kExStyle, kClass, title.c_str(), kStyle, 0, 0, kWidth, kAroundText,
                                        nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!notice) return nullptr;
    const auto room = static_cast<int>(looks.scale.ToPage(WorkArea().Height() - FrameFor(0, looks).cy));
    const int height = AddText(notice, text, std::max(kButtonHeight, room - 2 * kMargin), looks);
    const int left = (kWidth - kButtonWidth) / 2;
    const int top = 2 * kMargin + height;
    AddControl(notice, L"BUTTON", L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP,
               {left, top, left + kButtonWidth, top + kButtonHeight}, IDOK, looks);
    const SIZE frame = FrameFor(height, looks);
    SetWindowPos(notice, nullptr, 0, 0, frame.cx, frame.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return notice;
}

std::vector<Rect> OtherNotices() {
    std::vector<Rect> places;
    for (HWND other = nullptr; (other = FindWindowExW(nullptr, other, kClass, nullptr)) != nullptr;) {
        RECT place{};
        if (IsWindowVisible(other) && GetWindowRect(other, &place))
            places.push_back({place.left, place.top, place.right, place.bottom});
    }
    return places;
}

// One notice at a time looks for its place: each is a process of its own.
void ShowInPlace(HWND notice) {
    const OwnedHandle placing(CreateMutexW(nullptr, FALSE, kPlacingName));
    if (placing) WaitForSingleObject(placing.get(), kPlacingMilliseconds);
    RECT frame{};
    GetWindowRect(notice, &frame);
    const Point place =
        PlaceNotice(WorkArea(), frame.right - frame.left, frame.bottom - frame.top, OtherNotices());
    SetWindowPos(notice, HWND_TOPMOST, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    if (placing) ReleaseMutex(placing.get());
}

// Keys that mean the same wherever in the notice they are pressed.
bool TakeKey(HWND notice, const MSG& message) {
    struct {
        WPARAM key;
        UINT message;
        HWND target;
        WPARAM wParam;
    } const kKeys[] = {{VK_ESCAPE, WM_CLOSE, notice, 0},
                       {VK_RETURN, WM_CLOSE, notice, 0},
                       {VK_UP, EM_SCROLL, GetDlgItem(notice, kTextId), SB_LINEUP},
                       {VK_DOWN, EM_SCROLL, GetDlgItem(notice, kTextId), SB_LINEDOWN},
                       {VK_PRIOR, EM_SCROLL, GetDlgItem(notice, kTextId), SB_PAGEUP},
                       {VK_NEXT, EM_SCROLL, GetDlgItem(notice, kTextId), SB_PAGEDOWN}};
    if (message.message != WM_KEYDOWN) return false;
    for (const auto& each : kKeys) {
        if (each.key != message.wParam) continue;
        SendMessageW(each.target, each.message, each.wParam, 0);
        return true;
    }
    return false;
}

}  // namespace

bool ShowNotice(const std::wstring& title, const std::wstring& text) {
    RegisterNotice();
    const Looks looks;
    const HWND notice = MakeNotice(title, text, looks);
    if (!notice) return false;
    ShowInPlace(notice);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (TakeKey(notice, message) || IsDialogMessageW(notice, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    DestroyWindow(notice);
    return message.message == WM_QUIT && message.wParam == kDismissed;
}

}  // namespace platform::windows
