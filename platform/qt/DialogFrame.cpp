#include "platform/qt/DialogFrame.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QTableView>
#include <QTextCharFormat>
#include <QTimeEdit>
#include <iterator>
#include <utility>

#include "platform/qt/Fonts.h"
#include "platform/qt/Roles.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowImpl.h"
#include "platform/qt/system/UserLocale.h"

namespace platform::qt {

namespace {

using resources::DialogItem;

constexpr int kTenthPoints = 80;
constexpr int kLatestSpin = 100;

Qt::WindowFlags FlagsOf(const resources::DialogTemplate& source) {
    const bool hasCaption = source.styles.find(L" WS_CAPTION ") != std::wstring::npos;
    const Qt::WindowFlags captioned =
        Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
    return Qt::Dialog | (hasCaption ? captioned : Qt::FramelessWindowHint);
}

// Taps anywhere in its place count, beside the text too.
class CheckBox : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }
};

// A day that is tapped twice is chosen when the pen is up: it must not be lifted over whatever lies below the
// dialog.
class MonthCalendar : public QCalendarWidget {
  public:
    MonthCalendar(QWidget* parent, Window& window) : QCalendarWidget(parent), window_(window) {
        setDateRange({1601, 1, 1}, {9999, 12, 31});
        setVerticalHeaderFormat(NoVerticalHeader);
        setHorizontalHeaderFormat(ShortDayNames);
        setLocale(TimeLocale());
        for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) setWeekdayTextFormat(day, {});
        setAccessibleName("Month");
        NameParts();
        findChild<QTableView*>()->viewport()->installEventFilter(this);
        connect(this, &QCalendarWidget::activated, [this] {
            isChosen_ = QGuiApplication::mouseButtons() != Qt::NoButton;
            if (!isChosen_) window_.PostCommand(kIdOk);
        });
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isUp = event->type() == QEvent::MouseButtonRelease;
        if (isUp && std::exchange(isChosen_, false)) window_.PostCommand(kIdOk);
        return QCalendarWidget::eventFilter(watched, event);
    }

  private:
    void NameParts() {
        findChild<QTableView*>()->setAccessibleName("Days");
        constexpr const char* kParts[][2] = {{"qt_calendar_prevmonth", "Previous Month"},
                                             {"qt_calendar_nextmonth", "Next Month"}};
        for (const auto& [part, name] : kParts) {
            if (auto* button = findChild<QWidget*>(part)) button->setAccessibleName(name);
        }
    }

    Window& window_;
    bool isChosen_ = false;
};

// What is being made: the dialog, the window it belongs to, and what came before.
struct Making {
    QWidget& parent;
    Window& window;
    QString caption;
    QLabel* label = nullptr;  // the text before a control tells what it is for
    QLineEdit* buddy = nullptr;
    int buddyId = 0;
};

QWidget* MakeLabel(Making& making, const DialogItem& item) {
    auto* label = new QLabel(&making.parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(ToQt(item.text));
    label->setWordWrap(item.kind == L"LTEXT");
    const Qt::Alignment side = item.kind == L"RTEXT"   ? Qt::AlignRight
                               : item.kind == L"CTEXT" ? Qt::AlignHCenter
                                                       : Qt::AlignLeft;
    label->setAlignment(side | Qt::AlignTop);
    making.label = label;
    return label;
}

QWidget* MakeButton(Making& making, const DialogItem& item) {
    auto* button = new QPushButton(WithoutAccessKeys(item.text), &making.parent);
    button->setDefault(item.kind == L"DEFPUSHBUTTON");
    const int id = item.id;
    QObject::connect(button, &QAbstractButton::clicked,
                     [window = &making.window, id] { window->PostCommand(id); });
    return button;
}

QWidget* MakeCheckBox(Making& making, const DialogItem& item) {
    auto* box = new CheckBox(WithoutAccessKeys(item.text), &making.parent);
    const int id = item.id;
    QObject::connect(box, &QAbstractButton::clicked,
                     [window = &making.window, id] { window->PostCommand(id); });
    return box;
}

QWidget* MakeEdit(Making& making, const DialogItem& item) {
    const bool isReadOnly = item.Has(L"ES_READONLY");
    if (item.Has(L"ES_MULTILINE")) {
        auto* edit = new QPlainTextEdit(&making.parent);
        edit->setReadOnly(isReadOnly);
        edit->setTabChangesFocus(true);
        return edit;
    }
    auto* edit = new QLineEdit(&making.parent);
    edit->setReadOnly(isReadOnly);
    if (item.Has(L"ES_NUMBER"))
        edit->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), edit));
    QObject::connect(edit, &QLineEdit::textChanged,
                     [window = &making.window, id = item.id] { TellChange(*window, id); });
    making.buddy = edit;
    making.buddyId = item.id;
    return edit;
}

QWidget* MakeList(Making& making, const DialogItem& item) {
    auto* list = new QComboBox(&making.parent);
    QObject::connect(list, &QComboBox::currentIndexChanged,
                     [window = &making.window, id = item.id] { TellChange(*window, id); });
    return list;
}

