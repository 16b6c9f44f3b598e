#include "platform/windows/NoticeWindow.h"

#include "platform/windows/Guards.h"

namespace platform::windows {

namespace {

constexpr wchar_t kClass[] = L"InkwrightNotice";
constexpr int kWidth = 300;        // of the client area, pixels
constexpr int kProgramIcon = 128;  // the id every program here gives its own icon
constexpr int kMargin = 14;
constexpr int kButtonWidth = 76;
constexpr int kButtonHeight = 24;

LRESULT CALLBACK NoticeProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) DestroyWindow(handle);
    if (message == WM_MOUSEACTIVATE) return MA_NOACTIVATE;
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(handle, message, wParam, lParam);
}

int TextHeight(HDC dc, const std::wstring& text) {
    RECT area{0, 0, kWidth - 2 * kMargin, 0};
    DrawTextW(dc, text.c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    return area.bottom;
}

HWND AddControl(HWND parent, const wchar_t* kind, const std::wstring& text, DWORD style, const RECT& place,
                int id, HFONT font) {
    const HWND control = CreateWindowExW(0, kind, text.c_str(), WS_CHILD | WS_VISIBLE | style, place.left,
                                         place.top, place.right - place.left, place.bottom - place.top,
                                         parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                         GetModuleHandleW(nullptr), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    return control;
}

// At the lower right of the work area, where it covers least.
HWND CreateNotice(const std::wstring& title, int clientHeight) {
    constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    constexpr DWORD kExStyle = WS_EX_TOPMOST | WS_EX_NOACTIVATE;
    RECT frame{0, 0, kWidth, clientHeight};
    AdjustWindowRectEx(&frame, kStyle, FALSE, kExStyle);
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const LONG width = frame.right - frame.left;
    const LONG height = frame.bottom - frame.top;
    return CreateWindowExW(kExStyle, kClass, title.c_str(), kStyle, work.right - width - kMargin,
                           work.bottom - height - kMargin, width, height, nullptr, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

}  // namespace

void ShowNotice(const std::wstring& title, const std::wstring& text) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = NoticeProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(kProgramIcon));
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);

    const OwnedFont font(
        CreateFontW(-13, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma"));
    int textHeight = 0;
    {
        const ClientDc screen(nullptr);
        const Selection selected(screen.Get(), font.get());
        textHeight = TextHeight(screen.Get(), text);
    }
    const int buttonTop = 2 * kMargin + textHeight;
    const HWND notice = CreateNotice(title, buttonTop + kButtonHeight + kMargin);
    if (!notice) return;
    AddControl(notice, L"STATIC", text, SS_NOPREFIX,
               {kMargin, kMargin, kWidth - kMargin, kMargin + textHeight}, -1, font.get());
    const int buttonLeft = (kWidth - kButtonWidth) / 2;
    AddControl(notice, L"BUTTON", L"OK", BS_DEFPUSHBUTTON,
               {buttonLeft, buttonTop, buttonLeft + kButtonWidth, buttonTop + kButtonHeight}, IDOK,
               font.get());
    ShowWindow(notice, SW_SHOWNOACTIVATE);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace platform::windows
