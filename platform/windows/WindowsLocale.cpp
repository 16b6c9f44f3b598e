#include <iterator>

#include "platform/Locale.h"
#include "platform/TextEncoding.h"
#include "platform/windows/ShellHeaders.h"
#include "platform/windows/SystemTimes.h"

namespace platform {

namespace {

constexpr int kLongestDate = 256;

std::wstring FormatDate(const DateTime& date, DWORD flags, const wchar_t* picture) {
    if (!IsValidDate(date.year, date.month, date.day)) return {};
    SYSTEMTIME day{};
    day.wYear = static_cast<WORD>(date.year);
    day.wMonth = static_cast<WORD>(date.month);
    day.wDay = static_cast<WORD>(date.day);
    wchar_t text[kLongestDate];
    const int length = GetDateFormatW(LOCALE_USER_DEFAULT, flags, &day, picture, text, kLongestDate);
    return length > 0 ? std::wstring(text, static_cast<size_t>(length - 1)) : std::wstring();
}

std::wstring LocaleText(LCTYPE which) {
    wchar_t text[kLongestDate];
    const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, which, text, kLongestDate);
    return length > 0 ? std::wstring(text, static_cast<size_t>(length - 1)) : std::wstring();
}

bool IsDay(int day) { return day >= 0 && day <= 6; }

}  // namespace

std::wstring ShortDate(const DateTime& date) { return FormatDate(date, DATE_SHORTDATE, nullptr); }
std::wstring LongDate(const DateTime& date) { return FormatDate(date, DATE_LONGDATE, nullptr); }
std::wstring DatePicture(const DateTime& date, const wchar_t* picture) {
    return FormatDate(date, 0, picture);
}

std::wstring YearAndMonth(int year, int month) {
    if (month < 1 || month > 12) return {};
    const std::wstring picture = LocaleText(LOCALE_SYEARMONTH);
    std::wstring text =
        picture.empty() ? picture : DatePicture({year, month, 0, 1, 0, 0, 0, 0}, picture.c_str());
    if (!text.empty()) return text;
    return LocaleText(LOCALE_SMONTHNAME1 + static_cast<LCTYPE>(month - 1)) + L" " + std::to_wstring(year);
}

std::wstring ShortDayName(int day) {
    return IsDay(day) ? LocaleText(LOCALE_SABBREVDAYNAME1 + static_cast<LCTYPE>(day)) : std::wstring();
}

std::wstring DayName(int day) {
    return IsDay(day) ? LocaleText(LOCALE_SDAYNAME1 + static_cast<LCTYPE>(day)) : std::wstring();
}

bool UsesLetterPaper() { return LocaleText(LOCALE_IPAPERSIZE) == L"1"; }

int FirstDayOfWeek() {
    const std::wstring digit = LocaleText(LOCALE_IFIRSTDAYOFWEEK);
    const int day = digit.empty() ? -1 : digit[0] - L'0';
    return IsDay(day) ? day : 0;
}

std::wstring DateAndTime(const DateTime& moment) {
    if (!IsValidDate(moment.year, moment.month, moment.day)) return {};
    SYSTEMTIME system = windows::SystemTimeOf(moment);
    system.wMilliseconds = 0;  // they would round the second up
    constexpr LCID kUserDefault = 0x400;
    DATE date = 0;
    BSTR text = nullptr;
    if (!SystemTimeToVariantTime(&system, &date) || FAILED(VarBstrFromDate(date, kUserDefault, 0, &text)))
        return {};
    std::wstring result(text, SysStringLen(text));
    SysFreeString(text);
    return result;
}

bool ToAnsi(const std::wstring& text, std::string& bytes) {
    bytes.clear();
    if (text.empty()) return true;
    const int units = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(CP_ACP, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    if (length <= 0) return false;
    bytes.resize(static_cast<size_t>(length));
    return WideCharToMultiByte(CP_ACP, 0, text.data(), units, bytes.data(), length, nullptr, nullptr) ==
           length;
}

bool FromAnsi(const std::string& bytes, std::wstring& text) {
    text.clear();
    if (bytes.empty()) return true;
    const int count = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), count, nullptr, 0);
    if (length <= 0) return false;
    text.resize(static_cast<size_t>(length));
    return MultiByteToWideChar(CP_ACP, 0, bytes.data(), count, text.data(), length) == length;
}

bool EqualNoCase(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                                TRUE) == CSTR_EQUAL;
}

// By way of upper case, which is what EqualNoCase compares: some letters share only that.
std::wstring LowerCase(std::wstring text) {
    const auto length = static_cast<DWORD>(text.size());
    CharUpperBuffW(text.data(), length);
    CharLowerBuffW(text.data(), length);
    return text;
}

std::wstring SmallLetters(std::wstring text) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

int CompareNames(const std::wstring& a, const std::wstring& b) { return lstrcmpW(a.c_str(), b.c_str()); }

}  // namespace platform
