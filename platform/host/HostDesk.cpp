#include "platform/host/HostDesk.h"

#include <algorithm>
#include <cstdlib>
#include <set>

#include "platform/Dialog.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostImage.h"
#include "platform/host/HostToolBar.h"
#include "platform/host/HostTreeView.h"
#include "platform/host/HostWindow.h"

namespace platform::host {

namespace {

// A window for events that come when none is open; it takes them without effect.
class NoWindow : public Window {};

std::vector<DrawnThing> ThingsOn(const Window* window) {
    if (window == nullptr || !window->Handle()->shown.IsValid()) return {};
    std::vector<DrawnThing> things = window->Handle()->shown.Handle()->things;
    // A control covers what the window shows below it.
    const TreeView* tree = window->Handle()->tree;
    const Rect covered = tree != nullptr && tree->Handle()->visible ? tree->Handle()->place : Rect{};
    things.erase(std::remove_if(things.begin(), things.end(),
                                [&covered](const DrawnThing& thing) {
                                    return Intersect(thing.place, covered) == thing.place;
                                }),
                 things.end());
    std::sort(things.begin(), things.end(), [](const DrawnThing& a, const DrawnThing& b) {
        return std::pair(a.place.top, a.place.left) < std::pair(b.place.top, b.place.left);
    });
    return things;
}

}  // namespace

Window* HostDesk::Top() const {
    if (open_.empty()) return nullptr;
    Window* page = open_.back()->Handle()->shownPage;
    return page != nullptr ? page : open_.back();
}

std::vector<std::wstring> HostDesk::Texts() const {
    std::vector<std::wstring> texts;
    for (const DrawnThing& thing : ThingsOn(Top())) texts.push_back(thing.text);
    return texts;
}

Rect HostDesk::PlaceOf(const std::wstring& text) const {
    for (const DrawnThing& thing : ThingsOn(Top())) {
        if (thing.text == text) return thing.place;
    }
    return {};
}

Window& HostDesk::Target() {
    static NoWindow none;
    if (Window* top = Top()) return *top;
    problems.emplace_back("an event came while no window was open");
    return none;
}

void HostDesk::PenDown(Point place) {
    Target().Handle()->samples.clear();
    Target().OnPenDown(place);
}

void HostDesk::PenMove(Point place, const std::vector<Point>& samples) {
    Target().Handle()->samples = samples;
    Target().OnPenMove(place);
}

void HostDesk::PenUp(Point place, const std::vector<Point>& samples) {
    Target().Handle()->samples = samples;
    Target().OnPenUp(place);
}

void HostDesk::Stroke(const std::vector<Point>& points) {
    PenDown(points.front());
    for (size_t i = 1; i < points.size(); ++i) PenMove(points[i]);
    PenUp(points.back());
}

void HostDesk::TakePenAway() { Target().ReleasePen(); }

void HostDesk::Command(int id) {
    const bool endsSheet = (id == kIdOk || id == kIdCancel) && !open_.empty();
    Window& window = endsSheet ? *open_.back() : Target();
    const auto item = window.Handle()->items.find(id);
    if (item != window.Handle()->items.end() && !item->second.enabled) return;
    if (item != window.Handle()->items.end() && item->second.source.kind == L"AUTOCHECKBOX")
        item->second.checked = !item->second.checked;
    const HostButton* button = ToolBar::Impl::Find(window, id);
    if (button != nullptr && !button->enabled) return;
    if (!window.Handle()->ended) window.OnCommand(id);
}

void HostDesk::Scroll(ScrollCode code, int position) { Target().OnScroll(code, position); }

void HostDesk::Press(Key key) {
    Window& window = Target();
    const bool handled = window.OnKeyDown(key);
    if (!handled && key == Key::Escape && window.Handle()->isDialog) window.OnCommand(kIdCancel);
}

void HostDesk::PressShortcut(wchar_t letter) { Target().OnShortcut(letter); }

void HostDesk::OpenFrameMenu() {
    std::vector<PopupMenu::Item> items = Target().Handle()->frameMenu;
    for (PopupMenu::Item& item : items)
        item.enabled = dynamic_cast<Screen&>(Target()).OffersInFrame(item.command);
    const int command = chooseFromMenu ? chooseFromMenu(items) : 0;
    if (command != 0) Target().OnCommand(command);
}

void HostDesk::TurnWheel(int notches) {
    Window& window = Target();
    if (!window.Handle()->hasScrollBar) return;
    const ScrollCode code = notches > 0 ? ScrollCode::LineUp : ScrollCode::LineDown;
    for (int i = 0; i < std::abs(notches); ++i) window.OnScroll(code, 0);
}

void HostDesk::Rescale(ink::Scale to) {
    scale = to;
    SizeTop();
}

void HostDesk::Resize(ScreenSize size) {
    sizesScreens = true;
    screen = size;
    SizeTop();
}

void HostDesk::SizeTop() {
    auto& window = dynamic_cast<Screen&>(Target());
    if (!window.Handle()->OpenScreen()) return;
    window.OnSize();
    window.Invalidate();
}

void HostDesk::PrivateMessage(uint32_t code, intptr_t payload) {
    if (code == kTakeOver) return TakeOver(Target());
    Target().OnPrivateMessage(code, payload);
}

void HostDesk::TakeOver(Window& window) {
    Window::Impl& state = *window.Handle();
    if (state.ended) return;
    window.OnTakeOver();
    state.takenOver = state.ended;
}

void HostDesk::Type(int item, const std::wstring& text) {
    HostItem& edit = Target().Handle()->items[item];
    if (edit.isTextEdit) edit.textBefore = edit.text;
    edit.text = text.substr(0, edit.textLimit);
    edit.selectionStart = edit.selectionEnd = edit.text.size();
    Target().OnControlChanged(item);
}

void HostDesk::Choose(int item, int index) {
    Target().Handle()->items[item].choice = index;
    Target().OnControlChanged(item);
}

void HostDesk::Turn(int item, int16_t spin) { Target().Handle()->items[item].spin = spin; }

void HostDesk::Select(int item, size_t start, size_t end) {
    HostItem& edit = Target().Handle()->items[item];
    edit.selectionStart = start;
    edit.selectionEnd = end;
}

void HostDesk::Hold(int item, Point place) {
    auto* dialog = dynamic_cast<Dialog*>(Top());
    if (dialog != nullptr && Target().Handle()->items[item].isTextEdit) dialog->OnEditHold(item, place);
}

void HostDesk::ShowPage(size_t index) {
    if (!open_.empty() && open_.back()->Handle()->showPage) open_.back()->Handle()->showPage(index);
}

void HostDesk::EndSession() {
    for (size_t i = open_.size(); i-- > 0;) open_[i]->OnSessionEnd();
}

void HostDesk::PassTime(uint32_t milliseconds) {
    HostDevice& device = HostDevice::Current();
    for (uint32_t i = 0; i < milliseconds; ++i) {
        ++device.ticks;
        for (Window* window : std::vector<Window*>(open_)) {
            for (auto& [id, timer] : std::map<int, HostTimer>(window->Handle()->timers)) {
                if (timer.due != device.ticks) continue;
                window->Handle()->timers[id].due += timer.period;
                window->OnTimer(id);
            }
        }
    }
}

void HostDesk::Settle() {
    while (!posted_.empty()) {
        const PostedEvent event = std::move(posted_.front());
        posted_.pop_front();
        event.handle();
    }
    for (Window* window : open_) {
        if (!window->Handle()->needsPaint) continue;
        window->Handle()->needsPaint = false;
        window->OnPaint();
    }
}

// What the user changes must say what it is, also to those who can't see what stands beside it.
void HostDesk::CheckNames(const Window& window) {
    static const std::set<std::wstring> kKinds{L"EDITTEXT", L"COMBOBOX", L"DATETIMEPICK_CLASS",
                                               L"MONTHCAL_CLASS"};
    for (const auto& [id, item] : window.Handle()->items) {
        const bool isInput = item.isTextEdit || kKinds.count(item.source.kind) != 0;
        if (isInput && item.name.empty()) problems.push_back("no name for control " + std::to_string(id));
    }
}

int HostDesk::RunModal(Window& window) {
    Window::Impl& state = *window.Handle();
    state.ended = state.takenOver = false;
    state.result = -1;
    open_.push_back(&window);
    if (!window.OnCreate() && !state.ended) state.ended = true;
    while (!state.ended) {
        Settle();
        if (wantsNames) CheckNames(*Top());
        if (state.takenOver) TakeOver(window);
        if (state.ended) break;
        if (steps_.empty()) {
            problems.emplace_back("the script ended while a window was open");
            window.EndModal(-1);
            break;
        }
        const std::function<void()> step = std::move(steps_.front());
        steps_.pop_front();
        step();
    }
    window.OnDestroy();
    open_.pop_back();
    const auto isOurs = [&window](const PostedEvent& event) { return event.window == &window; };
    posted_.erase(std::remove_if(posted_.begin(), posted_.end(), isOurs), posted_.end());
    state.exists = false;
    state.timers.clear();
    state.hasPen = false;
    if (state.takenOver && !open_.empty()) open_.back()->Handle()->takenOver = true;
    return state.result;
}

}  // namespace platform::host

