#include "editor/FileNamePattern.h"
#include "tests/support/DeskTest.h"

namespace {

using editor::NoteKind;
using platform::DateTime;

class FileNamePattern : public testing_support::DeskTest {};

TEST_F(FileNamePattern, WhatAPatternMakes) {
    const DateTime march{2007, 3, 1, 5, 9, 7, 5, 0};
    const auto at = [](int hour) { return DateTime{2017, 12, 1, 15, hour, 30, 40, 0}; };
    const auto expand = [](const wchar_t* pattern, const DateTime& moment, const wchar_t* folder = L"\\",
                           NoteKind kind = NoteKind::Ordinary) {
        return editor::ExpandFileNamePattern(pattern, kind, folder, moment);
    };
    device.SetSetting(L"RootDirPath", L"\\Ink\\");
    EXPECT_EQ(expand(L"%f %y %Y %m/%M %d/%D", march, L"\\Work\\ My Plans\\"), L"My Plans 07 2007 03/3 05/5");
    EXPECT_EQ(expand(L"%g %h %G %H %i.%s %a%A", march), L"9 09 9 09 07.05 amAM");
    EXPECT_EQ(expand(L"%y %m/%M %d/%D %i.%s", at(0)), L"17 12/12 15/15 30.40");
    EXPECT_EQ(expand(L"100%", march), L"100%");
    EXPECT_EQ(expand(L"%%d %q", march), L"%d %q");
    EXPECT_EQ(expand(L"%g %h %a %A", at(0)), L"0 00 am AM") << "as names of earlier releases";
    EXPECT_EQ(expand(L"%g %h %a %A", at(11)), L"11 11 am AM");
    EXPECT_EQ(expand(L"%g %h %a %A", at(12)), L"12 12 pm PM");
    EXPECT_EQ(expand(L"%g %h %a %A", at(13)), L"1 01 pm PM");
    EXPECT_EQ(expand(L"%F", march, L"\\INK\\Work\\ Plans \\"), L"Work  Plans");
    EXPECT_EQ(expand(L"%F", march, L"\\Inkling\\Plans\\"), L"Plans");
    EXPECT_EQ(expand(L"%F", march, L"\\Ink\\Reminders\\2007-03-05\\", NoteKind::Reminder), L"2007-03-05");
    device.SetSetting(L"RootDirPath", L"");
    EXPECT_EQ(expand(L"%F", march, L"\\Ink\\Work\\Plans\\"), L"Plans") << "no root";
}

}  // namespace
