// Check boxes, lists and spin buttons of dialogs, and sheets of them.
#include <algorithm>

#include "platform/PropertyDialog.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostWindow.h"

namespace platform {

using host::HostDevice;

namespace {

HostItem* Find(Window::Impl& state, int id) {
    const auto item = state.items.find(id);
    return item == state.items.end() ? nullptr : &item->second;
}

// The dialog around the pages: it has OK and Cancel and gives all else to the page that is shown.
class SheetWindow : public Window {
  public:
    SheetWindow(const std::wstring& caption, const std::vector<PropertyPage*>& pages) : pages_(pages) {
        impl_->isDialog = true;
        impl_->title = caption;
        impl_->showPage = [this](size_t index) { ShowPage(*pages_.at(index)); };
    }

    bool OnCreate() override {
        if (pages_.empty()) return false;
        ShowPage(*pages_.front());
        return true;
    }
    void OnDestroy() override {
        for (PropertyPage* page : shown_) {
            page->OnDestroy();
            page->Handle()->exists = false;
        }
    }
    void OnCommand(int id) override {
        if (id != kIdOk && id != kIdCancel) return;
        if (id == kIdOk) {
            for (PropertyPage* page : shown_) page->OnApply();
        }
        EndModal(id);
    }

  private:
    void ShowPage(PropertyPage& page) {
        impl_->shownPage = &page;
        if (std::find(shown_.begin(), shown_.end(), &page) != shown_.end()) return;
        shown_.push_back(&page);
        if (page.Handle()->OpenTemplate(page.TemplateId())) page.OnCreate();
    }

    std::vector<PropertyPage*> pages_;
    std::vector<PropertyPage*> shown_;
};

constexpr int kAnySize = 1;

}  // namespace

void Dialog::NameItem(int id, const std::wstring& name) {
    if (HostItem* item = Find(*impl_, id)) item->name = name;
}

void Dialog::NameDialog(const std::wstring& name) { impl_->name = name; }

void Dialog::SetItemMargins(int id, int pixels) {
    if (HostItem* item = Find(*impl_, id)) item->margins = pixels;
}

void Dialog::LimitItemText(int id, int characters) {
    if (HostItem* item = Find(*impl_, id)) item->textLimit = static_cast<size_t>(characters);
}

bool Dialog::IsItemChecked(int id) const {
    const HostItem* item = Find(*impl_, id);
    return item != nullptr && item->checked;
}

void Dialog::CheckItem(int id, bool checked) {
    if (HostItem* item = Find(*impl_, id)) item->checked = checked;
}

void Dialog::SetChoices(int id, const std::vector<std::wstring>& texts) {
    HostItem* item = Find(*impl_, id);
    if (item == nullptr) return;
    item->choices = texts;
    item->choice = -1;
}

int Dialog::Choice(int id) const {
    const HostItem* item = Find(*impl_, id);
    return item == nullptr ? -1 : item->choice;
}

void Dialog::Choose(int id, int index) {
    HostItem* item = Find(*impl_, id);
    if (item == nullptr) return;
    item->choice = index >= 0 && index < static_cast<int>(item->choices.size()) ? index : -1;
}

void Dialog::SetSpinRange(int id, int16_t minimum, int16_t maximum) {
    HostItem* item = Find(*impl_, id);
    if (item == nullptr) return;
    item->spinMinimum = minimum;
    item->spinMaximum = maximum;
}

void Dialog::SetSpin(int id, int16_t position) {
    HostItem* item = Find(*impl_, id);
    if (item != nullptr) item->spin = std::clamp(position, item->spinMinimum, item->spinMaximum);
}

uint32_t Dialog::Spin(int id) const {
    const HostItem* item = Find(*impl_, id);
    return item == nullptr ? 0 : static_cast<uint16_t>(item->spin);
}

PropertyDialog::PropertyDialog(const std::wstring& caption, const std::vector<PropertyPage*>& pages)
    : caption_(caption), pages_(pages) {}

int PropertyDialog::RunModal(Window*) {
    SheetWindow sheet(caption_, pages_);
    if (!sheet.Handle()->Open(kAnySize, kAnySize)) return -1;
    return HostDevice::Current().desk.RunModal(sheet);
}

}  // namespace platform
