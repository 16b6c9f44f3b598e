#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/windows/Guards.h"
#include "platform/windows/ImageImpl.h"
#include "platform/windows/PointerTrail.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

using windows::ClientDc;
using windows::OwnedRegion;

namespace {

RECT SystemRect(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

WORD SystemScrollCode(ScrollCode code) {
    switch (code) {
        case ScrollCode::LineUp:
            return SB_LINEUP;
        case ScrollCode::LineDown:
            return SB_LINEDOWN;
        case ScrollCode::PageUp:
            return SB_PAGEUP;
        case ScrollCode::PageDown:
            return SB_PAGEDOWN;
        case ScrollCode::ThumbPosition:
            return SB_THUMBPOSITION;
        case ScrollCode::Top:
            return SB_TOP;
        case ScrollCode::Bottom:
            return SB_BOTTOM;
        case ScrollCode::Other:
            break;
    }
    return SB_ENDSCROLL;
}

// What was waiting to be painted moves along with the pixels it stands for.
void ShiftPendingPaint(HWND window, int dy) {
    const OwnedRegion pending(CreateRectRgn(0, 0, 0, 0));
    if (!pending || GetUpdateRgn(window, pending.get(), FALSE) <= NULLREGION) return;
    OffsetRgn(pending.get(), 0, dy);
    InvalidateRgn(window, pending.get(), FALSE);
}

// Copies the pixels of `image` from `source` on to `area` of the page.
void CopyToPage(const Window::Impl& state, const Image& image, const Rect& area, Point source) {
    const auto copy = [&](HDC to) {
        BitBlt(to, area.left, area.top, area.Width(), area.Height(), image.Handle()->dc.get(), source.x,
               source.y, SRCCOPY);
        // The caller goes on to change the pixels; a batched copy would pick the changes up.
        GdiFlush();
    };
    if (state.paintDc) {
        copy(state.paintDc);
    } else {
        copy(ClientDc(state.page).Get());
    }
}

}  // namespace

Window::Window() : impl_(std::make_unique<Impl>()) {}

Window::~Window() {
    // Every kind ends its window inside RunModal; a message that comes later must not find this object.
    if (impl_->page) windows::Attach(impl_->page, nullptr);
    if (impl_->frame) windows::Attach(impl_->frame, nullptr);
}

bool Window::Exists() const { return impl_->frame != nullptr; }

ink::Scale Window::PageScale() const { return impl_->scale; }

int Window::ClientWidth() const {
    RECT client{};
    if (impl_->page) GetClientRect(impl_->page, &client);
    return windows::WholePagePixels(client.right, impl_->scale);
}

int Window::ClientHeight() const {
    RECT client{};
    if (impl_->page) GetClientRect(impl_->page, &client);
    return windows::WholePagePixels(client.bottom, impl_->scale);
}

void Window::SetTitle(const std::wstring& title) {
    if (impl_->frame) SetWindowTextW(impl_->frame, title.c_str());
}

std::wstring Window::Title() const {
    if (!impl_->frame) return {};
    std::vector<wchar_t> text(static_cast<size_t>(GetWindowTextLengthW(impl_->frame)) + 1);
    const int length = GetWindowTextW(impl_->frame, text.data(), static_cast<int>(text.size()));
    return std::wstring(text.data(), static_cast<size_t>(length));
}

void Window::Invalidate() {
    if (impl_->page) InvalidateRect(impl_->page, nullptr, FALSE);
}

// Where a scale is no whole number, a picture may take a row or column more than its own place has: then the
// one at its edge is shown twice.
void Window::ShowAt(const Image& image, Point topLeft) {
    if (!impl_->page || !image.IsValid()) return;
    const Rect room =
        PageScale().ToSurface({topLeft.x, topLeft.y, topLeft.x + image.Width(), topLeft.y + image.Height()});
    const SIZE size = image.Handle()->size;
    const int across = std::clamp<int>(room.Width() - size.cx, 0, 1);
    const int along = std::clamp<int>(room.Height() - size.cy, 0, 1);
    for (int dy = along; dy >= 0; --dy) {
        for (int dx = across; dx >= 0; --dx) {
            const Rect place{room.left + dx, room.top + dy, room.left + dx + size.cx,
                             room.top + dy + size.cy};
            CopyToPage(*impl_, image, place, {0, 0});
        }
    }
}

void Window::ShowPixels(const Image& image, const Rect& source) {
    if (!impl_->page || !image.IsValid()) return;
    const Rect area = ink::Intersect(source, image.Surface().Bounds());
    if (area.IsEmpty()) return;
    CopyToPage(*impl_, image, area, {area.left, area.top});
}

void Window::ScrollPixels(int dy) {
    if (!impl_->page || dy == 0) return;
    RECT client{};
    GetClientRect(impl_->page, &client);
    ShiftPendingPaint(impl_->page, dy);
    const OwnedRegion uncovered(CreateRectRgn(0, 0, 0, 0));
    const ClientDc dc(impl_->page);
    ScrollDC(dc.Get(), 0, dy, &client, &client, uncovered.get(), nullptr);
    if (!uncovered) return;
    // The strip that scrolled in is the caller's; what lay under another window is not there to be moved.
    const LONG rows = std::abs(dy) < client.bottom ? std::abs(dy) : client.bottom;
    const OwnedRegion strip(dy > 0 ? CreateRectRgn(0, 0, client.right, rows)
                                   : CreateRectRgn(0, client.bottom - rows, client.right, client.bottom));
    if (strip && CombineRgn(uncovered.get(), uncovered.get(), strip.get(), RGN_DIFF) > NULLREGION) {
        InvalidateRgn(impl_->page, uncovered.get(), FALSE);
    }
}

void Window::InvertPixels(const Rect& area) {
    if (!impl_->page || area.IsEmpty()) return;
    const RECT rect = SystemRect(area);
    if (impl_->paintDc) {
        InvertRect(impl_->paintDc, &rect);
    } else {
        InvertRect(ClientDc(impl_->page).Get(), &rect);
    }
}

bool Window::StartTimer(int id, uint32_t periodMilliseconds) {
    return impl_->page && SetTimer(impl_->page, static_cast<UINT_PTR>(id), periodMilliseconds, nullptr) != 0;
}

void Window::StopTimer(int id) {
    if (impl_->page) KillTimer(impl_->page, static_cast<UINT_PTR>(id));
}

void Window::CapturePen() {
    if (!impl_->page) return;
    // A pen that touches belongs to the window it touches; only the mouse has to be caught.
    if (!impl_->HasPenContact()) SetCapture(impl_->page);
    impl_->holdsPen = true;
}

void Window::ReleasePen() {
    if (!impl_->holdsPen) return;
    if (!impl_->holdsPointer && !impl_->HasPenContact()) {
        ReleaseCapture();  // sends the change of capture at once
        return;
    }
    impl_->holdsPen = false;
    OnCaptureLost();
}

bool Window::HasPen() const {
    return impl_->holdsPen && (impl_->HasPenContact() || GetCapture() == impl_->page);
}

PenEnd Window::EndOfPen() const { return impl_->pointers ? impl_->pointers->End() : PenEnd::Tip; }

size_t Window::PenSamples(Point* samples, size_t capacity) const {
    if (impl_->HasPenContact()) return impl_->pointers->Samples(samples, capacity);
    if (!impl_->page) return 0;
    const size_t count = impl_->pen.Samples(windows::ClientOrigin(impl_->page), samples, capacity);
    std::transform(samples, samples + count, samples,
                   [this](const Point& place) { return impl_->scale.ToView(place); });
    return count;
}

void Window::SetScroll(const ScrollState& state) {
    if (!impl_->page || !impl_->hasScrollBar) return;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMin = state.minimum;
    info.nMax = state.maximum;
    info.nPage = state.page < 0 ? 0 : static_cast<UINT>(state.page);
    info.nPos = state.position;
    SetScrollInfo(impl_->page, SB_VERT, &info, TRUE);
}

ScrollState Window::GetScroll() const {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    if (!impl_->page || !impl_->hasScrollBar || !GetScrollInfo(impl_->page, SB_VERT, &info)) return {};
    return {info.nMin, info.nMax, static_cast<int>(info.nPage), info.nPos};
}

void Window::SetScrollPosition(int position) {
    if (!impl_->page || !impl_->hasScrollBar) return;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS | SIF_DISABLENOSCROLL;
    info.nPos = position;
    SetScrollInfo(impl_->page, SB_VERT, &info, TRUE);
}

void Window::PostCommand(int id) {
    if (impl_->frame) PostMessageW(impl_->frame, WM_COMMAND, static_cast<WPARAM>(id) & 0xFFFF, 0);
}

void Window::PostScroll(ScrollCode code) {
    if (impl_->page) PostMessageW(impl_->page, WM_VSCROLL, SystemScrollCode(code), 0);
}

void Window::SendPrivateMessage(uint32_t code, intptr_t payload) {
    if (const HWND frame = impl_->frame) SendMessageW(frame, kPrivateMessage, code, payload);
}

void Window::PostPrivateMessage(uint32_t code, intptr_t payload) {
    if (const HWND frame = impl_->frame) PostMessageW(frame, kPrivateMessage, code, payload);
}

void Window::EndModal(int result) {
    impl_->ended = true;
    impl_->result = result;
    if (impl_->hasMenu) EndMenu();
    // A handler may run inside a message that another process sent, which does not wake the modal loop.
    if (impl_->frame) PostMessageW(impl_->frame, WM_NULL, 0, 0);
}

namespace windows {

HINSTANCE Module() { return GetModuleHandleW(nullptr); }

Window* WindowOf(HWND handle) { return reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA)); }

void Attach(HWND handle, Window* window) {
    SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(window));
}

HWND FrameOf(const Window* window) { return window ? window->Handle()->frame : nullptr; }

bool RegisterWindowClass(const wchar_t* name, WNDPROC procedure, UINT style, HBRUSH background) {
    WNDCLASSEXW known{};
    known.cbSize = sizeof known;
    if (GetClassInfoExW(Module(), name, &known)) return true;
    WNDCLASSEXW fresh{};
    fresh.cbSize = sizeof fresh;
    fresh.style = style;
    fresh.lpfnWndProc = procedure;
    fresh.hInstance = Module();
    fresh.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    fresh.hIcon = LoadIconW(Module(), MAKEINTRESOURCEW(kProgramIcon));
    fresh.hbrBackground = background;
    fresh.lpszClassName = name;
    return RegisterClassExW(&fresh) != 0;
}

}  // namespace windows

}  // namespace platform
