#include "platform/ProgramEntry.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::host::ForeignWindow;
using testing::ElementsAre;
using testing::IsEmpty;

class Program : public testing_support::DeskTest {
  protected:
    // Takes the note of the only message that was shown.
    const platform::host::ShownMessage& OnlyMessage() {
        EXPECT_EQ(Desk().messages.size(), 1u);
        return Desk().messages.front();
    }
};

TEST_F(Program, AMissingNoteIsReportedAndTheManagerOpens) {
    Then([this] { EXPECT_EQ(Desk().Top()->Title(), L"Inkwright"); });
    Then(Close());
    Run(L"\\Ink\\gone.ikw");
    EXPECT_EQ(OnlyMessage().text, L"\\Ink\\gone.ikw\n\nFile Not Found!");
    EXPECT_EQ(OnlyMessage().caption, L" Error :: Inkwright");
    EXPECT_EQ(OnlyMessage().icon, platform::MessageIcon::Error);
}

TEST_F(Program, AMissingNoteOfAnAlarmSaysSo) {
    Then(Close());
    Run(L"\"\\Ink\\gone.ikw\" /alarm");
    EXPECT_EQ(OnlyMessage().caption, L" Alarm Error :: Inkwright");
    EXPECT_THAT(device.notifications, IsEmpty());
}

TEST_F(Program, TheTemporaryFolderIsCleanedOfPicturesOnly) {
    const std::wstring folder = L"\\My Documents\\Inkwright\\Temp";
    device.files.Put(folder + L"\\memo_2007-03-05(143012).bmp", "x");
    device.files.Put(folder + L"\\OLD.BMP", "x");
    device.files.Put(folder + L"\\keep.txt", "x");
    device.files.PutFolder(folder + L"\\folder.bmp");
    Then(Close());
    Run(L"");
    EXPECT_THAT(device.files.NamesIn(folder), testing::UnorderedElementsAre(L"keep.txt", L"folder.bmp"));
}

TEST_F(Program, TheKeyHoldsAllColoursAfterARun) {
    Then(Close());
    Run(L"");
    EXPECT_EQ(device.NumberSetting(L"LastPenColor"), 0x808080u);
    EXPECT_EQ(device.NumberSetting(L"PenColor_1"), 0x4040FFu);
    EXPECT_EQ(device.NumberSetting(L"PenColor_4"), 0xFF40FFu);
    EXPECT_EQ(device.NumberSetting(L"LastBGColor"), 0xFFFFFFu);
    EXPECT_FALSE(device.HasSetting(L"PenInfo"));
    EXPECT_EQ(device.Settings()[L"PenColor_2"].type, platform::RegistryType::Number);
}

TEST_F(Program, ANoteIsWrittenWithoutAnyRegistry) {
    device.registryFails = true;
    Then([this] {
        Desk().Stroke({{30, 100}, {40, 110}});
        Desk().Command(platform::kIdOk);
    });
    Then(Close());
    Run(testing_support::kNewNotes);
    const auto page = ReadBack(std::wstring(testing_support::kNewNotes) + L"New Notes 2007-03-05.ikw");
    EXPECT_EQ(page->Band(0)->At(0).Color(), 0x808080u);
    EXPECT_THAT(Desk().messages, IsEmpty());
}

TEST_F(Program, AnotherCopyIsToldToCloseAndWaitedForAtMostThreeRounds) {
    device.files.Put(L"\\a.ikw", testing_support::Words({5, 0xFFFFFF, 0, 268}));
    for (const int commandsUntilClosed : {1, 2, 100}) {
        device.otherCopies = {ForeignWindow{true, true, commandsUntilClosed, {}, {}},
                              ForeignWindow{false, false, 1, {}, {}}};
        const uint32_t before = device.ticks;
        Then(Close());
        Run(L"\\a.ikw");
        const int rounds = std::min(3, commandsUntilClosed);
        EXPECT_THAT(device.otherCopies[0].commands, testing::SizeIs(static_cast<size_t>(rounds)));
        EXPECT_THAT(device.otherCopies[0].commands, testing::Each(platform::kIdOk));
        EXPECT_THAT(device.otherCopies[1].commands, IsEmpty()) << "a disabled window is left alone";
        EXPECT_EQ(device.ticks - before, std::min(2u, static_cast<uint32_t>(commandsUntilClosed)) * 500u);
    }
}

TEST_F(Program, WithoutATargetTheCopyInFrontIsToldOnce) {
    device.otherCopies = {ForeignWindow{}, ForeignWindow{true, true, 1, {}, {}},
                          ForeignWindow{true, true, 1, {}, {}}};
    Then(Close());
    Run(L"");
    EXPECT_THAT(device.otherCopies[0].privateMessages, IsEmpty());
    EXPECT_THAT(device.otherCopies[1].privateMessages, ElementsAre(1u));
    EXPECT_THAT(device.otherCopies[2].privateMessages, IsEmpty());
    EXPECT_THAT(device.otherCopies[1].commands, IsEmpty());
}

TEST_F(Program, NothingIsWrittenForAStorageThatIsAway) {
    device.SetSetting(L"RootDirPath", L"\\Storage Card\\Ink");
    const std::wstring root = L"Reading '\\Storage Card\\Ink' failed!";
    const std::pair<const wchar_t*, std::vector<std::wstring>> kCases[] = {
        {L"/newnotes", {root}},
        {L"/newreminder 2007-03-08", {root}},
        {L"/newnotes \\Storage Card2\\Work", {L"Reading '\\Storage Card2\\Work' failed!", root}}};
    for (const auto& [commandLine, told] : kCases) {
        Desk().messages.clear();
        Then([this] { EXPECT_EQ(Desk().Top()->Title(), L"Inkwright") << "the manager"; });
        Then(Close());
        Run(commandLine);
        std::vector<std::wstring> texts;
        for (const auto& message : Desk().messages) texts.push_back(message.text);
        EXPECT_EQ(texts, told);
    }
    // A folder that is only not there yet is made when it is needed.
    Then([this] { EXPECT_EQ(Desk().Top()->Title(), L"[new] - Inkwright"); });
    Then(Close());
    Run(L"\\Elsewhere\\");
}

TEST_F(Program, AWindowThatCannotBeMadeEndsTheRunWithAMessage) {
    for (const wchar_t* commandLine : {L"", testing_support::kNewNotes}) {
        device.picturesLeft = 0;
        EXPECT_EQ(platform::RunProgram(commandLine), 1);
        EXPECT_EQ(Desk().outOfMemoryBoxes, 1);
        Desk().outOfMemoryBoxes = 0;
    }
}

TEST_F(Program, TheTodayScreenIsRefreshedThroughItsItemElseWhenTheItemIsEnabled) {
    auto& key = device.registry[L"HKLM\\Software\\Microsoft\\Today\\Items\\\"Inkwright Reminder\""];
    struct Case {
        bool itemWindow, todayScreen;
        char enabled;
        int notices, reloads;
    };
    for (const Case& c : {Case{true, true, 1, 1, 0}, Case{false, true, 1, 0, 1}, Case{false, true, 0, 0, 0},
                          Case{false, false, 1, 0, 0}}) {
        device.todayItemWindow = c.itemWindow;
        device.todayScreen = c.todayScreen;
        device.todayItemNotices = device.todayReloads = 0;
        key[L"Enabled"] = {platform::RegistryType::Number, std::string{c.enabled, 0, 0, 0}};
        Then(Close());
        Run(L"");
        EXPECT_EQ(device.todayItemNotices, c.notices);
        EXPECT_EQ(device.todayReloads, c.reloads);
    }
}

}  // namespace
