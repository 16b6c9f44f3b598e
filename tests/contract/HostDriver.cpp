#include <utility>

#include "platform/host/HostDevice.h"
#include "platform/host/HostWindow.h"
#include "tests/contract/Driver.h"

namespace contract {

using platform::Window;

struct Driver::Impl {
    platform::host::HostDevice device;
    std::vector<SeenMessage> messages;
    std::vector<platform::PopupMenu::Item> menuItems;
};

Driver::Driver() : impl_(std::make_unique<Impl>()) {}
Driver::~Driver() = default;

void Driver::Then(std::function<void()> step) { impl_->device.desk.Then(std::move(step)); }
bool Driver::AllStepsDone() const {
    return !impl_->device.desk.StepWaiting() && impl_->device.desk.problems.empty();
}

void Driver::PenDown(Window&, platform::Point place) { impl_->device.desk.PenDown(place); }
void Driver::PenMove(Window&, platform::Point place) { impl_->device.desk.PenMove(place); }
void Driver::PenUp(Window&, platform::Point place) { impl_->device.desk.PenUp(place); }

void Driver::PenMoveAtOnce(Window&, const std::vector<platform::Point>& places) {
    impl_->device.desk.PenMove(places.back(), {places.begin(), places.end() - 1});
}

void Driver::TakePenAway(Window&) { impl_->device.desk.TakePenAway(); }
void Driver::Press(Window&, platform::Key key) { impl_->device.desk.Press(key); }
void Driver::PressShortcut(Window&, wchar_t letter) { impl_->device.desk.PressShortcut(letter); }
void Driver::TurnWheel(Window&, int notches) { impl_->device.desk.TurnWheel(notches); }
int Driver::WheelLines() const { return 1; }
void Driver::PressTool(platform::Screen&, int command) { impl_->device.desk.Command(command); }
void Driver::PressButton(platform::Dialog&, int id) { impl_->device.desk.Command(id); }
void Driver::Choose(platform::Dialog&, int id, int index) { impl_->device.desk.Choose(id, index); }
void Driver::ShowPage(platform::PropertyPage&, size_t index) { impl_->device.desk.ShowPage(index); }
void Driver::Type(platform::Dialog&, int id, const std::wstring& text) { impl_->device.desk.Type(id, text); }

void Driver::HoldEdit(platform::Dialog& dialog, int id) {
    const platform::Rect place = dialog.ItemRect(id);
    impl_->device.desk.Hold(id, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void Driver::SelectText(platform::Dialog&, int id, int start, int end) {
    impl_->device.desk.Select(id, static_cast<size_t>(start), static_cast<size_t>(end));
}

void Driver::DoubleTapDay(platform::Dialog&, int) { impl_->device.desk.Command(platform::kIdOk); }
int Driver::FirstDayShown(platform::Dialog&, int) const { return -1; }

void Driver::Close(Window& window) {
    impl_->device.desk.Command(window.Handle()->isDialog ? platform::kIdCancel : platform::kIdOk);
}

void Driver::SendScroll(Window&, platform::ScrollCode code, int position) {
    impl_->device.desk.Scroll(code, position);
}

void Driver::SendPrivateMessage(Window&, uint32_t code, intptr_t payload) {
    impl_->device.desk.PrivateMessage(code, payload);
}

void Driver::LetTimePass(uint32_t milliseconds) { impl_->device.desk.PassTime(milliseconds); }

uint32_t Driver::PixelAt(Window& window, platform::Point place) {
    return window.Handle()->shown.Surface().Row(place.y)[place.x];
}

void Driver::Answer(platform::MessageAnswer answer) { impl_->device.desk.answers.push_back(answer); }

const std::vector<SeenMessage>& Driver::Messages() const {
    impl_->messages.clear();
    for (const auto& shown : impl_->device.desk.messages) {
        impl_->messages.push_back({shown.text, shown.caption, shown.defaultButton});
    }
    return impl_->messages;
}

void Driver::ChooseFromMenu(int command) {
    impl_->device.desk.chooseFromMenu = [this, command](const auto& items) {
        impl_->menuItems = items;
        return command;
    };
}

const std::vector<platform::PopupMenu::Item>& Driver::MenuItems() const { return impl_->menuItems; }

void Driver::ChooseFolder(const std::wstring& folder) { impl_->device.desk.chosenFolder = folder; }

void Driver::InsertCard(const std::wstring& name) { impl_->device.files.PutFolder(L"\\" + name); }
void Driver::UseDevice(const std::wstring& ending) { impl_->device.folder = ending == L"\\" ? L"" : ending; }
void Driver::HoldForAMoment(const std::wstring&) {}

void Driver::SetLastWrite(const std::wstring& path, const platform::DateTime& universal) {
    impl_->device.files.Find(path)->lastWrite = universal;
}

int Driver::SummerHours() const { return 0; }

void Driver::SetMachineNumber(const std::wstring& path, const std::wstring& name, uint32_t value) {
    const std::string data(reinterpret_cast<const char*>(&value), sizeof value);
    impl_->device.registry[L"HKLM\\" + path][name] = {platform::RegistryType::Number, data};
}

}  // namespace contract
