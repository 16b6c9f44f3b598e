#include "app/store/DayFolder.h"
#include "app/store/FileStreams.h"
#include "app/store/JournalReader.h"
#include "app/store/NoteJournal.h"
#include "app/store/PenSettings.h"
#include "app/store/Settings.h"
#include "app/store/StorePaths.h"
#include "tests/support/DeskTest.h"

namespace {

using store::SettingId;

class Store : public testing_support::DeskTest {};

TEST_F(Store, PensAndColours) {
    store::PenSettings pen = store::LoadPenSettings();
    EXPECT_THAT(pen.recentColors,
                testing::ElementsAre(0x808080u, 0x4040FFu, 0x40FF40u, 0xFF4040u, 0xFF40FFu));
    EXPECT_EQ(pen.backgroundColor, 0xFFFFFFu);
    device.SetSetting(L"PenInfo", 0x7F010064);
    EXPECT_EQ(store::LoadPenSettings().penSize, 100);
    EXPECT_EQ(store::LoadPenSettings().penStyle, ink::PenStyle::Classic);
    device.SetSetting(L"LastPenColor", 0x123456);
    device.files.fault = [](platform::host::FileCall, const std::wstring&) {
        return platform::FileError::Other;
    };
    store::SaveColors(store::LoadPenSettings());
    EXPECT_EQ(store::LoadPenSettings().recentColors[0], 0x808080u);
    EXPECT_EQ(device.NumberSetting(L"LastPenColor"), 0x123456u);
}

TEST_F(Store, SettingsAsOthersMayWriteThem) {
    for (const size_t length : {258u, 259u}) {  // longer than a reader takes is unreadable
        device.SetSetting(L"RootDirPath", L"\\" + std::wstring(length, L'a'));
        EXPECT_EQ(store::Settings::Text(SettingId::RootDirPath).size(), length == 258 ? 259u : 0u);
    }
    device.SetSetting(L"TextMemoWordWrap", 1);
    EXPECT_EQ(store::Settings::Number(SettingId::TextMemoWordWrap), 1u);
}

TEST_F(Store, EnsureFoldersMakesEveryLevelButNoStorage) {
    device.files.Put(L"\\F", "a file in the way");
    device.files.PutFolder(L"\\\\server\\share");
    for (const wchar_t* path : {L"\\A\\B b\\C\\\\", L"\\D\\E", L"H\\I", L"\\Storage Cards\\Ink",
                                L"\\\\server\\share\\Ink\\Reminders\\2007-03-05\\"}) {
        store::EnsureFolders(path);
        const std::wstring folder = store::WithoutTrailingBackslashes(path);
        EXPECT_TRUE(store::IsFolder(folder.front() == L'\\' ? folder : L"\\" + folder));
    }
    const size_t before = device.files.Nodes().size();
    for (const wchar_t* path :
         {L"\\F\\G\\", L"\\Storage Card\\Ink\\", L"\\\\other\\share\\Ink\\", L"\\\\other\\", L"\\X:\\Ink"})
        store::EnsureFolders(path);
    EXPECT_EQ(device.files.Nodes().size(), before);
    EXPECT_TRUE(store::IsFile(L"\\F"));
    EXPECT_TRUE(store::IsFolder(L"\\\\SERVER\\share"));
    EXPECT_FALSE(store::IsFolder(L"\\server")) << "a share is no folder of the root";
}

TEST_F(Store, PathForms) {
    EXPECT_EQ(store::WithBackslash(L"a"), L"a");
    for (const wchar_t* path : {L"ab", L"ab\\"}) EXPECT_EQ(store::WithBackslash(path), L"ab\\");
    EXPECT_EQ(store::FolderOf(L"b.ikw"), L"");
    EXPECT_EQ(store::MemoPath(L"\\A\\b.c.ikw"), L"\\A\\b.c.txt");
}

TEST_F(Store, NamesThatAreTakenOrTooLong) {
    for (const size_t length : {1u, 247u, 248u, 251u}) {
        const std::wstring name(length, L'a');
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 11})
            device.files.Put(store::NumberedNotePath(L"\\Ink\\" + name + L".ikw", n), "x");
        device.files.Put(L"\\Ink\\" + std::wstring(length, L'A') + L".IKW", "x");
        const std::wstring cut = name.substr(0, 246);
        EXPECT_EQ(store::FreeNotePath(L"\\Ink\\" + name + L".ikw"), L"\\Ink\\" + cut + L" (10).ikw");
    }
}

TEST_F(Store, DayFolders) {
    using store::DayFolder;
    EXPECT_EQ(DayFolder({2007, 3, 0, 5, 0, 0, 0, 0}).Name(), L"2007-03-05");
    EXPECT_EQ(DayFolder::Named(L"2007-03-05")->LongText(), L"Monday, March 5, 2007");
    EXPECT_EQ(DayFolder::Named(L"2007-03-05")->TitleText(), L"Monday, 3/5/2007");
    EXPECT_EQ(DayFolder::Named(L"2007-02-31")->LongText(), L"2007-02-31") << "such notes stay in sight";
    for (const wchar_t* name : {L"2007-03-05", L"2007-02-31", L"+207-03-05"}) {
        ASSERT_TRUE(DayFolder::Named(name)) << name;
        EXPECT_EQ(DayFolder::Named(name)->Name(), name);
        EXPECT_EQ(DayFolder::Named(name)->IsOfCalendar(), name == std::wstring(L"2007-03-05"));
    }
    for (const wchar_t* name : {L"2007-3-05", L"2007-00-05", L"2007/03-05", L"2007-03/05", L"0000-03-05"})
        EXPECT_FALSE(DayFolder::Named(name)) << name;
}

// What comes behind a write that failed is never told: it could not be replayed.
TEST_F(Store, AJournalIsReadToItsFirstGap) {
    device.files.Put(L"\\a.txt", "jam");
    const ink::InkPage page;
    store::NoteJournal journal, other;
    journal.Begin(page, L"\\b.ikw");
    journal.MemoOpened(L"\\a.txt");
    other.MemoTyped(L"in a journal of its own");
    journal.MemoTyped(L"tea");
    journal.Saving(L"\\c.ikw");
    const uint64_t room = std::exchange(device.files.capacity, device.files.UsedBytes());
    journal.MemoTyped(L"coffee");
    device.files.capacity = room;
    journal.MemoTyped(L"milk");
    const auto expectLast = [](const std::wstring& told) {
        ASSERT_EQ(store::JournalFiles().size(), 2u);
        platform::File file = platform::File::OpenForReading(store::JournalFiles()[1]);
        store::FileSource source(file);
        store::JournalStory story;
        ASSERT_TRUE(store::ReadJournal(source, story));
        EXPECT_EQ(story.proposedPath + story.memoPath + story.memo + story.savingPath, told);
        EXPECT_TRUE(story.memoStamp.exists && story.memoStamp == store::StampOf(story.memoPath));
    };
    expectLast(L"\\b.ikw\\a.txttea\\c.ikw");
    journal.Begin(page, L"\\d.ikw");
    journal.MemoTyped(L"milk");
    journal.Leave();
    expectLast(L"\\d.ikw\\a.txtmilk");
    other.MemoClosed();
    EXPECT_EQ(store::JournalFiles().size(), 1u) << "without steps nothing is left to tell";
}

}  // namespace
