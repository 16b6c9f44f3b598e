#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "ink/Geometry.h"
#include "ink/Scale.h"
#include "platform/Image.h"
#include "platform/PenTranslator.h"

namespace platform {

using ink::Point;
using ink::Rect;

constexpr int kIdOk = 1;
constexpr int kIdCancel = 2;

// Other stands for requests that move nothing by themselves: a thumb under way, the end of a request.
enum class ScrollCode { LineUp, LineDown, PageUp, PageDown, ThumbPosition, Top, Bottom, Other };
enum class Key {
    Left,
    Up,
    Right,
    Down,
    PageUp,
    PageDown,
    Home,
    End,
    Enter,
    Escape,
    Delete,
    F2,
    F1,
    F11,
    Other
};

struct ScrollState {
    int minimum = 0;
    int maximum = 0;
    int page = 0;
    int position = 0;
};

// Base of every window of the program: the operations that windows need and one virtual function for each
// event. Sizes and positions are page pixels of the client area unless a name says otherwise; the screen
// shows each as PageScale() screen pixels. A window is created by its kind (Screen, Dialog, Popup) and
// destroyed before its object; operations on a window that does not exist do nothing.
class Window {
  public:
    Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    bool Exists() const;
    ink::Scale PageScale() const;
    // What is seen of a last column or row counts as a whole one.
    int ClientWidth() const;
    int ClientHeight() const;

    void SetTitle(const std::wstring& title);
    std::wstring Title() const;

    // Asks for OnPaint of the whole client area (nothing is erased first).
    void Invalidate();
    // Copies the whole image to `topLeft` of the client area, at once or within OnPaint.
    void ShowAt(const Image& image, Point topLeft);
    // These are told in screen pixels.
    // Copies `source` of the image to the same place of the client area, at once or within OnPaint.
    void ShowPixels(const Image& image, const Rect& source);
    // Moves what the client area shows by `dy` rows (down when positive); the uncovered rows keep what
    // they showed and are the caller's to draw. Rows that another window covered are invalidated.
    void ScrollPixels(int dy);
    // Inverts the pixels of `area` on the screen, at once or within OnPaint.
    void InvertPixels(const Rect& area);

    bool StartTimer(int id, uint32_t periodMilliseconds);
    void StopTimer(int id);

    // Pen capture: all pen events come here until released or taken away. OnCaptureLost tells of either, a
    // release included, before ReleasePen returns.
    void CapturePen();
    void ReleasePen();
    bool HasPen() const;
    // Within OnPenMove and OnPenUp: the pen positions between the previous pen event and this one, oldest
    // first, this event's own position not included. At most `capacity`; returns how many.
    size_t PenSamples(Point* samples, size_t capacity) const;
    // From OnPenDown to OnPenUp: which end of the pen touches. A mouse has only a tip.
    PenEnd EndOfPen() const;

    // Vertical scroll bar: always visible on a Screen that asked for one, disabled when nothing scrolls.
    void SetScroll(const ScrollState& state);
    ScrollState GetScroll() const;
    void SetScrollPosition(int position);

    // Handled after the events that already wait.
    void PostCommand(int id);
    void PostScroll(ScrollCode code);

    // OnPrivateMessage of this window in the thread that made it; these two may be called from any thread.
    // The first returns when it was handled, the second at once. Without effect once the window is gone.
    void SendPrivateMessage(uint32_t code, intptr_t payload);
    void PostPrivateMessage(uint32_t code, intptr_t payload);

    // Ends the modal run of this window with `result`, and the menu that is open over it. From then on no
    // pen, key, timer, scroll request or command reaches it.
    void EndModal(int result);

    // For the ports.
    struct Impl;
    Impl* Handle() const { return impl_.get(); }

    // Events. Ports call them; one handler for each message.
    virtual bool OnCreate() { return true; }  // false: the window does not open; EndModal tells the result
    virtual void OnDestroy() {}
    virtual void OnPaint() {}  // draw with Show
    virtual void OnPenDown(Point) {}
    virtual void OnPenMove(Point) {}
    virtual void OnPenUp(Point) {}
    virtual void OnCaptureLost() {}
    // A pen comes near without touching, or moves there; then it leaves. A pen that touches has left.
    virtual void OnPenHover(Point, PenEnd) {}
    virtual void OnPenLeave() {}
    // Fingers on a window with a scroll bar: what it shows is to follow by `rows` (down when positive); two
    // of them have tapped.
    virtual void OnPan(int /*rows*/) {}
    virtual void OnTwoFingerTap() {}
    virtual void OnTimer(int) {}
    // The scroll bar, and on windows that have one the mouse wheel: for each notch as many lines as the
    // system is set to, or a page.
    virtual void OnScroll(ScrollCode, int /*thumb position*/) {}
    virtual bool OnKeyDown(Key) { return false; }  // false: default handling
    // Ctrl and a letter, 'A' to 'Z', with Shift 'a' to 'z', wherever in the window the keyboard is except in
    // text that is being edited.
    virtual bool OnShortcut(wchar_t) { return false; }  // false: default handling
    virtual void OnCommand(int) {}
    virtual void OnControlChanged(int) {}  // a control's content was changed by the user
    // Message 6034 (WM_USER + 5010) from a worker of ours, with any code but kTakeOver.
    virtual void OnPrivateMessage(uint32_t, intptr_t) {}
    // Another copy of the program starts and takes this one's place: the window is to end. Once it has, the
    // one that it was opened over is told as well, and so the whole copy ends. It may stay to lose nothing.
    virtual void OnTakeOver() {}
    // The user's session ends: what is to be kept is saved at once and without any question, for there is no
    // later. Every open window is told, whatever lies open over it.
    virtual void OnSessionEnd() { EndModal(kIdCancel); }

  protected:
    std::unique_ptr<Impl> impl_;
};

// Message number of OnPrivateMessage and OnTakeOver, and the code that means the latter.
constexpr uint32_t kPrivateMessage = 0x0400 + 5010;
constexpr uint32_t kTakeOver = 1;

}  // namespace platform
