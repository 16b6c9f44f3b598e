#include <utility>

#include "platform/Screen.h"
#include "platform/qt/HandheldPlace.h"
#include "platform/qt/MenuBar.h"
#include "platform/qt/ModalRun.h"
#include "platform/qt/ScreenFrame.h"
#include "platform/qt/Text.h"
#include "platform/qt/ToolBarImpl.h"

namespace platform {

namespace {

using qt::ScreenFrame;

void PlaceFixed(ScreenFrame& frame) {
    const ScreenSize size = HandheldScreen();
    frame.setFixedSize(size.width, size.height - kBarHeight);
    const QWidget* below = frame.parentWidget();
    frame.move(below ? below->pos() : qt::CentredPlace(frame.size()));
}

void PlaceSized(Window::Impl& state, const std::wstring& kind) {
    ScreenFrame& frame = *state.screen;
    frame.setMinimumSize(qt::kLeastWidth, qt::kLeastHeight);
    state.sizing = std::make_unique<qt::SizedFrame>(kind);
    const Window* owner = state.owner;
    const qt::SizedFrame* below = owner ? owner->Handle()->sizing.get() : nullptr;
    const WindowPlace place = state.sizing->PlaceToOpen(below);
    frame.resize(place.frame.Width(), place.frame.Height());
    frame.move(place.frame.left, place.frame.top);
    state.opensMaximised = place.isMaximised;
    state.opensFullScreen = below && below->IsFullScreen();
    if (state.opensFullScreen) state.sizing->BeginFullScreen();
}

}  // namespace

Screen::Screen(ScrollBar scrollBar, std::wstring kind) : scrollBar_(scrollBar), kind_(std::move(kind)) {}
Screen::~Screen() = default;

int Screen::RunModal(Window* owner) {
    if (Exists()) return -1;
    *impl_ = Impl();
    const bool withScrollBar = scrollBar_ == ScrollBar::Vertical;
    auto made = std::make_unique<ScreenFrame>(qt::FrameOf(owner), *this, withScrollBar);
    ScreenFrame* frame = made.get();
    impl_->Begin(*this, owner, std::move(made), frame->Page());
    impl_->screen = frame;
    impl_->hasScrollBar = withScrollBar;
    if (owner) frame->setWindowModality(Qt::ApplicationModal);
    qt::HasFixedScreen() ? PlaceFixed(*frame) : PlaceSized(*impl_, kind_);
    frame->LayOut();
    if (withScrollBar) {
        impl_->events->TakePens();  // it is written on
        frame->ShowScroll({});
    }
    const int result = qt::OpenAndRun(*this);
    tools_.Handle().reset();
    return result;
}

bool Screen::CanBeSized() const { return impl_->sizing != nullptr; }

void Screen::NameClient(const std::wstring& name) {
    if (impl_->page) impl_->page->setAccessibleName(qt::ToQt(name));
}

void Screen::ToggleFullScreen() {
    if (impl_->sizing && impl_->frame) impl_->sizing->ToggleFullScreen(*impl_->frame);
}

void Screen::AddToFrameMenu(int command, const std::wstring& text) {
    if (!impl_->screen) return;
    impl_->frameMenu.push_back({command, text, true, nullptr});
    impl_->screen->Strip().ShowMenuButton();
}

bool Screen::CreateMenuBar(const ToolBarLayout& layout) {
    if (!impl_->screen || !impl_->screen->Strip().AddButtons(layout)) return false;
    tools_.Handle() = std::make_unique<ToolBar::Impl>(impl_->screen->Strip());
    return true;
}

}  // namespace platform