// The edit before the buttons is one control with them here, and known by both ids.
QWidget* MakeSpin(Making& making, const DialogItem&) {
    auto* spin = new QSpinBox(&making.parent);
    spin->setRange(0, kLatestSpin);
    if (!making.buddy) return spin;
    const int id = making.buddyId;
    spin->findChild<QLineEdit*>()->setReadOnly(making.buddy->isReadOnly());
    spin->setAccessibleName(making.buddy->accessibleName());
    QObject::connect(spin, &QSpinBox::textChanged,
                     [window = &making.window, id] { TellChange(*window, id); });
    making.window.Handle()->items[id] = spin;
    const std::unique_ptr<QWidget> gone(making.buddy);
    making.buddy = nullptr;
    return spin;
}

QWidget* MakePicker(Making& making, const DialogItem& item) {
    const bool isTime = item.Has(L"DTS_TIMEFORMAT");
    QDateTimeEdit* picker = nullptr;
    if (isTime) {
        picker = new QTimeEdit(QTime::currentTime(), &making.parent);
        picker->setDisplayFormat(TimePicture());
    } else {
        picker = new QDateEdit(QDate::currentDate(), &making.parent);
        picker->setDateRange({1601, 1, 1}, {9999, 12, 31});
        picker->setDisplayFormat(ShortPicture());
        picker->setCalendarPopup(true);
    }
    picker->setLocale(TimeLocale());
    picker->setAccessibleName(isTime ? "Time" : "Date");
    QObject::connect(picker, &QDateTimeEdit::dateTimeChanged,
                     [window = &making.window, id = item.id] { TellChange(*window, id); });
    return picker;
}

QWidget* MakeCalendar(Making& making, const DialogItem&) {
    return new MonthCalendar(&making.parent, making.window);
}

struct Maker {
    const wchar_t* kind;
    QWidget* (*make)(Making&, const DialogItem&);
};
constexpr Maker kMakers[] = {{L"LTEXT", MakeLabel},
                             {L"RTEXT", MakeLabel},
                             {L"CTEXT", MakeLabel},
                             {L"Static", MakeLabel},
                             {L"PUSHBUTTON", MakeButton},
                             {L"DEFPUSHBUTTON", MakeButton},
                             {L"AUTOCHECKBOX", MakeCheckBox},
                             {L"EDITTEXT", MakeEdit},
                             {L"COMBOBOX", MakeList},
                             {L"UPDOWN_CLASS", MakeSpin},
                             {L"DATETIMEPICK_CLASS", MakePicker},
                             {L"MONTHCAL_CLASS", MakeCalendar}};

QWidget* MakeItem(Making& making, const DialogItem& item) {
    for (const Maker& maker : kMakers) {
        if (item.kind == maker.kind) return maker.make(making, item);
    }
    return nullptr;
}

// A list's template tells how far it drops; the buttons beside a number take its place as well.
QRect PlaceOf(const QWidget& dialog, const DialogItem& item, const QWidget& made, const QRect& before) {
    QRect place = PixelsOf(dialog, item.place);
    if (item.kind == L"COMBOBOX") place.setHeight(made.sizeHint().height());
    if (item.kind == L"UPDOWN_CLASS") place = place.united(before);
    return place;
}

// Lists tell what is chosen for their name, whatever that is: what they are for is told by the label beside
// them.
void TellPurpose(const Making& making, QWidget& made) {
    const QString label = making.label ? making.label->text() : making.caption;
    if (made.accessibleName().isEmpty()) made.setAccessibleName(label);
    if (making.label && !making.label->buddy()) making.label->setBuddy(&made);
}

}  // namespace

DialogFrame::DialogFrame(QWidget* owner, const resources::DialogTemplate& source)
    : QDialog(owner, FlagsOf(source)), hasBorder_(source.styles.find(L" WS_BORDER ") != std::wstring::npos) {
    GiveRole(*this, QAccessible::Dialog);
    setFont(FontOf(kTenthPoints, false));
    setWindowModality(Qt::ApplicationModal);
    resize(PixelsOf(*this, {0, 0, source.width, source.height}).size());
}

void DialogFrame::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    if (!hasBorder_) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

QRect PixelsOf(const QWidget& dialog, const ink::Rect& units) {
    static const QString letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const QFontMetrics metrics(dialog.font());
    const auto count = static_cast<int>(letters.size());
    const int across = (metrics.horizontalAdvance(letters) + count / 2) / count;  // of 4 units
    const int down = metrics.height();                                            // of 8
    return {QPoint(units.left * across / 4, units.top * down / 8),
            QPoint(units.right * across / 4 - 1, units.bottom * down / 8 - 1)};
}

void MakeItems(QWidget& parent, Window& window, const resources::DialogTemplate& source) {
    Making making{parent, window, ToQt(source.caption).trimmed(), nullptr, nullptr, 0};
    QRect before;
    for (const DialogItem& item : source.items) {
        QWidget* made = MakeItem(making, item);
        if (!made) continue;
        before = PlaceOf(parent, item, *made, before);
        made->setGeometry(before);
        made->setObjectName(QString::number(item.id));
        made->show();  // a page of a sheet may be shown before it is filled
        const bool hasText = qobject_cast<QLabel*>(made) || qobject_cast<QAbstractButton*>(made);
        if (!hasText) TellPurpose(making, *made);
        window.Handle()->items[item.id] = made;
    }
    window.Handle()->hasOwnFocus = false;
}

void TellChange(Window& window, int id) {
    const Window::Impl& state = *window.Handle();
    if (!state.fillingControls && !state.ended) Guarded(window, [&] { window.OnControlChanged(id); });
}

}  // namespace platform::qt
