#include <fstream>

#include "app/CommandLine.h"
#include "platform/ProgramEntry.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::host::ForeignWindow;
using testing::IsEmpty;
using testing_support::kNewNotes;
using testing_support::SeenBox;

class Program : public testing_support::DeskTest {
  protected:
    void TearDown() override { CheckBoxes(); }
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

TEST_F(Program, ReadsEverySwitchAndItsArguments) {
    // Without a root the switches that need one are ignored.
    device.SetSetting(L"RootDirPath", L"\\\\");
    for (const wchar_t* line :
         {L"/newnotes", L"/newnotes \\Work", L"/newreminder 2004-02-29", L"/newalarm 200703155203000"})
        EXPECT_EQ(Asked(line), L"");
    EXPECT_EQ(Asked(L"/manage Work"), L" managed");
    device.SetSetting(L"RootDirPath", L"\\Card\\Ink\\\\\\");
    for (const wchar_t* storage : {L"\\Storage Card", L"\\\\server\\share"}) device.files.PutFolder(storage);
    int tried = 0;
    std::wifstream cases(INKWRIGHT_COMMAND_LINES);  // each line, and behind a tab what it asks for
    for (std::wstring line, asked; std::getline(cases, line, L'\t') && std::getline(cases, asked); ++tried)
        EXPECT_EQ(Asked(line), asked);
    EXPECT_EQ(tried, 21);
    for (const wchar_t* made : {L"New Notes", L"Work\\Plans", L"Reminders\\2004-02-29"})
        EXPECT_TRUE(device.files.Has(std::wstring(L"\\Card\\Ink\\") + made));
    EXPECT_TRUE(device.files.Has(L"\\\\server\\share\\Ink"));
    EXPECT_FALSE(device.files.Has(L"\\Card\\Ink\\Reminders\\2004-02-30") || device.files.Has(L"\\server"));
}

TEST_F(Program, WhatIsNotThereIsToldAndTheManagerOpens) {
    const auto expect = [this](const wchar_t* line, const std::vector<SeenBox>& boxes, const wchar_t* title) {
        for (const SeenBox& box : boxes) ExpectBox(box.text, box.caption)();
        Run(line, {ExpectTitle(title), Close()});
    };
    const std::wstring gone = L"\\Ink\\gone.ikw\n\nFile Not Found!";
    expect(L"\\Ink\\gone.ikw", {{gone, L" Error :: Inkwright"}}, L"Inkwright");
    expect(L"\"\\Ink\\gone.ikw\" /alarm", {{gone, L" Alarm Error :: Inkwright"}}, L"Inkwright");
    device.SetSetting(L"RootDirPath", L"\\My Documents\\Inkwright");
    expect(L"/newreminder 2007-03-08", {}, L"Thursday, 3/8/2007 - Inkwright");
    // Nothing is made for a storage that is away; a folder that is only not there yet is, when it is needed.
    device.SetSetting(L"RootDirPath", L"\\Storage Card\\Ink");
    const SeenBox root{L"Reading '\\Storage Card\\Ink' failed!", L" Error"};
    const SeenBox other{L"Reading '\\Storage Card2\\Work' failed!", L" Error"};
    expect(L"/newnotes", {root}, L"Inkwright");
    expect(L"/newnotes \\Storage Card2\\Work", {other, root}, L"Inkwright");
    expect(L"\\Elsewhere\\", {}, L"[new] - Inkwright");
}

TEST_F(Program, ARunCleansTheTemporaryFolderOfPicturesAndStoresTheColours) {
    const std::wstring folder = L"\\My Documents\\Inkwright\\Temp";
    for (const wchar_t* name : {L"\\memo_2007-03-05(143012).bmp", L"\\OLD.BMP", L"\\keep.txt"})
        device.files.Put(folder + name, "x");
    device.files.PutFolder(folder + L"\\folder.bmp");
    Run(L"", {Close()});
    EXPECT_THAT(device.files.NamesIn(folder), testing::UnorderedElementsAre(L"keep.txt", L"folder.bmp"));
    EXPECT_EQ(device.NumberSetting(L"PenColor_4"), 0xFF40FFu);
    EXPECT_EQ(device.NumberSetting(L"LastBGColor"), 0xFFFFFFu);
}

// Others close within three rounds; without a note to open the one in front takes over instead.
TEST_F(Program, OneCopyRunsAtATime) {
    device.files.Put(L"\\a.ikw", testing_support::Words({5, 0xFFFFFF, 0, 268}));
    for (const int commandsUntilClosed : {1, 2, 100}) {
        device.otherCopies = {ForeignWindow{true, true, commandsUntilClosed, {}, {}},
                              ForeignWindow{false, false, 1, {}, {}}};
        const uint32_t before = device.ticks;
        Run(L"\\a.ikw", {Close()});
        const std::vector<int> rounds(static_cast<size_t>(std::min(3, commandsUntilClosed)), platform::kIdOk);
        EXPECT_EQ(device.otherCopies[0].commands, rounds);
        EXPECT_THAT(device.otherCopies[1].commands, IsEmpty()) << "a disabled window is left alone";
        EXPECT_EQ(device.ticks - before, std::min(2u, static_cast<uint32_t>(commandsUntilClosed)) * 500u);
    }
    // Enabled and in front; the first is only one of the two.
    device.otherCopies = {ForeignWindow{true, false, 1, {}, {}}, ForeignWindow{false, true, 1, {}, {}},
                          ForeignWindow{true, true, 1, {}, {}}, ForeignWindow{true, true, 1, {}, {}}};
    Run(L"", {Close()});
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(device.otherCopies[i].privateMessages.size(), i == 2 ? 1u : 0u) << i;
        EXPECT_THAT(device.otherCopies[i].commands, IsEmpty());
    }
}

TEST_F(Program, AWindowThatCannotBeMadeEndsTheRunWithAMessage) {
    for (const wchar_t* commandLine : {L"", kNewNotes}) {
        device.picturesLeft = 0;
        EXPECT_EQ(platform::RunProgram(commandLine), 1);
        EXPECT_EQ(std::exchange(Desk().outOfMemoryBoxes, 0), 1);
    }
}

TEST_F(Program, TheTodayScreenIsRefreshedThroughItsItemElseWhenTheItemIsEnabled) {
    auto& key = device.registry[L"HKLM\\Software\\Microsoft\\Today\\Items\\\"Inkwright Reminder\""];
    const struct {
        bool itemWindow, todayScreen;
        char enabled;
        int reloads;
    } kCases[] = {{true, true, 1, 0}, {false, true, 1, 1}, {false, true, 0, 0}, {false, false, 1, 0}};
    for (const auto& c : kCases) {
        device.todayItemWindow = c.itemWindow;
        device.todayScreen = c.todayScreen;
        device.todayItemNotices = device.todayReloads = 0;
        key[L"Enabled"] = {platform::RegistryType::Number, std::string{c.enabled, 0, 0, 0}};
        Run(L"", {Close()});
        EXPECT_EQ(device.todayItemNotices, c.itemWindow ? 1 : 0);
        EXPECT_EQ(device.todayReloads, c.reloads);
    }
}

}  // namespace
