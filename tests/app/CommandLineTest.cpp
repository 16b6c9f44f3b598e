#include "app/CommandLine.h"
#include "tests/support/DeskTest.h"

namespace {

class CommandLine : public testing_support::DeskTest {
  protected:
    // What a line asks for: the target, and behind it whatever else.
    static std::wstring Asked(const std::wstring& line) {
        const app::StartRequest request = app::ParseCommandLine(line);
        std::wstring text = request.target;
        if (request.alarmMode) text += L" by an alarm";
        if (request.manageMode) text += L" managed";
        if (!request.alarmTimeCode.empty()) text += L" at " + request.alarmTimeCode;
        if (!request.caption.empty()) text += L" as " + request.caption;
        return text;
    }
};

TEST_F(CommandLine, EverySwitchAndItsArguments) {
    const std::pair<const wchar_t*, const wchar_t*> kCases[] = {
        {L"", L""},
        {L"  \"\\Ink\\A note.ikw\"  ", L"\\Ink\\A note.ikw"},
        {L"\\Ink\\a.ikw", L"\\Ink\\a.ikw"},
        {L"C:\\Notes\\a.ikw", L"\\C:\\Notes\\a.ikw"},
        {L"\"\\Ink\\a.ikw\" /alarm", L"\\Ink\\a.ikw by an alarm"},
        {L"\"\\Ink\\a.IKW\" /ALARM", L"\\Ink\\a.IKW by an alarm"},
        {L"\\Ink\\a.ikw /alarm", L"\\Ink\\a.ikw"},  // the suffix includes the closing quote
        {L"\"\\Ink\\a.txt\" /alarm", L"\\Ink\\a.txt"},
        {L"\\Ink\\a.ikw /alarms", L""},
        {L"/unknown", L""},
        {L"/newnotes", L"\\Card\\Ink\\New Notes\\"},
        {L"/NewNotes Work", L"\\Card\\Ink\\Work\\"},
        {L"/newnotes  \"Work\\Plans\" ", L"\\Card\\Ink\\Work\\Plans\\"},
        {L"/newnotes \\Other\\Place", L"\\Other\\Place\\"},
        {L"/newnotes D:\\Place", L"\\D:\\Place\\"},
        {L"/manage", L"\\Card\\Ink\\New Notes\\ managed"},
        {L"/manage Work", L"\\Card\\Ink\\Work\\ managed"},
        {L"/manage \\Storage Card\\Ink", L"\\Storage Card\\Ink\\ managed"},
        {L"/newreminder 2004-02-29", L"\\Card\\Ink\\Reminders\\2004-02-29\\ as Sunday, 2/29/2004"},
        {L"/newreminder 2004-02-30", L""},
        {L"/newreminder 2004-2-3", L""},
        {L"/newreminder 2004x02x03", L""},
        {L"/newreminder", L""},
        {L"/newalarm 200703155203000", L"\\Card\\Ink\\New Notes\\ at 200703155203000"},
        {L"/newalarm 200703155203000 Work", L"\\Card\\Ink\\Work\\ at 200703155203000"},
        {L"/newalarm 20070315520300", L""},
        {L"/newalarm 2007031552030.0", L""},
    };
    device.SetSetting(L"RootDirPath", L"\\Card\\Ink\\\\\\");
    device.files.PutFolder(L"\\Storage Card");
    for (const auto& [line, asked] : kCases) EXPECT_EQ(Asked(line), asked);
    for (const wchar_t* made : {L"New Notes", L"Work\\Plans", L"Reminders\\2004-02-29"})
        EXPECT_TRUE(device.files.Has(std::wstring(L"\\Card\\Ink\\") + made));
    EXPECT_FALSE(device.files.Has(L"\\Card\\Ink\\Reminders\\2004-02-30"));
}

TEST_F(CommandLine, WithoutARootTheSwitchesThatNeedItAreIgnored) {
    for (const std::wstring& root : {std::wstring(), std::wstring(L"\\\\"), std::wstring(300, L'a')}) {
        device.SetSetting(L"RootDirPath", root);
        for (const wchar_t* line :
             {L"/newnotes", L"/newnotes \\Work", L"/newreminder 2004-02-29", L"/newalarm 200703155203000"})
            EXPECT_EQ(Asked(line), L"");
        EXPECT_EQ(Asked(L"/manage Work"), L" managed");
    }
    EXPECT_FALSE(device.files.Has(L"\\Work"));
}

}  // namespace
