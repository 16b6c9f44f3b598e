#include <langinfo.h>
#include <locale.h>

#include <QDate>
#include <QString>
#include <QTime>

#include "platform/Locale.h"
#include "platform/qt/system/UserFolders.h"
#include "platform/qt/system/UserLocale.h"

namespace platform {

namespace qt {

namespace {

constexpr QChar kNarrowBlank(0x202F);

}  // namespace

std::string LocaleName(const char* category) {
    for (const char* const variable : {"LC_ALL", category, "LANG"}) {
        std::string name = Environment(variable);
        if (!name.empty()) return name;
    }
    return {};
}

QLocale UserLocale(const char* category) {
    const QLocale named(QString::fromStdString(LocaleName(category)));
    return named.language() == QLocale::C ? QLocale(QLocale::English, QLocale::UnitedStates) : named;
}

QLocale TimeLocale() { return UserLocale("LC_TIME"); }

QString ShortPicture() {
    QString picture = TimeLocale().dateFormat(QLocale::ShortFormat);
    if (!picture.contains(QLatin1String("yyyy"))) picture.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return picture;
}

// The long form has a zone as well, the short one no seconds.
QString TimePicture() {
    constexpr char kMinutes[] = "mm";
    QString picture = TimeLocale().timeFormat(QLocale::ShortFormat);
    const qsizetype minutes = picture.indexOf(QLatin1String(kMinutes));
    if (minutes > 0 && picture[minutes - 1].isPunct() && picture[minutes - 1] != QLatin1Char('\'')) {
        picture.insert(minutes + 2, picture[minutes - 1] + QStringLiteral("ss"));
    } else {
        picture = TimeLocale().timeFormat(QLocale::LongFormat).remove(QLatin1Char('t'));
    }
    return picture.replace(kNarrowBlank, QLatin1Char(' ')).trimmed();
}

}  // namespace qt

namespace {

bool IsDate(const DateTime& date) { return IsValidDate(date.year, date.month, date.day); }

QString Format(const DateTime& date, const QString& picture) {
    return IsDate(date) ? qt::TimeLocale().toString(QDate(date.year, date.month, date.day), picture)
                        : QString();
}

}  // namespace

std::wstring ShortDate(const DateTime& date) { return Format(date, qt::ShortPicture()).toStdWString(); }

std::wstring LongDate(const DateTime& date) {
    return Format(date, qt::TimeLocale().dateFormat(QLocale::LongFormat)).toStdWString();
}

std::wstring DatePicture(const DateTime& date, const wchar_t* picture) {
    return Format(date, QString::fromWCharArray(picture)).toStdWString();
}

// Where the year comes first, as it stands in the long form.
std::wstring YearAndMonth(int year, int month) {
    const DateTime first{year, month, 0, 1, 0, 0, 0, 0};
    if (!IsDate(first)) return {};
    const QLocale locale = qt::TimeLocale();
    const QString picture = locale.dateFormat(QLocale::LongFormat);
    const qsizetype day = picture.indexOf(QLatin1Char('d'));
    if (picture.startsWith(QLatin1Char('y')) && day > 0)
        return Format(first, picture.left(day).trimmed()).toStdWString();
    return (locale.standaloneMonthName(month) + QLatin1Char(' ') + QString::number(year)).toStdWString();
}

std::wstring ShortDayName(int day) {
    return qt::TimeLocale().standaloneDayName(day + 1, QLocale::ShortFormat).toStdWString();
}

std::wstring DayName(int day) { return qt::TimeLocale().standaloneDayName(day + 1).toStdWString(); }

// What the C library knows of the country; A4 where it has no such locale.
bool UsesLetterPaper() {
    constexpr int kLetterMillimetres = 279;
    const locale_t locale = newlocale(LC_PAPER_MASK, "", nullptr);
    if (locale == nullptr) return false;
    // This one number comes in the place of a pointer.
    const auto height = static_cast<int>(reinterpret_cast<intptr_t>(nl_langinfo_l(_NL_PAPER_HEIGHT, locale)));
    freelocale(locale);
    return height == kLetterMillimetres;
}

int FirstDayOfWeek() { return qt::TimeLocale().firstDayOfWeek() - 1; }

std::wstring DateAndTime(const DateTime& moment) {
    std::wstring text = IsValidMoment(moment) ? ShortDate(moment) : std::wstring();
    if (text.empty() || (moment.hour == 0 && moment.minute == 0 && moment.second == 0)) return text;
    const QTime time(moment.hour, moment.minute, moment.second);
    return text + L" " + qt::TimeLocale().toString(time, qt::TimePicture()).toStdWString();
}

}  // namespace platform
