#include <QApplication>
#include <QEventLoop>
#include <QMenu>
#include <QPalette>
#include <algorithm>
#include <utility>

#include "platform/Pixels.h"
#include "platform/qt/Application.h"
#include "platform/qt/ImageImpl.h"
#include "platform/qt/ScreenFrame.h"
#include "platform/qt/ScreenScale.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

namespace {

constexpr char kWindowProperty[] = "inkwright window";

ink::PixelSurface SurfaceOf(QImage& image) {
    return {reinterpret_cast<uint32_t*>(image.bits()), image.width(), image.height(), image.width()};
}

}  // namespace

void Window::Impl::Begin(Window& window, Window* below, std::unique_ptr<QWidget> newFrame, QWidget* newPage) {
    owned = std::move(newFrame);
    frame = owned ? owned.get() : newPage;
    page = newPage;
    owner = below;
    frame->setProperty(kWindowProperty, QVariant::fromValue(static_cast<void*>(&window)));
    deviceScale = qt::ScaleOf(*page);
    scale = below ? below->Handle()->scale : deviceScale;
    events = std::make_unique<qt::WindowEvents>(window);
}

// What is laid bare by a growing window has its background's colour until it is painted.
ink::PixelSurface Window::Impl::Shown() {
    const Rect size = scale.ToSurface({0, 0, page->width(), page->height()});
    if (shown.width() != size.right || shown.height() != size.bottom) {
        QImage larger(size.right, size.bottom, QImage::Format_RGB32);
        if (larger.isNull()) return {};
        larger.fill(page->palette().color(QPalette::Window));
        const ink::PixelSurface before = SurfaceOf(shown);
        CopyPixels(before, before.Bounds(), SurfaceOf(larger), {0, 0});
        shown = larger;
        shown.setDevicePixelRatio(scale.Length(1));
    }
    return SurfaceOf(shown);
}

// The toolkit takes "[*]" for the place of a mark of its own, unless it is doubled.
void Window::Impl::ShowTitle() {
    if (frame) frame->setWindowTitle(qt::ToQt(title).replace("[*]", "[*][*]"));
}

namespace {

// Soon to be seen on the screen.
void ShowSoon(const Window::Impl& state, const Rect& screenPixels) {
    if (!state.painting && !screenPixels.IsEmpty())
        state.page->update(qt::PagePixelsIn(screenPixels, state.scale));
}

// Copies what `image` has of `source` to the page's picture; all in screen pixels.
void CopyToPage(Window::Impl& state, const Image& image, const Rect& source, Point topLeft) {
    if (!state.page || !image.IsValid()) return;
    const ink::PixelSurface shown = state.Shown();
    const Rect area = CopyPixels(image.Surface(), source, shown, topLeft);
    for (int y = area.top; y < area.bottom; ++y) {
        uint32_t* row = shown.Row(y);
        for (int x = area.left; x < area.right; ++x) row[x] |= 0xFF000000u;
    }
    ShowSoon(state, area);
}

}  // namespace

Window::Window() : impl_(std::make_unique<Impl>()) {}
Window::~Window() = default;

bool Window::Exists() const { return impl_->frame != nullptr; }
ink::Scale Window::PageScale() const { return impl_->scale; }
int Window::ClientWidth() const { return impl_->page ? impl_->page->width() : 0; }
int Window::ClientHeight() const { return impl_->page ? impl_->page->height() : 0; }

void Window::SetTitle(const std::wstring& title) {
    if (!impl_->frame) return;
    impl_->title = title;
    impl_->ShowTitle();
}

std::wstring Window::Title() const { return impl_->frame ? impl_->title : std::wstring(); }

void Window::Invalidate() {
    if (!impl_->page) return;
    impl_->needsPaint = true;
    impl_->page->update();
}

void Window::ShowPixels(const Image& image, const Rect& source) {
    const Rect area = Intersect(source, image.Surface().Bounds());
    CopyToPage(*impl_, image, area, {area.left, area.top});
}

void Window::ShowAt(const Image& image, Point topLeft) {
    const Rect place = impl_->scale.ToSurface({topLeft.x, topLeft.y, topLeft.x, topLeft.y});
    CopyToPage(*impl_, image, image.Surface().Bounds(), {place.left, place.top});
}

void Window::ScrollPixels(int dy) {
    if (!impl_->page || dy == 0) return;
    MoveRows(impl_->Shown(), dy);
    impl_->page->update();
}

void Window::InvertPixels(const Rect& area) {
    if (!impl_->page) return;
    platform::InvertPixels(impl_->Shown(), area);
    ShowSoon(*impl_, area);
}

