#include "app/CommandLine.h"
#include "tests/support/DeskTest.h"

namespace {

using app::ParseCommandLine;
using app::StartRequest;

class CommandLine : public testing_support::DeskTest {};

struct Case {
    const wchar_t* line;
    const wchar_t* target;
    bool alarmMode = false;
    bool manageMode = false;
    const wchar_t* code = L"";
    const wchar_t* caption = L"";
};

const Case kCases[] = {
    {L"", L""},
    {L"  \"\\Ink\\A note.ikw\"  ", L"\\Ink\\A note.ikw"},
    {L"\\Ink\\a.ikw", L"\\Ink\\a.ikw"},
    {L"C:\\Notes\\a.ikw", L"\\C:\\Notes\\a.ikw"},
    {L"\"\\Ink\\a.ikw\" /alarm", L"\\Ink\\a.ikw", true},
    {L"\"\\Ink\\a.IKW\" /ALARM", L"\\Ink\\a.IKW", true},
    {L"\\Ink\\a.ikw /alarm", L"\\Ink\\a.ikw", false},  // the suffix includes the closing quote
    {L"\"\\Ink\\a.txt\" /alarm", L"\\Ink\\a.txt", false},
    {L"\\Ink\\a.ikw /alarms", L""},
    {L"/unknown", L""},
    {L"/newnotes", L"\\Card\\Ink\\New Notes\\"},
    {L"/NewNotes Work", L"\\Card\\Ink\\Work\\"},
    {L"/newnotes  \"Work\\Plans\" ", L"\\Card\\Ink\\Work\\Plans\\"},
    {L"/newnotes \\Other\\Place", L"\\Other\\Place\\"},
    {L"/newnotes D:\\Place", L"\\D:\\Place\\"},
    {L"/manage", L"\\Card\\Ink\\New Notes\\", false, true},
    {L"/manage Work", L"\\Card\\Ink\\Work\\", false, true},
    {L"/manage \\Storage Card\\Ink", L"\\Storage Card\\Ink\\", false, true},
    {L"/newreminder 2004-02-29", L"\\Card\\Ink\\Reminders\\2004-02-29\\", false, false, L"",
     L"Sunday, 2/29/2004"},
    {L"/newreminder 2004-02-30", L""},
    {L"/newreminder 2004-2-3", L""},
    {L"/newreminder 2004x02x03", L""},
    {L"/newreminder", L""},
    {L"/newalarm 200703155203000", L"\\Card\\Ink\\New Notes\\", false, false, L"200703155203000"},
    {L"/newalarm 200703155203000 Work", L"\\Card\\Ink\\Work\\", false, false, L"200703155203000"},
    {L"/newalarm 20070315520300", L""},
    {L"/newalarm 2007031552030.0", L""},
};

TEST_F(CommandLine, EverySwitchAndItsArguments) {
    device.SetSetting(L"RootDirPath", L"\\Card\\Ink\\\\\\");
    device.files.PutFolder(L"\\Storage Card");
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::Message() << std::string(c.line, c.line + std::wcslen(c.line)));
        const StartRequest request = ParseCommandLine(c.line);
        EXPECT_EQ(request.target, c.target);
        EXPECT_EQ(request.alarmMode, c.alarmMode);
        EXPECT_EQ(request.manageMode, c.manageMode);
        EXPECT_EQ(request.alarmTimeCode, c.code);
        EXPECT_EQ(request.caption, c.caption);
        const bool isFolder = !request.target.empty() && request.target.back() == L'\\';
        if (isFolder && request.target[2] != L':') {
            EXPECT_TRUE(device.files.Has(request.target));
        }
    }
    EXPECT_FALSE(device.files.Has(L"\\Card\\Ink\\Reminders\\2004-02-30"));
}

TEST_F(CommandLine, WithoutARootTheSwitchesThatNeedItAreIgnored) {
    const std::wstring tooLong(300, L'a');
    for (const std::wstring& root : {std::wstring(), std::wstring(L"\\\\"), tooLong}) {
        device.SetSetting(L"RootDirPath", root);
        for (const wchar_t* line : {L"/newnotes", L"/newnotes \\Work", L"/newreminder 2004-02-29",
                                    L"/newalarm 200703155203000", L"/manage Work"}) {
            const StartRequest request = ParseCommandLine(line);
            EXPECT_EQ(request.target, L"");
            EXPECT_EQ(request.caption, L"");
            EXPECT_EQ(request.manageMode, std::wstring(line) == L"/manage Work");
        }
    }
    EXPECT_FALSE(device.files.Has(L"\\Work"));
}

}  // namespace