namespace platform {

using host::HostDesk;
using host::HostDevice;

namespace {

// Whether a person could choose the command in the menu or one of its submenus.
bool Offers(const PopupMenu& menu, int command) {
    for (const PopupMenu::Item& item : menu.Items()) {
        if (item.submenu != nullptr && Offers(*item.submenu, command)) return true;
        if (item.command == command && command != 0 && item.enabled) return true;
    }
    return false;
}

}  // namespace

MessageAnswer ShowMessage(Window*, const std::wstring& text, const std::wstring& caption,
                          MessageButtons buttons, MessageIcon icon, DefaultButton defaultButton) {
    HostDesk& desk = HostDevice::Current().desk;
    desk.messages.push_back({text, caption, buttons, icon, defaultButton});
    const bool isAnswered = !desk.answers.empty();
    if (buttons == MessageButtons::Ok) {
        // An OK that was scripted is used up; the answer to a later question stays.
        if (isAnswered && desk.answers.front() == MessageAnswer::Ok) desk.answers.pop_front();
        return MessageAnswer::Ok;
    }
    const bool isSecond = defaultButton == DefaultButton::Second;
    if (!isAnswered && desk.takesDefaults) return isSecond ? MessageAnswer::No : MessageAnswer::Yes;
    if (!isAnswered) {
        desk.problems.emplace_back("a question was not answered");
        return MessageAnswer::No;
    }
    const MessageAnswer answer = desk.answers.front();
    desk.answers.pop_front();
    return CountedAnswer(buttons, answer);
}

void ShowOutOfMemory(Window*) { ++HostDevice::Current().desk.outOfMemoryBoxes; }

WaitCursor::WaitCursor() {
    HostDesk& desk = HostDevice::Current().desk;
    if (desk.waitCursorDepth++ == 0) ++desk.waitCursors;
}

WaitCursor::~WaitCursor() { --HostDevice::Current().desk.waitCursorDepth; }

int PopupMenu::Choose(Window& owner, ink::Point place) const {
    HostDesk& desk = HostDevice::Current().desk;
    if (owner.Handle()->ended) return 0;
    desk.menuPlace = place;
    const int command = desk.chooseFromMenu ? desk.chooseFromMenu(items_) : 0;
    return !owner.Handle()->ended && Offers(*this, command) ? command : 0;
}

}  // namespace platform
