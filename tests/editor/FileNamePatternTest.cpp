#include "editor/FileNamePattern.h"
#include "tests/support/DeskTest.h"

namespace {

using editor::NoteKind;

class FileNamePattern : public testing_support::DeskTest {};

// Midnight is hour 0 of the twelve too, as in names of earlier releases.
TEST_F(FileNamePattern, WhatAPatternMakes) {
    const auto expand = [](const wchar_t* pattern, int hour = 9, const wchar_t* folder = L"\\",
                           NoteKind kind = NoteKind::Ordinary) {
        return editor::ExpandFileNamePattern(pattern, kind, folder, {2007, 3, 1, 5, hour, 7, 5, 0});
    };
    device.SetSetting(L"RootDirPath", L"\\Ink\\");
    EXPECT_EQ(expand(L"%f %y %Y %m/%M %d/%D", 9, L"\\Work\\ My Plans\\"), L"My Plans 07 2007 03/3 05/5");
    EXPECT_EQ(expand(L"%i.%s %%d %q 100%"), L"07.05 %d %q 100%");
    for (const auto& [hour, text] : {std::pair{0, L"0 00 0 00 am AM"},
                                     {9, L"9 09 9 09 am AM"},
                                     {12, L"12 12 12 12 pm PM"},
                                     {13, L"1 01 13 13 pm PM"}})
        EXPECT_EQ(expand(L"%g %h %G %H %a %A", hour), text);
    EXPECT_EQ(expand(L"%F", 9, L"\\INK\\Work\\ Plans \\"), L"Work  Plans");
    EXPECT_EQ(expand(L"%F", 9, L"\\Inkling\\Plans\\"), L"Plans");
    EXPECT_EQ(expand(L"%F", 9, L"\\Ink\\Reminders\\2007-03-05\\", NoteKind::Reminder), L"2007-03-05");
    device.SetSetting(L"RootDirPath", L"");
    EXPECT_EQ(expand(L"%F", 9, L"\\Ink\\Work\\Plans\\"), L"Plans") << "no root";
}

}  // namespace
