#include "platform/ProgramEntry.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::host::ForeignWindow;
using testing::IsEmpty;
using testing_support::SeenBox;

class Program : public testing_support::DeskTest {
  protected:
    void TearDown() override { CheckBoxes(); }
};

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
    // Nothing is written for a storage that is away; a folder that is only not there yet is made when it is
    // needed.
    device.SetSetting(L"RootDirPath", L"\\Storage Card\\Ink");
    const SeenBox root{L"Reading '\\Storage Card\\Ink' failed!", L" Error"};
    const SeenBox other{L"Reading '\\Storage Card2\\Work' failed!", L" Error"};
    expect(L"/newnotes", {root}, L"Inkwright");
    expect(L"/newreminder 2007-03-08", {root}, L"Inkwright");
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
    const std::pair<const wchar_t*, uint32_t> kColors[] = {{L"LastPenColor", 0x808080},
                                                           {L"PenColor_1", 0x4040FF},
                                                           {L"PenColor_4", 0xFF40FF},
                                                           {L"LastBGColor", 0xFFFFFF}};
    for (const auto& [name, color] : kColors) EXPECT_EQ(device.NumberSetting(name), color);
    EXPECT_FALSE(device.HasSetting(L"PenInfo"));
}

TEST_F(Program, ANoteIsWrittenWithoutAnyRegistry) {
    device.registryFails = true;
    Run(testing_support::kNewNotes, {Write({{30, 100}, {40, 110}}), Close(), Close()});
    const auto page = ReadBack(std::wstring(testing_support::kNewNotes) + L"New Notes 2007-03-05.ikw");
    EXPECT_EQ(page->Band(0)->At(0).Color(), 0x808080u);
}

TEST_F(Program, AnotherCopyIsToldToCloseAndWaitedForAtMostThreeRounds) {
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
}

TEST_F(Program, WithoutATargetTheCopyInFrontIsToldOnce) {
    // Enabled and in front; the first is only one of the two.
    device.otherCopies = {ForeignWindow{true, false, 1, {}, {}}, ForeignWindow{false, true, 1, {}, {}},
                          ForeignWindow{true, true, 1, {}, {}}, ForeignWindow{true, true, 1, {}, {}}};
    Run(L"", {Close()});
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(device.otherCopies[i].privateMessages.size(), i == 2 ? 1u : 0u) << i;
        EXPECT_THAT(device.otherCopies[i].commands, IsEmpty());
    }
    EXPECT_EQ(device.otherCopies[2].privateMessages[0], 1u);
}

TEST_F(Program, AWindowThatCannotBeMadeEndsTheRunWithAMessage) {
    for (const wchar_t* commandLine : {L"", testing_support::kNewNotes}) {
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
        int notices, reloads;
    } kCases[] = {
        {true, true, 1, 1, 0}, {false, true, 1, 0, 1}, {false, true, 0, 0, 0}, {false, false, 1, 0, 0}};
    for (const auto& c : kCases) {
        device.todayItemWindow = c.itemWindow;
        device.todayScreen = c.todayScreen;
        device.todayItemNotices = device.todayReloads = 0;
        key[L"Enabled"] = {platform::RegistryType::Number, std::string{c.enabled, 0, 0, 0}};
        Run(L"", {Close()});
        EXPECT_EQ(device.todayItemNotices, c.notices);
        EXPECT_EQ(device.todayReloads, c.reloads);
    }
}

}  // namespace
