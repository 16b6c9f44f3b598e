// The state of a window of the headless port; shared by its kinds and by HostDesk.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/DateTime.h"
#include "platform/Image.h"
#include "platform/PopupMenu.h"
#include "platform/Window.h"
#include "platform/resources/ResourceTables.h"

namespace platform {

struct HostTimer {
    uint32_t period = 0;
    uint32_t due = 0;
};

struct HostItem {
    resources::DialogItem source;
    std::wstring text;
    bool enabled = true;
    std::wstring name;  // for screen readers
    DateTime moment;
    bool checked = false;
    std::vector<std::wstring> choices;
    int choice = -1;
    int16_t spinMinimum = 0;
    int16_t spinMaximum = 100;
    int16_t spin = 0;
    int margins = 0;
    size_t textLimit = std::wstring::npos;
    bool isTextEdit = false;
    bool wordWrap = false;
    size_t selectionStart = 0;
    size_t selectionEnd = 0;
    std::optional<std::wstring> textBefore;  // what undo brings back
};

struct Window::Impl {
    bool exists = false;
    bool ended = false;
    bool takenOver = false;  // another copy takes this one's place
    int result = -1;
    std::wstring title;
    std::wstring name;  // of the client area
    Image shown;        // what the client area shows
    bool needsPaint = false;
    bool hasScrollBar = false;
    bool hasPen = false;
    std::vector<Point> samples;
    std::map<int, HostTimer> timers;
    ScrollState scroll;

    // Dialogs
    std::map<int, HostItem> items;
    Rect place;
    int focusedItem = 0;
    bool isDialog = false;
    Window* shownPage = nullptr;           // of a property sheet: what gets the events
    std::function<void(size_t)> showPage;  // of a property sheet

    // Screens
    std::vector<PopupMenu::Item> frameMenu;
    class ToolBar* tools = nullptr;
    class TreeView* tree = nullptr;

    // Opens a dialog as its template says; false when there is none or memory is short.
    bool OpenTemplate(int templateId);
    // Gives a Screen the client area that the desk's screen has for it; false when memory is short.
    bool OpenScreen();
    // Opens with a client area of this size; false when memory is short.
    bool Open(int width, int height);
};

}  // namespace platform
