#include <iterator>

#include "platform/Locale.h"
#include "platform/TextEncoding.h"
#include "tests/contract/OnDevice.h"

using namespace contract;
using namespace platform;

namespace {

using DateContract = DeviceContract;

// The day of the week is deliberately wrong: callers pass what they were given.
DateTime Moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return {year, month, 6, day, hour, minute, second, 0};
}

// Over the end of a century that has no leap day and one that has.
TEST_F(DateContract, DaysFollowOneAnother) {
    for (const int year : {1900, 2000}) {
        const DateTime next = AddSeconds(Moment(year, 2, 28, 23, 59, 59), 1);
        EXPECT_EQ(next.month * 100 + next.day, year == 1900 ? 301 : 229);
        EXPECT_EQ(AddSeconds(next, -1).second, 59);
    }
    EXPECT_EQ(DayOfWeek(2007, 3, 15), 4);
    EXPECT_TRUE(IsValidDate(1601, 1, 1) && IsValidDate(9999, 12, 31));
    for (const auto& [year, month, day] :
         {std::tuple{1600, 12, 31}, {2026, 0, 1}, {2026, 13, 1}, {2026, 11, 0}})
        EXPECT_FALSE(IsValidDate(year, month, day)) << year << "-" << month << "-" << day;
}

TEST_F(DateContract, TextsOfTheUsersLocale) {
    const DateTime day = Moment(2007, 3, 5, 20, 30, 5);
    const std::pair<std::wstring, const wchar_t*> texts[] = {
        {ShortDate(day), L"3/5/2007"},
        {LongDate(day), L"Monday, March 5, 2007"},
        {DatePicture(day, L"d.M.yy ddd',' MMM yyyy-MM-dd dddd"), L"5.3.07 Mon, Mar 2007-03-05 Monday"},
        {ShortDate(Moment(2004, 2, 30)) + LongDate(DateTime()) + YearAndMonth(2026, 13), L""},
        {YearAndMonth(2007, 3), L"March 2007"},
        {DayName(0) + DayName(6) + ShortDayName(0) + ShortDayName(6), L"MondaySundayMonSun"},
        {DateAndTime(day), L"3/5/2007 8:30:05 PM"},
        {DateAndTime(Moment(2007, 3, 15, 0, 0, 1)), L"3/15/2007 12:00:01 AM"},
        {DateAndTime(Moment(2007, 3, 15, 12, 5, 9)), L"3/15/2007 12:05:09 PM"},
        {DateAndTime(Moment(2007, 3, 15)), L"3/15/2007"},
        {DateAndTime(Moment(2007, 2, 29, 9, 5, 9)), L""}};
    for (const auto& [text, expected] : texts) EXPECT_EQ(text, expected);
    EXPECT_EQ(FirstDayOfWeek(), 6);
}

TEST_F(DateContract, AnsiBothWays) {
    std::string bytes;
    std::wstring text;
    EXPECT_TRUE(ToAnsi(L"Caf\u00E9 \u4E2D\r\n", bytes));
    EXPECT_EQ(bytes, "Caf\xE9 ?\r\n");
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_TRUE(FromAnsi(all, text) && ToAnsi(text, bytes));
    EXPECT_EQ(bytes, all) << "every byte of the code page comes back";
}

TEST_F(DateContract, NamesAreComparedByCodeUnitsWithoutCaseAndSortedByTheLocale) {
    for (const auto& [a, b, areEqual] :
         {std::tuple{L"\\My \u00C9t\u00E9\\A.IKW", L"\\my \u00E9T\u00C9\\a.ikw", true},
          {L"a.ikw", L"a.ikwz", false},
          {L"co-op", L"coop", false},
          {L"e\u0301", L"\u00E9", false}}) {
        EXPECT_EQ(EqualNoCase(a, b), areEqual) << a;
        EXPECT_EQ(LowerCase(a) == LowerCase(b), areEqual) << a;
    }
    const wchar_t* const sorted[] = {L"2007-03-05", L"2007-03-15", L"apple", L"Apple", L"banana", L"Zebra"};
    for (size_t i = 0; i + 1 < std::size(sorted); ++i) {
        EXPECT_LT(CompareNames(sorted[i], sorted[i + 1]), 0) << sorted[i];
        EXPECT_GT(CompareNames(sorted[i + 1], sorted[i]), 0) << sorted[i];
    }
}

}  // namespace
