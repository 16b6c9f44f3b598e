#include "editor/FileNamePattern.h"
#include "tests/support/DeskTest.h"

namespace {

using editor::ExpandFileNamePattern;
using editor::NoteKind;
using platform::DateTime;

class FileNamePattern : public testing_support::DeskTest {};

TEST_F(FileNamePattern, EveryCode) {
    const std::wstring folder = L"\\Ink\\Work\\ My Plans\\";
    const DateTime march{2007, 3, 1, 5, 9, 7, 5, 0};
    struct Case {
        const wchar_t* pattern;
        const wchar_t* name;
    };
    for (const Case& c :
         {Case{L"%f", L"My Plans"}, Case{L"%y %Y", L"07 2007"}, Case{L"%m/%M %d/%D", L"03/3 05/5"},
          Case{L"%g %h %G %H", L"9 09 9 09"}, Case{L"%i.%s", L"07.05"}, Case{L"%a%A", L"amAM"},
          Case{L"100%", L"100%"}, Case{L"%%d %q", L"%d %q"}, Case{L"plain", L"plain"}}) {
        EXPECT_EQ(ExpandFileNamePattern(c.pattern, NoteKind::Ordinary, folder, march), c.name);
    }
}

TEST_F(FileNamePattern, TwelveHourClock) {
    struct Case {
        int hour;
        const wchar_t* name;
    };
    for (const Case& c : {Case{0, L"0 00 am AM"}, Case{11, L"11 11 am AM"}, Case{12, L"12 12 pm PM"},
                          Case{13, L"1 01 pm PM"}, Case{23, L"11 11 pm PM"}}) {
        const DateTime moment{2007, 3, 1, 5, c.hour, 30, 0, 0};
        EXPECT_EQ(ExpandFileNamePattern(L"%g %h %a %A", NoteKind::Ordinary, L"\\", moment), c.name);
    }
}

TEST_F(FileNamePattern, FolderPathNamesBelowTheRoot) {
    const auto names = [](NoteKind kind, const wchar_t* folder) {
        return ExpandFileNamePattern(L"%F", kind, folder, {});
    };
    EXPECT_EQ(names(NoteKind::Ordinary, L"\\Ink\\Work\\Projects\\"), L"Projects") << "without a root";
    device.SetSetting(L"RootDirPath", L"\\Ink\\");
    EXPECT_EQ(names(NoteKind::Ordinary, L"\\INK\\Work\\Projects\\"), L"Work Projects");
    EXPECT_EQ(names(NoteKind::Ordinary, L"\\Inkling\\Projects\\"), L"Projects");
    EXPECT_EQ(names(NoteKind::Reminder, L"\\Ink\\Reminders\\2007-03-05\\"), L"2007-03-05");
}

}  // namespace
