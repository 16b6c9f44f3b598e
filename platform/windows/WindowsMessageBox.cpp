#include "platform/MessageBox.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace {

UINT ButtonFlags(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok:
            return MB_OK;
        case MessageButtons::YesNo:
            return MB_YESNO;
        case MessageButtons::YesNoCancel:
            return MB_YESNOCANCEL;
    }
    return MB_OK;
}

UINT IconFlag(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Error:
            return MB_ICONHAND;
        case MessageIcon::Question:
            return MB_ICONEXCLAMATION;
        case MessageIcon::Information:
            return MB_ICONINFORMATION;
    }
    return 0;
}

// A box that could not be shown was answered by nobody: take what changes least.
MessageAnswer AnswerWithoutBox(MessageButtons buttons) {
    if (buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Cancel;
}

// Without an owner nothing else would bring the box in front of other programs' windows.
UINT PlacementFlags(HWND owner) { return owner ? MB_APPLMODAL : MB_SETFOREGROUND | MB_TOPMOST; }

}  // namespace

MessageAnswer ShowMessage(Window* owner, const std::wstring& text, const std::wstring& caption,
                          MessageButtons buttons, MessageIcon icon, DefaultButton defaultButton) {
    const HWND frame = windows::FrameOf(owner);
    const UINT focus = defaultButton == DefaultButton::Second ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
    const UINT flags = ButtonFlags(buttons) | IconFlag(icon) | focus | PlacementFlags(frame);
    switch (MessageBoxW(frame, text.c_str(), caption.c_str(), flags)) {
        case IDOK:
            return MessageAnswer::Ok;
        case IDYES:
            return MessageAnswer::Yes;
        case IDNO:
            return MessageAnswer::No;
        case IDCANCEL:
            return MessageAnswer::Cancel;
        default:
            return AnswerWithoutBox(buttons);
    }
}

void ShowOutOfMemory(Window* owner) {
    const HWND frame = windows::FrameOf(owner);
    MessageBoxW(
        frame,
        L"There is not enough memory to do this. Close other programs or delete files, then try again.",
        L" Inkwright", MB_OK | MB_ICONHAND | PlacementFlags(frame));
}

WaitCursor::WaitCursor() : before_(SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT)))) {}

WaitCursor::~WaitCursor() { SetCursor(static_cast<HCURSOR>(before_)); }

}  // namespace platform
