// The device's locale is English (United States).
#include <cwchar>
#include <cwctype>
#include <iterator>
#include <utility>

#include "platform/Locale.h"
#include "platform/TextEncoding.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostFileStore.h"

namespace platform {

namespace {

constexpr const wchar_t* kDays[] = {L"Sunday",   L"Monday", L"Tuesday", L"Wednesday",
                                    L"Thursday", L"Friday", L"Saturday"};
constexpr const wchar_t* kMonths[] = {L"January",   L"February", L"March",    L"April",
                                      L"May",       L"June",     L"July",     L"August",
                                      L"September", L"October",  L"November", L"December"};

template <typename... Values>
std::wstring Format(const wchar_t* form, Values... values) {
    wchar_t text[128];
    const int length = std::swprintf(text, std::size(text), form, values...);
    return length < 0 ? std::wstring() : std::wstring(text, static_cast<size_t>(length));
}

bool IsDate(const DateTime& date) { return IsValidDate(date.year, date.month, date.day); }

std::wstring NameOfDay(const DateTime& date) { return kDays[DayOfWeek(date.year, date.month, date.day)]; }

// Replaces one run of a picture letter; returns what it stands for.
std::wstring PictureRun(const DateTime& date, wchar_t letter, size_t length) {
    const int values[] = {date.day, date.month, date.year};
    const size_t which = letter == L'd' ? 0 : letter == L'M' ? 1 : 2;
    if (which == 2) return length > 2 ? Format(L"%04d", date.year) : Format(L"%02d", date.year % 100);
    if (length <= 2) return Format(length == 1 ? L"%d" : L"%02d", values[which]);
    const std::wstring name = which == 0 ? NameOfDay(date) : kMonths[date.month - 1];
    return length == 3 ? name.substr(0, 3) : name;
}

}  // namespace

std::wstring DatePicture(const DateTime& date, const wchar_t* picture) {
    std::wstring text;
    if (!IsDate(date)) return text;
    for (const wchar_t* at = picture; *at != 0;) {
        if (*at == L'\'') {
            for (++at; *at != 0 && *at != L'\''; ++at) text += *at;
            if (*at != 0) ++at;
        } else if (*at == L'd' || *at == L'M' || *at == L'y') {
            const size_t length = std::wcsspn(at, std::wstring(1, *at).c_str());
            text += PictureRun(date, *at, length);
            at += length;
        } else {
            text += *at++;
        }
    }
    return text;
}

std::wstring ShortDate(const DateTime& date) { return DatePicture(date, L"M/d/yyyy"); }

std::wstring LongDate(const DateTime& date) { return DatePicture(date, L"dddd, MMMM d, yyyy"); }

std::wstring DateAndTime(const DateTime& moment) {
    std::wstring date = IsValidMoment(moment) ? ShortDate(moment) : std::wstring();
    if (date.empty() || (moment.hour == 0 && moment.minute == 0 && moment.second == 0)) return date;
    const int hour = moment.hour % 12 == 0 ? 12 : moment.hour % 12;
    return date +
           Format(L" %d:%02d:%02d %ls", hour, moment.minute, moment.second, moment.hour < 12 ? L"AM" : L"PM");
}

std::wstring YearAndMonth(int year, int month) {
    return DatePicture({year, month, 0, 1, 0, 0, 0, 0}, L"MMMM yyyy");
}

std::wstring DayName(int day) { return kDays[(day + 1) % 7]; }

std::wstring ShortDayName(int day) { return DayName(day).substr(0, 3); }

bool UsesLetterPaper() { return host::HostDevice::Current().usesLetterPaper; }
int FirstDayOfWeek() { return 6; }

bool EqualNoCase(const std::wstring& a, const std::wstring& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (host::UpperCase(a[i]) != host::UpperCase(b[i])) return false;
    }
    return true;
}

std::wstring LowerCase(std::wstring text) {
    for (wchar_t& unit : text) {
        const auto small = static_cast<wchar_t>(unit + 32);
        if (host::UpperCase(small) == unit && small != unit) unit = small;
    }
    return text;
}

std::wstring SmallLetters(std::wstring text) { return LowerCase(std::move(text)); }

int CompareNames(const std::wstring& a, const std::wstring& b) {
    const int order = LowerCase(a).compare(LowerCase(b));
    return order != 0 ? order : b.compare(a);
}

// Code page 1252 without its special characters between 128 and 159.
// The code page is 1252: Latin-1, but for these from byte 0x80 on.
constexpr wchar_t kFrom0x80[] =
    L"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
    L"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E\u0178";

bool ToAnsi(const std::wstring& text, std::string& bytes) {
    const std::wstring special = kFrom0x80;
    bytes.clear();
    for (const wchar_t unit : text) {
        const size_t at = special.find(unit);
        const bool isLatin = unit < 0x80 || (unit >= 0xA0 && unit < 0x100);
        bytes += static_cast<char>(isLatin ? unit : at < special.size() ? 0x80 + at : L'?');
    }
    return true;
}

bool FromAnsi(const std::string& bytes, std::wstring& text) {
    text.clear();
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += code >= 0x80 && code < 0xA0 ? kFrom0x80[code - 0x80] : static_cast<wchar_t>(code);
    }
    return true;
}

}  // namespace platform
