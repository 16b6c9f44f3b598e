#include <utility>

#include "platform/Dialog.h"
#include "platform/MessageBox.h"
#include "platform/Popup.h"
#include "platform/Screen.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostToolBar.h"
#include "platform/host/HostWindow.h"

namespace platform {

using host::HostDevice;

namespace {

constexpr int kScrollBarWidth = 16;

int CannotOpen() {
    ShowOutOfMemory(nullptr);
    return -1;
}

}  // namespace

ToolBar::ToolBar() = default;
ToolBar::~ToolBar() = default;

Image ToolBar::Images() const {
    return impl_ == nullptr ? Image()
                            : Image::FromResource(impl_->bitmapId, HostDevice::Current().desk.scale);
}

void ToolBar::SetImages(const Image& images) {
    if (impl_ == nullptr) return;
    const ink::PixelSurface surface = images.Surface();
    impl_->images.assign(surface.pixels, surface.pixels + surface.stride * surface.height);
}

HostButton* ToolBar::Impl::Find(int command) {
    const auto button = buttons.find(command);
    return button == buttons.end() ? nullptr : &button->second;
}

HostButton* ToolBar::Impl::Find(const Window& window, int command) {
    ToolBar* tools = window.Handle()->tools;
    return tools != nullptr ? tools->Handle()->Find(command) : nullptr;
}

void ToolBar::SetChecked(int command, bool checked) {
    if (HostButton* button = impl_ ? impl_->Find(command) : nullptr) button->checked = checked;
}
void ToolBar::SetPressed(int command, bool pressed) {
    if (HostButton* button = impl_ ? impl_->Find(command) : nullptr) button->pressed = pressed;
}
void ToolBar::SetEnabled(int command, bool enabled) {
    if (HostButton* button = impl_ ? impl_->Find(command) : nullptr) button->enabled = enabled;
}

ScreenSize HandheldScreen() { return HostDevice::Current().desk.screen; }

ScreenSize HandheldScreen(const Window&) { return HandheldScreen(); }

Screen::Screen(ScrollBar scrollBar, std::wstring kind) : scrollBar_(scrollBar), kind_(std::move(kind)) {}
Screen::~Screen() = default;

int Screen::RunModal(Window*) {
    impl_->hasScrollBar = scrollBar_ == ScrollBar::Vertical;
    if (!impl_->OpenScreen()) return CannotOpen();
    return HostDevice::Current().desk.RunModal(*this);
}

bool Window::Impl::OpenScreen() {
    const ScreenSize screen = HandheldScreen();
    return Open(screen.width - (hasScrollBar ? kScrollBarWidth : 0), screen.height - 2 * kBarHeight);
}

bool Screen::CanBeSized() const { return HostDevice::Current().desk.sizesScreens; }
void Screen::ToggleFullScreen() { ++HostDevice::Current().desk.fullScreenToggles; }
void Screen::NameClient(const std::wstring& name) { impl_->name = name; }

void Screen::AddToFrameMenu(int command, const std::wstring& text) {
    impl_->frameMenu.push_back({command, text, true, nullptr});
}

bool Screen::CreateMenuBar(const ToolBarLayout& layout) {
    if (!Exists() || HostDevice::Current().desk.menuBarFails) return false;
    tools_.Handle() = std::make_unique<ToolBar::Impl>();
    tools_.Handle()->bitmapId = layout.bitmapId;
    for (const ToolBarButton& button : layout.buttons) {
        if (button.command != 0) tools_.Handle()->buttons[button.command] = {};
    }
    impl_->tools = &tools_;
    return true;
}

Dialog::Dialog(int templateId) : templateId_(templateId) {}
Dialog::~Dialog() = default;

bool Window::Impl::OpenTemplate(int templateId) {
    const resources::DialogTemplate* source = resources::FindDialog(templateId);
    if (source == nullptr) return false;
    // Dialog units of the usual 6 x 13 pixel font.
    const auto pixels = [](const Rect& units) {
        return Rect{units.left * 6 / 4, units.top * 13 / 8, units.right * 6 / 4, units.bottom * 13 / 8};
    };
    isDialog = true;
    title = source->caption;
    place = pixels({0, 0, source->width, source->height});
    std::wstring label;  // names what comes next, as screen readers take it
    for (const resources::DialogItem& item : source->items) {
        HostItem& made = items[item.id] = HostItem();
        made.name = std::exchange(label, item.kind == L"LTEXT" ? item.text : std::wstring());
        made.source = item;
        made.source.place = pixels(item.place);
        made.text = item.text;
        made.moment = HostDevice::Current().now;
    }
    return Open(place.Width(), place.Height());
}

int Dialog::RunModal(Window*) {
    return impl_->OpenTemplate(templateId_) ? HostDevice::Current().desk.RunModal(*this) : CannotOpen();
}

std::wstring Dialog::ItemText(int id) const {
    const auto item = impl_->items.find(id);
    return item == impl_->items.end() ? std::wstring() : item->second.text;
}

void Dialog::SetItemText(int id, const std::wstring& text) {
    const auto item = impl_->items.find(id);
    if (item == impl_->items.end()) return;
    item->second.text = text;
    item->second.selectionStart = item->second.selectionEnd = 0;
    item->second.textBefore.reset();
}

void Dialog::EnableItem(int id, bool enabled) {
    if (impl_->items.count(id) != 0) impl_->items[id].enabled = enabled;
}

void Dialog::FocusItem(int id) { impl_->focusedItem = id; }
void Dialog::SelectItemText(int id) { impl_->focusedItem = id; }

DateTime Dialog::PickedDate(int id) const {
    const auto item = impl_->items.find(id);
    return item == impl_->items.end() ? DateTime() : item->second.moment;
}

void Dialog::SetFirstDayOfWeek(int, int) {}

DateTime Dialog::PickedTime(int id) const { return PickedDate(id); }

void Dialog::SetPicked(int id, const DateTime& moment) {
    const bool valid = IsValidDate(moment.year, moment.month, moment.day);
    if (valid && impl_->items.count(id) != 0) impl_->items[id].moment = moment;
}

Rect Dialog::WindowRect() const { return impl_->place; }

Rect Dialog::OwnerRect() const {
    const ScreenSize screen = HandheldScreen();
    return {0, 0, screen.width, screen.height};
}

Rect Dialog::ItemRect(int id) const {
    const auto item = impl_->items.find(id);
    if (item == impl_->items.end()) return {};
    return Offset(item->second.source.place, impl_->place.left, impl_->place.top);
}

void Dialog::Place(const Rect& windowRect) {
    const bool isResized =
        windowRect.Width() != impl_->place.Width() || windowRect.Height() != impl_->place.Height();
    impl_->place = windowRect;
    if (!isResized) return;
    impl_->shown = Image::Make(windowRect.Width(), windowRect.Height(), HostDevice::Current().desk.scale);
    impl_->needsPaint = true;
}

void Dialog::PlaceItem(int id, const Rect& client) {
    const auto item = impl_->items.find(id);
    if (item != impl_->items.end()) item->second.source.place = client;
}

Popup::Popup() = default;
Popup::~Popup() = default;

int Popup::RunModal(Window*, const std::wstring& title, Point, int width, int height) {
    impl_->isDialog = true;
    impl_->title = title;
    if (!impl_->Open(width, height)) return CannotOpen();
    return HostDevice::Current().desk.RunModal(*this);
}

}  // namespace platform