bool Window::StartTimer(int id, uint32_t periodMilliseconds) {
    if (!impl_->page) return false;
    auto timer = std::make_unique<QTimer>();
    timer->setInterval(static_cast<int>(std::min<uint32_t>(periodMilliseconds, INT32_MAX)));
    timer->callOnTimeout(impl_->page, [this, id] {
        if (!impl_->ended) Guarded(*this, [&] { OnTimer(id); });
    });
    timer->start();
    StopTimer(id);
    impl_->timers[id] = std::move(timer);
    return true;
}

// The timer may be the one that is being handled.
void Window::StopTimer(int id) {
    const auto timer = impl_->timers.find(id);
    if (timer == impl_->timers.end()) return;
    timer->second->stop();
    timer->second.release()->deleteLater();
    impl_->timers.erase(timer);
}

void Window::CapturePen() {
    if (impl_->events) impl_->events->CapturePen();
}
void Window::ReleasePen() { qt::LosePen(*this); }
bool Window::HasPen() const { return impl_->events && impl_->events->HasPen(); }
PenEnd Window::EndOfPen() const { return impl_->events ? impl_->events->EndOfPen() : PenEnd::Tip; }

size_t Window::PenSamples(Point* samples, size_t capacity) const {
    return impl_->events ? impl_->events->Samples(samples, capacity) : 0;
}

void Window::SetScroll(const ScrollState& state) {
    if (!impl_->hasScrollBar) return;
    impl_->scroll = state;
    impl_->scroll.page = std::clamp(state.page, 0, std::max(0, state.maximum - state.minimum + 1));
    SetScrollPosition(state.position);
}

ScrollState Window::GetScroll() const { return impl_->scroll; }

void Window::SetScrollPosition(int position) {
    if (!impl_->hasScrollBar || !impl_->screen) return;
    ScrollState& scroll = impl_->scroll;
    const int last = scroll.maximum - std::max(scroll.page - 1, 0);
    scroll.position = std::max(scroll.minimum, std::min(position, last));
    impl_->screen->ShowScroll(scroll);
}

void Window::PostCommand(int id) {
    if (!impl_->frame) return;
    QMetaObject::invokeMethod(
        impl_->frame, [this, id] { qt::DispatchCommand(*this, id); }, Qt::QueuedConnection);
}

void Window::PostScroll(ScrollCode code) {
    if (!impl_->frame) return;
    QMetaObject::invokeMethod(
        impl_->frame, [this, code] { qt::DispatchScroll(*this, code, 0); }, Qt::QueuedConnection);
}

void Window::SendPrivateMessage(uint32_t code, intptr_t payload) {
    qt::Application::The().Calls().Send([this, code, payload] {
        if (Exists()) Guarded(*this, [&] { OnPrivateMessage(code, payload); });
    });
}

void Window::PostPrivateMessage(uint32_t code, intptr_t payload) {
    QWidget* frame = impl_->frame;
    if (!frame) return;
    const auto tell = [this, code, payload] { Guarded(*this, [&] { OnPrivateMessage(code, payload); }); };
    QMetaObject::invokeMethod(frame, tell, Qt::QueuedConnection);
}

void Window::EndModal(int result) {
    impl_->ended = true;
    impl_->result = result;
    if (impl_->menu) impl_->menu->close();
    if (impl_->loop) impl_->loop->quit();
}

namespace qt {

Window* WindowOf(const QWidget* widget) {
    return widget ? static_cast<Window*>(widget->property(kWindowProperty).value<void*>()) : nullptr;
}

void DispatchCommand(Window& window, int id) {
    const Window::Impl& state = *window.Handle();
    // A page of a sheet has the sheet around it.
    const bool isCovered = state.owned && !Application::The().IsOnTop(window);
    if (!state.ended && !isCovered) Guarded(window, [&] { window.OnCommand(id); });
}

void DispatchScroll(Window& window, ScrollCode code, int position) {
    if (!window.Handle()->ended) Guarded(window, [&] { window.OnScroll(code, position); });
}

void ChangeScale(Window& window, ink::Scale scale) {
    Window::Impl& state = *window.Handle();
    if (!state.page || state.scale == scale) return;
    state.scale = scale;
    if (state.screen) state.screen->FollowLooks();
    window.Invalidate();
}

void LosePen(Window& window) {
    Window::Impl& state = *window.Handle();
    if (state.events && state.events->ReleasePen()) Guarded(window, [&] { window.OnCaptureLost(); });
}

void CloseWindow(Window& window) {
    Window::Impl& state = *window.Handle();
    if (!state.frame) return;
    if (state.sizing) Guarded(window, [&] { state.sizing->Remember(); });
    Guarded(window, [&] { window.OnDestroy(); });
    state.timers.clear();
    state.events.reset();
    state.items.clear();
    state.frame = state.page = state.control = nullptr;
    state.screen = nullptr;
    state.owned.reset();
    state.shown = QImage();
    state.ended = true;
}

}  // namespace qt

}  // namespace platform
