#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/TextEncoding.h"
#include "tests/contract/Device.h"

namespace platform {

namespace {

DateTime Moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0,
                int milliseconds = 0) {
    // The day of the week is deliberately wrong: callers pass what they were given.
    return {year, month, 6, day, hour, minute, second, milliseconds};
}

TEST(DateContract, DaysOfTheCalendar) {
    const struct {
        int year, month, day;
        bool isValid;
        int dayOfWeek;
    } kCases[] = {{2007, 3, 15, true, 4},  {2004, 2, 29, true, 0},   {2004, 2, 30, false, 0},
                  {2003, 2, 29, false, 0}, {2000, 2, 29, true, 2},   {1900, 2, 29, false, 0},
                  {1601, 1, 1, true, 1},   {1600, 12, 31, false, 0}, {9999, 12, 31, true, 5},
                  {2026, 4, 31, false, 0}, {2026, 0, 1, false, 0},   {2026, 13, 1, false, 0},
                  {2026, 11, 0, false, 0}, {2026, 11, -1, false, 0}};
    for (const auto& each : kCases) {
        const bool isValid = IsValidDate(each.year, each.month, each.day);
        EXPECT_EQ(isValid, each.isValid) << each.year << "-" << each.month << "-" << each.day;
        if (!isValid) continue;
        EXPECT_EQ(DayOfWeek(each.year, each.month, each.day), each.dayOfWeek) << each.year;
    }
}

TEST(DateContract, SecondsCarryIntoTheDate) {
    const struct {
        DateTime start;
        int64_t seconds;
        DateTime end;
    } kCases[] = {{Moment(2007, 12, 31, 23, 59, 59), 1, {2008, 1, 2, 1, 0, 0, 0, 0}},
                  {Moment(2007, 3, 15, 23, 10, 45), 90 * 60, {2007, 3, 5, 16, 0, 40, 45, 0}},
                  {Moment(2008, 3, 1), -1, {2008, 2, 5, 29, 23, 59, 59, 0}},
                  {Moment(2007, 3, 25, 1, 30), 3600, {2007, 3, 0, 25, 2, 30, 0, 0}}};
    for (const auto& each : kCases) {
        const DateTime end = AddSeconds(each.start, each.seconds);
        const DateTime& wanted = each.end;
        EXPECT_TRUE(end.year == wanted.year && end.month == wanted.month && end.day == wanted.day);
        EXPECT_EQ(end.dayOfWeek, wanted.dayOfWeek);
        EXPECT_TRUE(end.hour == wanted.hour && end.minute == wanted.minute && end.second == wanted.second);
    }
}

TEST(DateContract, TextsOfTheUsersLocale) {
    const DateTime day = Moment(2007, 3, 5, 20, 30, 5);
    const std::pair<std::wstring, const wchar_t*> texts[] = {
        {ShortDate(day), L"3/5/2007"},
        {LongDate(day), L"Monday, March 5, 2007"},
        {DatePicture(day, L"dddd',' "), L"Monday, "},
        {DatePicture(day, L"yyyy-MM-dd"), L"2007-03-05"},
        {DatePicture(day, L"d.M.yy ddd MMM"), L"5.3.07 Mon Mar"},
        {ShortDate(Moment(2004, 2, 30)), L""},
        {LongDate(DateTime()), L""},
        {YearAndMonth(2007, 3), L"March 2007"},
        {YearAndMonth(2026, 13), L""},
        {DayName(0) + DayName(6) + ShortDayName(0) + ShortDayName(6), L"MondaySundayMonSun"},
        {DateAndTime(day), L"3/5/2007 8:30:05 PM"},
        {DateAndTime(Moment(2007, 3, 15, 0, 0, 1)), L"3/15/2007 12:00:01 AM"},
        {DateAndTime(Moment(2007, 3, 15, 12, 5, 9, 999)), L"3/15/2007 12:05:09 PM"},
        {DateAndTime(Moment(2007, 3, 15)), L"3/15/2007"},
        {DateAndTime(Moment(2007, 2, 29, 9, 5, 9)), L""}};
    for (const auto& [text, expected] : texts) EXPECT_EQ(text, expected);
    EXPECT_EQ(FirstDayOfWeek(), 6);
}

TEST(DateContract, ClocksRunForward) {
    const contract::Device device;
    const uint32_t before = TickMilliseconds();
    Pause(60);
    EXPECT_GE(TickMilliseconds() - before, 40u) << "ticks may come in steps of 16";
    const DateTime now = LocalNow();
    EXPECT_TRUE(IsValidDate(now.year, now.month, now.day));
    EXPECT_EQ(now.dayOfWeek, DayOfWeek(now.year, now.month, now.day));
}

TEST(TextContract, AnsiBothWays) {
    std::string bytes;
    std::wstring text;
    EXPECT_TRUE(ToAnsi(L"Caf\u00E9 \u4E2D\r\n", bytes));
    EXPECT_EQ(bytes, "Caf\xE9 ?\r\n");
    EXPECT_TRUE(ToAnsi(L"", bytes) && FromAnsi("", text));
    EXPECT_TRUE(bytes.empty() && text.empty());
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_TRUE(FromAnsi(all, text) && ToAnsi(text, bytes));
    EXPECT_EQ(text.size(), all.size());
    EXPECT_EQ(bytes, all) << "every byte of the code page comes back";
}

TEST(TextContract, FileNamesAreComparedByCodeUnitsWithoutCase) {
    const struct {
        const wchar_t* a;
        const wchar_t* b;
        bool areEqual;
    } kCases[] = {{L"\\My Documents\\A.IKW", L"\\my documents\\a.ikw", true},
                  {L"\u00C9t\u00E9", L"\u00E9T\u00C9", true},
                  {L"a.ikw", L"a.ikwz", false},
                  {L"co-op", L"coop", false},
                  {L"e\u0301", L"\u00E9", false}};
    for (const auto& each : kCases) {
        EXPECT_EQ(EqualNoCase(each.a, each.b), each.areEqual) << each.a;
        EXPECT_EQ(LowerCase(each.a) == LowerCase(each.b), each.areEqual) << each.a;
    }
    for (wchar_t unit = 1; unit < 0x0500; ++unit) {
        const std::wstring name(1, unit);
        EXPECT_TRUE(EqualNoCase(name, LowerCase(name))) << static_cast<int>(unit);
    }
}

TEST(TextContract, NamesInTheOrderOfTheLocale) {
    const wchar_t* const sorted[] = {L"2007-03-05", L"2007-03-15", L"apple", L"Apple", L"banana", L"Zebra"};
    for (size_t i = 0; i + 1 < std::size(sorted); ++i) {
        EXPECT_LT(CompareNames(sorted[i], sorted[i + 1]), 0) << sorted[i];
        EXPECT_GT(CompareNames(sorted[i + 1], sorted[i]), 0) << sorted[i];
    }
    EXPECT_EQ(CompareNames(L"Work", L"Work"), 0);
}

}  // namespace

}  // namespace platform
