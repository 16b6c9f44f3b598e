#include "platform/host/HostWindow.h"

#include <algorithm>

#include "platform/Pixels.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostImage.h"

namespace platform {

using host::HostDevice;

bool Window::Impl::Open(int width, int height) {
    shown = Image::Make(width, height, HostDevice::Current().desk.scale);
    exists = shown.IsValid();
    return exists;
}

Window::Window() : impl_(std::make_unique<Impl>()) {}
Window::~Window() = default;

bool Window::Exists() const { return impl_->exists; }
ink::Scale Window::PageScale() const {
    return Exists() ? impl_->shown.PageScale() : HostDevice::Current().desk.scale;
}
int Window::ClientWidth() const { return impl_->shown.Width(); }
int Window::ClientHeight() const { return impl_->shown.Height(); }
void Window::SetTitle(const std::wstring& title) { impl_->title = title; }
std::wstring Window::Title() const { return impl_->title; }
void Window::Invalidate() { impl_->needsPaint = true; }

void Window::ShowPixels(const Image& image, const Rect& source) {
    if (Exists()) host::CopyPicture(image, source, impl_->shown, {source.left, source.top});
}

void Window::ShowAt(const Image& image, Point topLeft) {
    const Rect place = PageScale().ToSurface({topLeft.x, topLeft.y, topLeft.x, topLeft.y});
    if (Exists()) host::CopyPicture(image, image.Surface().Bounds(), impl_->shown, {place.left, place.top});
}

void Window::ScrollPixels(int dy) {
    if (Exists()) MoveRows(impl_->shown.Surface(), dy);
}

void Window::InvertPixels(const Rect& area) { platform::InvertPixels(impl_->shown.Surface(), area); }

bool Window::StartTimer(int id, uint32_t period) {
    if (!Exists()) return false;
    impl_->timers[id] = {period, HostDevice::Current().ticks + period};
    return true;
}

void Window::StopTimer(int id) { impl_->timers.erase(id); }

void Window::CapturePen() { impl_->hasPen = Exists(); }

void Window::ReleasePen() {
    if (!impl_->hasPen) return;
    impl_->hasPen = false;
    OnCaptureLost();
}

bool Window::HasPen() const { return impl_->hasPen; }

PenEnd Window::EndOfPen() const { return host::HostDevice::Current().desk.penEnd; }

size_t Window::PenSamples(Point* samples, size_t capacity) const {
    const size_t count = std::min(capacity, impl_->samples.size());
    std::copy_n(impl_->samples.begin(), count, samples);
    return count;
}

void Window::SetScroll(const ScrollState& state) {
    impl_->scroll = state;
    impl_->scroll.page = std::clamp(state.page, 0, state.maximum - state.minimum + 1);
    SetScrollPosition(state.position);
}

ScrollState Window::GetScroll() const { return impl_->scroll; }

void Window::SetScrollPosition(int position) {
    ScrollState& scroll = impl_->scroll;
    const int last = scroll.maximum - std::max(scroll.page - 1, 0);
    scroll.position = std::max(scroll.minimum, std::min(position, last));
}

void Window::PostCommand(int id) {
    HostDevice::Current().desk.Post(this, [this, id] {
        if (!impl_->ended) OnCommand(id);
    });
}

void Window::PostScroll(ScrollCode code) {
    HostDevice::Current().desk.Post(this, [this, code] {
        if (!impl_->ended) OnScroll(code, 0);
    });
}

void Window::SendPrivateMessage(uint32_t code, intptr_t payload) {
    if (Exists()) OnPrivateMessage(code, payload);
}

void Window::PostPrivateMessage(uint32_t code, intptr_t payload) {
    if (!Exists()) return;
    HostDevice::Current().desk.Post(this, [this, code, payload] { OnPrivateMessage(code, payload); });
}

void Window::EndModal(int result) {
    impl_->ended = true;
    impl_->result = result;
}

}  // namespace platform
