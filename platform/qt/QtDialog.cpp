#include <QAbstractButton>
#include <QCalendarWidget>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>

#include "platform/Dialog.h"
#include "platform/FillingControls.h"
#include "platform/qt/DialogFrame.h"
#include "platform/qt/EditText.h"
#include "platform/qt/HandheldPlace.h"
#include "platform/qt/ModalRun.h"
#include "platform/qt/Text.h"

namespace platform {

using qt::ItemOf;

namespace {

// Over the middle of the owner, or of the desktop.
void Centre(QWidget& dialog, const Window* owner) {
    QPoint corner = qt::CentredPlace(dialog.size());
    const QWidget* below = qt::FrameOf(owner);
    if (below) corner = below->frameGeometry().center() - dialog.rect().center();
    dialog.move(qt::OntoMonitor(below, QRect(corner, dialog.size())).topLeft());
}

// Of a date picker, a time picker or a calendar; invalid for anything else.
QDateTime PickedBy(const Window::Impl& state, int id) {
    if (const auto* calendar = ItemOf<QCalendarWidget>(state, id))
        return calendar->selectedDate().startOfDay(Qt::UTC);
    if (const auto* picker = ItemOf<QDateTimeEdit>(state, id))
        return QDateTime(picker->date(), picker->time(), Qt::UTC);
    return {};
}

}  // namespace

Dialog::Dialog(int templateId) : templateId_(templateId) {}
Dialog::~Dialog() = default;

int Dialog::RunModal(Window* owner) {
    if (Exists()) return -1;
    const resources::DialogTemplate* source = resources::FindDialog(templateId_);
    if (!source) return qt::CannotOpen(owner);
    *impl_ = Impl();
    auto made = std::make_unique<qt::DialogFrame>(qt::FrameOf(owner), *source);
    QWidget* frame = made.get();
    impl_->Begin(*this, owner, std::move(made), frame);
    SetTitle(source->caption);
    qt::MakeItems(*frame, *this, *source);
    Centre(*frame, owner);
    return qt::OpenAndRun(*this);
}

std::wstring Dialog::ItemText(int id) const {
    if (const auto* edit = ItemOf<QLineEdit>(*impl_, id)) return qt::FromQt(edit->text());
    if (const auto* edit = ItemOf<QPlainTextEdit>(*impl_, id)) return qt::TextOf(*edit->document());
    if (const auto* spin = ItemOf<QSpinBox>(*impl_, id)) return qt::FromQt(spin->text());
    if (const auto* label = ItemOf<QLabel>(*impl_, id)) return qt::FromQt(label->text());
    if (const auto* button = ItemOf<QAbstractButton>(*impl_, id))
        return qt::FromQt(button->text().replace("&&", "&"));
    return {};
}

void Dialog::SetItemText(int id, const std::wstring& text) {
    const FillingControls filling(impl_->fillingControls);
    if (auto* edit = ItemOf<QLineEdit>(*impl_, id)) edit->setText(qt::ToQt(text));
    if (auto* edit = ItemOf<QPlainTextEdit>(*impl_, id)) edit->setPlainText(qt::Shown(text));
    if (auto* label = ItemOf<QLabel>(*impl_, id)) label->setText(qt::ToQt(text));
    if (auto* button = ItemOf<QAbstractButton>(*impl_, id)) button->setText(qt::WithoutAccessKeys(text));
}

void Dialog::EnableItem(int id, bool enabled) {
    if (auto* item = ItemOf<QWidget>(*impl_, id)) item->setEnabled(enabled);
}

void Dialog::FocusItem(int id) {
    auto* item = ItemOf<QWidget>(*impl_, id);
    if (!item) return;
    impl_->focusPlaced = true;
    item->setFocus();
    if (auto* edit = ItemOf<QLineEdit>(*impl_, id)) edit->selectAll();
}

void Dialog::SelectItemText(int id) {
    if (auto* edit = ItemOf<QLineEdit>(*impl_, id)) edit->selectAll();
    if (auto* edit = ItemOf<QPlainTextEdit>(*impl_, id)) edit->selectAll();
    if (auto* spin = ItemOf<QSpinBox>(*impl_, id)) spin->selectAll();
}

DateTime Dialog::PickedDate(int id) const {
    const QDateTime picked = PickedBy(*impl_, id);
    if (!picked.isValid()) return {};
    const QDate date = picked.date();
    const QTime time = picked.time();
    return {date.year(), date.month(),  date.dayOfWeek() % 7, date.day(),
            time.hour(), time.minute(), time.second(),        time.msec()};
}

DateTime Dialog::PickedTime(int id) const { return PickedDate(id); }

void Dialog::SetPicked(int id, const DateTime& moment) {
    if (!IsValidDate(moment.year, moment.month, moment.day)) return;
    const FillingControls filling(impl_->fillingControls);
    const QDate date(moment.year, moment.month, moment.day);
    const QTime time(moment.hour, moment.minute, moment.second, moment.milliseconds);
    if (auto* calendar = ItemOf<QCalendarWidget>(*impl_, id)) calendar->setSelectedDate(date);
    if (auto* picker = ItemOf<QDateTimeEdit>(*impl_, id)) {
        picker->setDate(date);
        picker->setTime(time);
    }
}

void Dialog::SetFirstDayOfWeek(int id, int day) {
    auto* calendar = ItemOf<QCalendarWidget>(*impl_, id);
    if (calendar && day >= 0 && day <= 6) calendar->setFirstDayOfWeek(static_cast<Qt::DayOfWeek>(day + 1));
}

// How wide its border is nobody knows before a window is there: rectangles are those of what is in it.
Rect Dialog::WindowRect() const {
    if (!impl_->frame) return {};
    return qt::ToHandheld(this, QRect(impl_->frame->pos(), impl_->frame->size()));
}

Rect Dialog::OwnerRect() const {
    const QWidget* owner = impl_->frame ? qt::FrameOf(impl_->owner) : nullptr;
    return owner ? qt::ToHandheld(this, owner->geometry()) : Rect{};
}

Rect Dialog::ItemRect(int id) const {
    const auto* item = ItemOf<QWidget>(*impl_, id);
    if (!item) return {};
    return qt::ToHandheld(this, QRect(item->mapToGlobal(QPoint(0, 0)), item->size()));
}

void Dialog::Place(const Rect& windowRect) {
    if (!impl_->frame) return;
    QRect place = qt::ToDesktop(this, windowRect);
    // Once it is open the user may drag it anywhere.
    if (!impl_->running) place = qt::OntoMonitor(qt::FrameOf(impl_->owner), place);
    impl_->frame->setGeometry(place);
    impl_->placed = true;
}

void Dialog::PlaceItem(int id, const Rect& client) {
    auto* item = ItemOf<QWidget>(*impl_, id);
    if (item) item->setGeometry(client.left, client.top, client.Width(), client.Height());
}

}  // namespace platform
