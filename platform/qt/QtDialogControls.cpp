// Check boxes, lists and spin buttons of dialogs.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <algorithm>

#include "platform/Dialog.h"
#include "platform/FillingControls.h"
#include "platform/qt/DialogFrame.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

using qt::ItemOf;

namespace {

constexpr uint32_t kNoNumber = 0x10000;

}  // namespace

void Dialog::NameItem(int id, const std::wstring& name) {
    if (auto* item = ItemOf<QWidget>(*impl_, id)) item->setAccessibleName(qt::ToQt(name));
}

void Dialog::NameDialog(const std::wstring& name) {
    if (impl_->frame) impl_->frame->setAccessibleName(qt::ToQt(name));
}

void Dialog::SetItemMargins(int id, int pixels) {
    if (auto* edit = ItemOf<QLineEdit>(*impl_, id)) edit->setTextMargins(pixels, 0, pixels, 0);
    if (auto* edit = ItemOf<QPlainTextEdit>(*impl_, id)) edit->document()->setDocumentMargin(pixels);
}

void Dialog::LimitItemText(int id, int characters) {
    if (auto* edit = ItemOf<QLineEdit>(*impl_, id)) edit->setMaxLength(characters);
    if (auto* spin = ItemOf<QSpinBox>(*impl_, id)) spin->findChild<QLineEdit*>()->setMaxLength(characters);
}

bool Dialog::IsItemChecked(int id) const {
    const auto* box = ItemOf<QCheckBox>(*impl_, id);
    return box && box->isChecked();
}

void Dialog::CheckItem(int id, bool checked) {
    if (auto* box = ItemOf<QCheckBox>(*impl_, id)) box->setChecked(checked);
}

void Dialog::SetChoices(int id, const std::vector<std::wstring>& texts) {
    auto* list = ItemOf<QComboBox>(*impl_, id);
    if (!list) return;
    const FillingControls filling(impl_->fillingControls);
    list->clear();
    for (const std::wstring& text : texts) list->addItem(qt::ToQt(text));
    list->setCurrentIndex(-1);
}

int Dialog::Choice(int id) const {
    const auto* list = ItemOf<QComboBox>(*impl_, id);
    return list ? list->currentIndex() : -1;
}

void Dialog::Choose(int id, int index) {
    const FillingControls filling(impl_->fillingControls);
    if (auto* list = ItemOf<QComboBox>(*impl_, id)) list->setCurrentIndex(index < list->count() ? index : -1);
}

void Dialog::SetSpinRange(int id, int16_t minimum, int16_t maximum) {
    const FillingControls filling(impl_->fillingControls);
    if (auto* spin = ItemOf<QSpinBox>(*impl_, id)) spin->setRange(minimum, maximum);
}

void Dialog::SetSpin(int id, int16_t position) {
    const FillingControls filling(impl_->fillingControls);
    if (auto* spin = ItemOf<QSpinBox>(*impl_, id)) spin->setValue(position);
}

uint32_t Dialog::Spin(int id) const {
    const auto* spin = ItemOf<QSpinBox>(*impl_, id);
    if (!spin) return 0;
    const uint32_t position = static_cast<uint16_t>(spin->value());
    return spin->hasAcceptableInput() ? position : position | kNoNumber;
}

}  // namespace platform
