#include "platform/MessageBox.h"
#include "platform/windows/SystemDialog.h"

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

// 0 is a box that could not be shown: nobody answered it.
MessageAnswer AnswerOf(int systemAnswer) {
    if (systemAnswer == IDYES) return MessageAnswer::Yes;
    return systemAnswer == IDNO ? MessageAnswer::No : MessageAnswer::Cancel;
}

// Without an owner nothing else would bring the box in front of other programs' windows.
UINT PlacementFlags(HWND owner) { return owner ? MB_APPLMODAL : MB_SETFOREGROUND | MB_TOPMOST; }

}  // namespace

MessageAnswer ShowMessage(Window* owner, const std::wstring& text, const std::wstring& caption,
                          MessageButtons buttons, MessageIcon icon, DefaultButton defaultButton) {
    const HWND frame = windows::FrameOf(owner);
    const UINT focus = defaultButton == DefaultButton::Second ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
    const UINT flags = ButtonFlags(buttons) | IconFlag(icon) | focus | PlacementFlags(frame);
    const windows::SystemDialog running(owner,
                                        IDOK);  // no button asks for less than an answer that is not there
    return CountedAnswer(buttons, AnswerOf(MessageBoxW(frame, text.c_str(), caption.c_str(), flags)));
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
