#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/TextEncoding.h"
#include "tests/contract/Driver.h"

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
        EXPECT_EQ(end.year, each.end.year);
        EXPECT_EQ(end.month, each.end.month);
        EXPECT_EQ(end.day, each.end.day);
        EXPECT_EQ(end.dayOfWeek, each.end.dayOfWeek);
        EXPECT_EQ(end.hour, each.end.hour);
        EXPECT_EQ(end.minute, each.end.minute);
        EXPECT_EQ(end.second, each.end.second);
    }
}

TEST(DateContract, TextsOfTheUsersLocale) {
    const DateTime day = Moment(2007, 3, 5, 20, 30, 5);
    EXPECT_EQ(ShortDate(day), L"3/5/2007");
    EXPECT_EQ(LongDate(day), L"Monday, March 5, 2007");
    EXPECT_EQ(DatePicture(day, L"dddd',' "), L"Monday, ");
    EXPECT_EQ(DatePicture(day, L"yyyy-MM-dd"), L"2007-03-05");
    EXPECT_EQ(DatePicture(day, L"d.M.yy ddd MMM"), L"5.3.07 Mon Mar");
    EXPECT_EQ(ShortDate(Moment(2004, 2, 30)), L"");
    EXPECT_EQ(LongDate(DateTime()), L"");
}

TEST(DateContract, DateAndTimeTogether) {
    const struct {
        DateTime moment;
        const wchar_t* text;
    } kCases[] = {{Moment(2007, 3, 15, 20, 30, 0), L"3/15/2007 8:30:00 PM"},
                  {Moment(2007, 3, 15, 0, 0, 1), L"3/15/2007 12:00:01 AM"},
                  {Moment(2007, 3, 15, 12, 5, 9), L"3/15/2007 12:05:09 PM"},
                  {Moment(2007, 3, 15, 9, 5, 9, 999), L"3/15/2007 9:05:09 AM"},
                  {Moment(2007, 3, 15), L"3/15/2007"},
                  {Moment(2007, 2, 29, 9, 5, 9), L""}};
    for (const auto& each : kCases) EXPECT_EQ(DateAndTime(each.moment), each.text);
}

TEST(DateContract, MonthsAndDaysHaveNames) {
    EXPECT_EQ(YearAndMonth(2007, 3), L"March 2007");
    EXPECT_EQ(YearAndMonth(2026, 12), L"December 2026");
    EXPECT_EQ(YearAndMonth(2026, 13), L"");
    EXPECT_EQ(DayName(0), L"Monday");
    EXPECT_EQ(DayName(6), L"Sunday");
    EXPECT_EQ(ShortDayName(0), L"Mon");
    EXPECT_EQ(ShortDayName(6), L"Sun");
    EXPECT_EQ(FirstDayOfWeek(), 6);
}

TEST(DateContract, ClocksRunForward) {
    const contract::Driver driver;
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
    EXPECT_TRUE(ToAnsi(L"Caf\u00E9\r\n", bytes));
    EXPECT_EQ(bytes, "Caf\xE9\r\n");
    EXPECT_TRUE(FromAnsi(bytes, text));
    EXPECT_EQ(text, L"Caf\u00E9\r\n");
    EXPECT_TRUE(ToAnsi(L"a\u4E2Db", bytes));
    EXPECT_EQ(bytes, "a?b");
    EXPECT_TRUE(ToAnsi(L"", bytes));
    EXPECT_TRUE(FromAnsi("", text));
    EXPECT_TRUE(bytes.empty() && text.empty());
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_TRUE(FromAnsi(all, text) && ToAnsi(text, bytes));
    EXPECT_EQ(text.size(), all.size());
    EXPECT_EQ(bytes, all) << "every byte of the code page comes back";
}

TEST(TextContract, FileNameComparison) {
    EXPECT_TRUE(EqualNoCase(L"\\My Documents\\A.IKW", L"\\my documents\\a.ikw"));
    EXPECT_TRUE(EqualNoCase(L"\u00C9t\u00E9", L"\u00E9T\u00C9"));
    EXPECT_FALSE(EqualNoCase(L"a.ikw", L"a.ikwz"));
    EXPECT_FALSE(EqualNoCase(L"co-op", L"coop"));
    EXPECT_FALSE(EqualNoCase(L"e\u0301", L"\u00E9")) << "by code units";
    EXPECT_TRUE(EqualNoCase(L"", L""));
}

TEST(TextContract, LowerCaseIsTheSameForEqualNames) {
    EXPECT_EQ(LowerCase(L"\\My Documents\\A1 \u00C9.IKW"), L"\\my documents\\a1 \u00E9.ikw");
    EXPECT_EQ(LowerCase(L""), L"");
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
