#include <QDate>
#include <QString>
#include <QTime>

#include "platform/Locale.h"
#include "platform/qt/system/UserLocale.h"

namespace platform {

namespace qt {

namespace {

constexpr QChar kNarrowBlank(0x202F);

}  // namespace

QLocale UserLocale() {
    const QLocale system = QLocale::system();
    return system.language() == QLocale::C ? QLocale(QLocale::English, QLocale::UnitedStates) : system;
}

QString ShortPicture() {
    QString picture = UserLocale().dateFormat(QLocale::ShortFormat);
    if (!picture.contains(QLatin1String("yyyy"))) picture.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return picture;
}

QString TimePicture() {
    QString picture = UserLocale().timeFormat(QLocale::LongFormat);
    while (picture.contains(QLatin1Char('t'))) picture.remove(picture.lastIndexOf(QLatin1Char('t')), 1);
    picture.remove(QLatin1String("()"));
    picture.remove(QLatin1String("[]"));
    return picture.replace(kNarrowBlank, QLatin1Char(' ')).trimmed();
}

}  // namespace qt

namespace {

bool IsDate(const DateTime& date) { return IsValidDate(date.year, date.month, date.day); }

QString Format(const DateTime& date, const QString& picture) {
    return IsDate(date) ? qt::UserLocale().toString(QDate(date.year, date.month, date.day), picture)
                        : QString();
}

}  // namespace

std::wstring ShortDate(const DateTime& date) { return Format(date, qt::ShortPicture()).toStdWString(); }

std::wstring LongDate(const DateTime& date) {
    return Format(date, qt::UserLocale().dateFormat(QLocale::LongFormat)).toStdWString();
}

std::wstring DatePicture(const DateTime& date, const wchar_t* picture) {
    return Format(date, QString::fromWCharArray(picture)).toStdWString();
}

// Where the year comes first, as it stands in the long form.
std::wstring YearAndMonth(int year, int month) {
    const DateTime first{year, month, 0, 1, 0, 0, 0, 0};
    if (!IsDate(first)) return {};
    const QLocale locale = qt::UserLocale();
    const QString picture = locale.dateFormat(QLocale::LongFormat);
    const qsizetype day = picture.indexOf(QLatin1Char('d'));
    if (picture.startsWith(QLatin1Char('y')) && day > 0)
        return Format(first, picture.left(day).trimmed()).toStdWString();
    return (locale.standaloneMonthName(month) + QLatin1Char(' ') + QString::number(year)).toStdWString();
}

std::wstring ShortDayName(int day) {
    return qt::UserLocale().standaloneDayName(day + 1, QLocale::ShortFormat).toStdWString();
}

std::wstring DayName(int day) { return qt::UserLocale().standaloneDayName(day + 1).toStdWString(); }

int FirstDayOfWeek() { return qt::UserLocale().firstDayOfWeek() - 1; }

std::wstring DateAndTime(const DateTime& moment) {
    std::wstring text = IsValidMoment(moment) ? ShortDate(moment) : std::wstring();
    if (text.empty() || (moment.hour == 0 && moment.minute == 0 && moment.second == 0)) return text;
    const QTime time(moment.hour, moment.minute, moment.second);
    return text + L" " + qt::UserLocale().toString(time, qt::TimePicture()).toStdWString();
}

}  // namespace platform
