// Texts, settings and dates of the native Linux port.
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/TextEncoding.h"
#include "platform/qt/system/CodePage.h"
#include "platform/qt/system/KeyFile.h"
#include "platform/qt/system/LocalTime.h"
#include "platform/qt/system/UserFolders.h"
#include "tests/contract/OnDevice.h"

namespace platform::qt {

namespace {

class LinuxText : public contract::DeviceContract {
  protected:
    std::string path_ = ConfigFolder() + "/test";
};

TEST_F(LinuxText, MemosKeepTheCodePageOfTheLanguage) {
    const struct {
        const char* locale;
        int page;
        std::wstring text;
        std::string bytes;
    } kCases[] = {{"de_DE.UTF-8", 1252, L"\u20AC\u00FC\u0081", "\x80\xFC\x81"},
                  {"C", 1252, L"\u0100\uFF21\u2212\u4E2D\uFB01\U0001F600", "AA-????"},
                  {"pl_PL", 1250, L"\u0142\u0105\u00F1", "\xB3\xB9n"},
                  {"ru", 1251, L"\u0416\u00E9",
                   "\xC6"
                   "e"},
                  {"el_GR", 1253, L"\u03A9\uF8AA", "\xD9\xAA"},
                  {"ja_JP.UTF-8", 932, L"\u65E5a\uFF71",
                   "\x93\xFA"
                   "a\xB1"},
                  {"zh_TW", 950, L"\u4E2D", "\xA4\xA4"},
                  {"zh_CN", 936, L"\u4E2D\u20AC", "\xD6\xD0\x80"},
                  {"ko_KR", 949, L"\uD55C", "\xC7\xD1"},
                  {"th_TH@x", 874, L"\u0E01", "\xA1"},
                  {"vi_VN", 1258, L"\u0111", "\xF0"}};
    for (const auto& each : kCases) {
        EXPECT_EQ(CodePageOf(each.locale), each.page) << each.locale;
        std::string bytes;
        std::string again;
        std::wstring text;
        EXPECT_TRUE(ToCodePage(each.page, each.text, bytes) && FromCodePage(each.page, each.bytes, text));
        EXPECT_EQ(bytes, each.bytes) << each.locale;
        EXPECT_TRUE(ToCodePage(each.page, text, again) && again == each.bytes) << each.locale;
    }
    // What was no text of the page comes back as it was; a page that nobody knows converts nothing.
    std::wstring text;
    std::string bytes;
    for (const int page : {874, 932, 936, 949, 950, 1250, 1251, 1253, 1254, 1255, 1256, 1257, 1258}) {
        for (int byte = 1; byte < 256; ++byte) {
            const std::string one(1, static_cast<char>(byte));
            EXPECT_TRUE(FromCodePage(page, one, text) && ToCodePage(page, text, bytes));
            EXPECT_EQ(bytes, one) << page << " " << byte;
        }
    }
    EXPECT_FALSE(ToCodePage(4711, L"a", bytes) || FromCodePage(4711, "a", text));
    setenv("INKWRIGHT_CODEPAGE", "1251", 1);
    EXPECT_TRUE(ToAnsi(L"\u0416", bytes) && bytes == "\xC6");
    unsetenv("INKWRIGHT_CODEPAGE");
}

TEST_F(LinuxText, DatesFollowTheUsersLocale) {
    const DateTime moment{2007, 3, 0, 5, 20, 30, 5, 0};
    const struct {
        const char* locale;
        std::vector<std::wstring> texts;
        int firstDay;
    } kCases[] = {{"de_DE.UTF-8", {L"05.03.2007", L"05.03.2007 20:30:05", L"M\u00E4rz 2007", L"Montag"}, 0},
                  {"ja_JP.UTF-8",
                   {L"2007/03/05", L"2007/03/05 20:30:05", L"2007\u5E743\u6708", L"\u6708\u66DC\u65E5"},
                   6},
                  {"C", {L"3/5/2007", L"3/5/2007 8:30:05 PM", L"March 2007", L"Monday"}, 6}};
    for (const auto& each : kCases) {
        setenv("LC_ALL", each.locale, 1);
        EXPECT_THAT((std::vector{ShortDate(moment), DateAndTime(moment), YearAndMonth(2007, 3), DayName(0)}),
                    testing::ElementsAreArray(each.texts));
        EXPECT_EQ(FirstDayOfWeek(), each.firstDay) << each.locale;
    }
}

TEST_F(LinuxText, MomentsOfThisPlaceBothWays) {
    const DateTime summer{2007, 7, 0, 15, 14, 0, 0, 250};
    time_t seconds = 0;
    EXPECT_TRUE(UniversalSeconds(summer, seconds) && seconds == 1184500800);
    const DateTime again = LocalTime({seconds, 250999999});
    EXPECT_TRUE(LocalTicks(again) == LocalTicks(summer) && again.milliseconds == 250 && again.month == 7);
    // By the calendar alone: no hour is missing on the day when the clocks are set.
    EXPECT_EQ(LocalTicks({2007, 3, 0, 26, 0, 0, 0, 0}) - LocalTicks({2007, 3, 0, 25, 0, 0, 0, 0}), 86400000);
    EXPECT_EQ(LocalTicks({2007, 3, 0, 1, 0, 0, 0, 1}) - LocalTicks({2007, 2, 0, 28, 23, 59, 59, 0}), 1001);
    const uint32_t start = TickMilliseconds();
    Pause(20);
    EXPECT_THAT(TickMilliseconds() - start, testing::AllOf(testing::Ge(20u), testing::Lt(5000u)));
    EXPECT_FALSE(UniversalSeconds({2007, 2, 0, 30, 0, 0, 0, 0}, seconds));
}

TEST_F(LinuxText, LettersAreComparedOneByOne) {
    for (const auto& [a, b, areEqual] : {std::tuple{L"\u03C3", L"\u03C2", true},
                                         {L"\u0436", L"\u0416", true},
                                         {L"\u0131", L"I", false},
                                         {L"\u00DF", L"SS", false}}) {
        EXPECT_EQ(EqualNoCase(a, b), areEqual) << a;
        EXPECT_EQ(LowerCase(a) == LowerCase(b), areEqual) << a;
    }
    EXPECT_EQ(SmallLetters(L"\u03C2\u00C9\u0130"), L"\u03C2\u00E9\u0130")
        << "only capital letters with a small one";
}

TEST_F(LinuxText, SettingsArePlainTextThatKeepsWhatPeopleWrote) {
    const std::string text =
        "# mine\n\n[Software\\A]\nPenInfo = 7\n\"Pen\" = number 4294967295\n\"Root\" = text "
        "\"\\\\a\\x0A1\\\"\xE2\x82\xAC\"\n"
        "\"Form\" = number \"%F\"\n\"Bytes\" = binary bytes 01 FF\n\"None\" = text bytes\n";
    KeyTable table = KeyTable::Parse(text);
    std::string plain = table.Text();
    EXPECT_EQ(plain, text);
    EXPECT_EQ(NumberOf(table.Find(L"software\\a", L"pen")->data), 4294967295u);
    EXPECT_EQ(UnitsOf(table.Find(L"Software\\A", L"Root")->data), std::u16string(u"\\a\n1\"\u20AC") + u'\0');
    EXPECT_TRUE(table.Remove(L"Software\\A", L"PEN") && !table.Remove(L"Software\\B", L"Root"));
    for (const char* odd :
         {"[a]\n\"x\" = number 4294967296\n", "[a]\n\"x\" = number -1\n", "[a]\n\"x\" = binary bytes 100\n",
          "[a]\n\"x\" = text \"open\n", "[a]\n\"x\\", "[a]\n\"x\" = text \"a\" b\n"}) {
        const KeyTable kept = KeyTable::Parse(odd);
        EXPECT_TRUE(kept.Values(L"a").empty());
        EXPECT_EQ(kept.Text().substr(0, std::string(odd).size()), odd) << "what is not understood stays";
    }
}

// Some of them are killed in the middle: what the others wrote is there, and the file is whole.
TEST_F(LinuxText, SettingsOfManyProcessesAreAllKept) {
    constexpr int kProcesses = 6;
    constexpr uint32_t kTimes = 30;
    std::vector<pid_t> processes;
    for (int i = 0; i < kProcesses; ++i) {
        processes.push_back(fork());
        if (processes.back() != 0) continue;
        prctl(PR_SET_PDEATHSIG, SIGKILL);  // or they would write for ever
        KeyFile file(path_);
        for (uint32_t n = 1; n <= kTimes || i % 2 != 0; ++n) {
            file.Change([&](KeyTable& table) {
                table.Set(L"k", {L"v" + std::to_wstring(i), RegistryType::Number, BytesOf(n)});
                return true;
            });
        }
        _exit(0);
    }
    for (int i = 0; i < kProcesses; i += 2) waitpid(processes[static_cast<size_t>(i)], nullptr, 0);
    for (int i = 1; i < kProcesses; i += 2) {
        kill(processes[static_cast<size_t>(i)], SIGKILL);
        waitpid(processes[static_cast<size_t>(i)], nullptr, 0);
    }
    KeyFile file(path_);
    const KeyTable* const table = file.Current();
    ASSERT_NE(table, nullptr);
    for (int i = 0; i < kProcesses; i += 2) {
        const KeyValue* const value = table->Find(L"k", L"v" + std::to_wstring(i));
        ASSERT_NE(value, nullptr);
        EXPECT_EQ(NumberOf(value->data), kTimes);
    }
    EXPECT_TRUE(file.Change([](KeyTable& changed) { return changed.Remove(L"k", L"v0"); }))
        << "no lock is left";
}

}  // namespace

}  // namespace platform::qt
