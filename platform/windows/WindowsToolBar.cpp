#include "platform/DarkBars.h"
#include "platform/Screen.h"
#include "platform/windows/ImageImpl.h"
#include "platform/windows/Looks.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/ToolBarImpl.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace {

// Page pixels.
constexpr int kSeparatorWidth = 6;
constexpr int kLeftMargin = 2;
constexpr int kTopMargin = 1;
constexpr int kPaddingAcross = 7;  // around images, what the control itself takes on small screens
constexpr int kPaddingAlong = 6;
constexpr int kBarEdges = 3;  // of the menu bar's rows, what the buttons leave
constexpr COLORREF kTransparent = RGB(192, 192, 192);

}  // namespace

bool ToolBar::Impl::Create(HWND menuBar, const ToolBarLayout& source, ink::Scale menuBarScale) {
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NOPARENTALIGN |
                             CCS_NORESIZE | CCS_NODIVIDER;
    bar = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"", kStyle, 0, 0, 0, 0, menuBar, nullptr, windows::Module(),
                          nullptr);
    if (!bar) return false;
    layout = source;
    scale = menuBarScale;
    RECT strip{};
    GetClientRect(menuBar, &strip);
    SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(bar, TB_SETMAXTEXTROWS, 0, 0);
    if (!Dress(strip.bottom) || !AddButtons()) {
        DestroyWindow(bar);
        return false;
    }
    Place({strip.right, strip.bottom}, menuBarScale);
    return true;
}

bool ToolBar::Impl::Dress(int menuBarHeight) {
    const Image picture = Images();
    const RECT image = windows::ToDesktop({0, 0, layout.imageWidth, layout.imageHeight}, picture.PageScale());
    const RECT button = windows::ToDesktop({0, 0, layout.imageWidth + kPaddingAcross, kBarEdges}, scale);
    const RECT padding = windows::ToDesktop({0, 0, kPaddingAcross, kPaddingAlong}, scale);
    SendMessageW(bar, TB_SETBITMAPSIZE, 0, MAKELPARAM(image.right, image.bottom));
    SendMessageW(bar, TB_SETPADDING, 0, MAKELPARAM(padding.right, padding.bottom));
    if (!picture.IsValid() || !UseImages(picture)) return false;
    SendMessageW(bar, TB_SETBUTTONSIZE, 0, MAKELPARAM(button.right, menuBarHeight - button.bottom));
    return true;
}

Image ToolBar::Impl::Images() const {
    Image picture = Image::FromResource(layout.bitmapId, scale);
    if (picture.IsValid() && windows::WantsDark()) LightenPictures(picture.Surface(), kTransparent);
    return picture;
}

void ToolBar::Impl::Follow(SIZE menuBar) { Dress(menuBar.cy); }

void ToolBar::Impl::Place(SIZE menuBar, ink::Scale menuBarScale) {
    if (menuBarScale != scale) {
        scale = menuBarScale;
        Dress(menuBar.cy);
    }
    const auto left = static_cast<int>(scale.ToScreen(kLeftMargin));
    const auto top = static_cast<int>(scale.ToScreen(kTopMargin));
    MoveWindow(bar, left, top, menuBar.cx - left, menuBar.cy - top, TRUE);
}

bool ToolBar::Impl::AddButtons() {
    std::vector<TBBUTTON> buttons;
    int image = 0;
    for (const ToolBarButton& source : layout.buttons) {
        TBBUTTON button{};
        button.idCommand = source.command;
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = source.command == 0 ? BTNS_SEP : BTNS_BUTTON;
        button.iBitmap = source.command == 0 ? static_cast<int>(scale.ToScreen(kSeparatorWidth)) : image++;
        buttons.push_back(button);
        // Not shown, but read out.
        button.iString = reinterpret_cast<INT_PTR>(source.title ? source.title : L"");
        if (source.command != 0 && source.title) toolTips.push_back({source.command, source.title});
    }
    return SendMessageW(bar, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data())) != 0;
}

bool ToolBar::Impl::UseImages(const Image& picture) {
    windows::OwnedImageList fresh =
        windows::MaskedImages(picture, layout.imageWidth, layout.imageHeight, kTransparent);
    if (!fresh) return false;
    SendMessageW(bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(fresh.get()));
    InvalidateRect(bar, nullptr, TRUE);
    images = std::move(fresh);  // the list shown before goes only now
    return true;
}

void ToolBar::Impl::GiveToolTip(NMHDR& request) const {
    if (request.code != TTN_GETDISPINFOW) return;
    auto& wanted = reinterpret_cast<NMTTDISPINFOW&>(request);
    for (const ToolTip& tip : toolTips) {
        if (static_cast<UINT_PTR>(tip.command) == request.idFrom)
            wanted.lpszText = const_cast<wchar_t*>(tip.text.c_str());
    }
}

// Only the one bit changes: the others belong to the control and to other callers.
void ToolBar::Impl::SetState(int command, BYTE bit, bool on) {
    const LRESULT state = SendMessageW(bar, TB_GETSTATE, static_cast<WPARAM>(command), 0);
    if (state == -1) return;
    const LRESULT changed = on ? state | bit : state & ~LRESULT{bit};
    SendMessageW(bar, TB_SETSTATE, static_cast<WPARAM>(command), MAKELPARAM(changed, 0));
}

ToolBar::ToolBar() = default;
ToolBar::~ToolBar() = default;

Image ToolBar::Images() const { return impl_ ? impl_->Images() : Image(); }

void ToolBar::SetImages(const Image& images) {
    if (impl_ && images.IsValid()) impl_->UseImages(images);
}
void ToolBar::SetChecked(int command, bool checked) {
    if (impl_) impl_->SetState(command, TBSTATE_CHECKED, checked);
}
void ToolBar::SetPressed(int command, bool pressed) {
    if (impl_) impl_->SetState(command, TBSTATE_PRESSED, pressed);
}
void ToolBar::SetEnabled(int command, bool enabled) {
    if (impl_) impl_->SetState(command, TBSTATE_ENABLED, enabled);
}
}  // namespace platform
