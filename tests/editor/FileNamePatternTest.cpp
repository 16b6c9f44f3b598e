#include "editor/FileNamePattern.h"
#include "tests/support/DeskTest.h"

namespace {

using editor::NoteKind;
using platform::DateTime;

class FileNamePattern : public testing_support::DeskTest {};

TEST_F(FileNamePattern, WhatAPatternMakes) {
    const DateTime march{2007, 3, 1, 5, 9, 7, 5, 0};
    const auto at = [](int hour) { return DateTime{2017, 12, 1, 15, hour, 30, 40, 0}; };
    const NoteKind note = NoteKind::Ordinary;
    const struct {
        const wchar_t* pattern;
        NoteKind kind;
        const wchar_t* folder;
        DateTime moment;
        const wchar_t* name;
    } kCases[] = {
        {L"%f %y %Y %m/%M %d/%D", note, L"\\Work\\ My Plans\\", march, L"My Plans 07 2007 03/3 05/5"},
        {L"%g %h %G %H %i.%s %a%A", note, L"\\", march, L"9 09 9 09 07.05 amAM"},
        {L"%y %m/%M %d/%D %i.%s", note, L"\\", at(0), L"17 12/12 15/15 30.40"},
        {L"100%", note, L"\\", march, L"100%"},
        {L"%%d %q", note, L"\\", march, L"%d %q"},
        {L"%g %h %a %A", note, L"\\", at(0), L"0 00 am AM"},  // as names of earlier releases
        {L"%g %h %a %A", note, L"\\", at(11), L"11 11 am AM"},
        {L"%g %h %a %A", note, L"\\", at(12), L"12 12 pm PM"},
        {L"%g %h %a %A", note, L"\\", at(13), L"1 01 pm PM"},
        {L"%F", note, L"\\INK\\Work\\ Plans \\", march, L"Work  Plans"},
        {L"%F", note, L"\\Inkling\\Plans\\", march, L"Plans"},
        {L"%F", NoteKind::Reminder, L"\\Ink\\Reminders\\2007-03-05\\", march, L"2007-03-05"},
    };
    device.SetSetting(L"RootDirPath", L"\\Ink\\");
    for (const auto& c : kCases)
        EXPECT_EQ(editor::ExpandFileNamePattern(c.pattern, c.kind, c.folder, c.moment), c.name);
    device.SetSetting(L"RootDirPath", L"");
    EXPECT_EQ(editor::ExpandFileNamePattern(L"%F", note, L"\\Ink\\Work\\Plans\\", march), L"Plans")
        << "no root";
}

}  // namespace
