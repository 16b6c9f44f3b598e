#include "app/store/FileStreams.h"
#include "app/store/JournalReader.h"
#include "app/store/NoteJournal.h"
#include "app/store/Settings.h"
#include "app/store/StorePaths.h"
#include "tests/support/DeskTest.h"

namespace {

using store::SettingId;

class Store : public testing_support::DeskTest {};

// Longer than a reader takes is unreadable.
TEST_F(Store, SettingsAsOthersMayWriteThem) {
    for (const size_t length : {258u, 259u}) {
        device.SetSetting(L"RootDirPath", L"\\" + std::wstring(length, L'a'));
        EXPECT_EQ(store::Settings::Text(SettingId::RootDirPath).size(), length == 258 ? 259u : 0u);
    }
}

TEST_F(Store, PathForms) {
    EXPECT_EQ(store::WithBackslash(L"a"), L"a");
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
