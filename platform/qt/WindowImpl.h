#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <map>
#include <memory>
#include <new>
#include <vector>

#include "platform/Guarded.h"
#include "platform/MessageBox.h"
#include "platform/PopupMenu.h"
#include "platform/Window.h"
#include "platform/qt/SizedFrame.h"
#include "platform/qt/WindowEvents.h"

class QEventLoop;
class QMenu;

namespace platform {

namespace qt {
class ScreenFrame;
}

// What stands behind a window object. All pointers are null while the window does not exist.
struct Window::Impl {
    std::unique_ptr<QWidget> owned;  // the frame, unless it is a page of a sheet, which owns that
    QWidget* frame = nullptr;        // the top-level window, or that page
    QWidget* page = nullptr;     // the part that is painted and written on: the frame itself, or a Screen's
    QWidget* control = nullptr;  // a child of the page that gets the keyboard when the window opens
    qt::ScreenFrame* screen = nullptr;  // the frame of a Screen
    Window* owner = nullptr;            // that this one was opened over
    std::unique_ptr<qt::WindowEvents> events;
    std::unique_ptr<qt::SizedFrame> sizing;  // of a frame that can be sized
    QEventLoop* loop = nullptr;              // of its modal run

    ink::Scale scale;        // that the window goes by
    ink::Scale deviceScale;  // that its monitor had when that was last looked at
    QImage shown;            // what the page shows, in screen pixels with fourth bytes of 0xFF
    bool needsPaint = true;
    bool painting = false;
    std::wstring title;
    std::map<int, std::unique_ptr<QTimer>> timers;
    std::map<int, QWidget*> items;  // of a dialog, by id

    bool hasScrollBar = false;
    ScrollState scroll;
    std::vector<PopupMenu::Item> frameMenu;
    QMenu* menu = nullptr;  // that is open over it

    bool hasOwnFocus = true;  // there are no controls to get the keyboard
    bool focusPlaced = false;
    bool placed = false;
    bool fillingControls = false;  // changes that the program makes are no news to it
    bool opensMaximised = false;
    bool opensFullScreen = false;
    bool running = false;    // inside its modal run
    bool takenOver = false;  // another copy takes this one's place: ends, and so does the window below
    bool ended = false;
    int result = -1;

    // Makes this the state of a new window whose page is `page`, its frame `frame` or one that others own.
    void Begin(Window& window, Window* below, std::unique_ptr<QWidget> newFrame, QWidget* newPage);
    // The picture of the page, as large and as fine as that is now.
    ink::PixelSurface Shown();
    void ShowTitle();
};

namespace qt {

// The toolkit's window that `window` has; null when there is none.
inline QWidget* FrameOf(const Window* window) { return window ? window->Handle()->frame : nullptr; }

// The window object behind a frame or page of ours; null for any other widget.
Window* WindowOf(const QWidget* widget);

// A command reaches a window only while nothing is open over it.
void DispatchCommand(Window& window, int id);
void DispatchScroll(Window& window, ScrollCode code, int position);

// The window has come to a monitor of another scale.
void ChangeScale(Window& window, ink::Scale scale);

// The pen is taken away; whoever holds it is told.
void LosePen(Window& window);

// Tells the window that it goes, and destroys it.
void CloseWindow(Window& window);

}  // namespace qt

}  // namespace platform
