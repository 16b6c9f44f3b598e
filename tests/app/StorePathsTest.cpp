#include "app/store/DayFolder.h"
#include "app/store/StoreListing.h"
#include "app/store/StorePaths.h"
#include "tests/support/DeskTest.h"

namespace {

class StorePaths : public testing_support::DeskTest {};

TEST_F(StorePaths, TheRootHasOnePrefixHoweverItIsWritten) {
    EXPECT_EQ(store::RootPrefix(), L"\\My Documents\\Inkwright\\");
    for (const wchar_t* root : {L"\\Storage Card\\Ink\\\\\\", L"\\Storage Card\\Ink"}) {
        device.SetSetting(L"RootDirPath", root);
        EXPECT_EQ(store::RootPrefix(), L"\\Storage Card\\Ink\\");
    }
    EXPECT_EQ(store::TemporaryFolder(), L"\\My Documents\\Inkwright\\Temp\\");
}

TEST_F(StorePaths, EnsureFoldersMakesEveryLevelButNoStorage) {
    device.files.Put(L"\\F", "a file in the way");
    device.files.PutFolder(L"\\\\server\\share");
    device.files.PutFolder(L"\\server\\share");
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
    EXPECT_FALSE(store::IsFolder(L"\\server\\share\\Ink")) << "a share is no folder of the root";
}

TEST_F(StorePaths, PathForms) {
    EXPECT_EQ(store::WithBackslash(L"a"), L"a");
    for (const wchar_t* path : {L"ab", L"ab\\"}) EXPECT_EQ(store::WithBackslash(path), L"ab\\");
    EXPECT_EQ(store::FolderOf(L"\\A\\b.ikw"), L"\\A\\");
    EXPECT_EQ(store::FolderOf(L"b.ikw"), L"");
    EXPECT_EQ(store::MemoPath(L"\\A\\b.c.ikw"), L"\\A\\b.c.txt");
    EXPECT_EQ(store::MemoPath(L"\\A\\b"), L"");
}

TEST_F(StorePaths, DayFolders) {
    using store::DayFolder;
    platform::DateTime date;
    date.year = 2007, date.month = 3, date.day = 5;
    EXPECT_EQ(DayFolder(date).Name(), L"2007-03-05");
    EXPECT_EQ(DayFolder::Named(L"2007-03-05")->LongText(), L"Monday, March 5, 2007");
    EXPECT_EQ(DayFolder::Named(L"2007-03-05")->TitleText(), L"Monday, 3/5/2007");
    EXPECT_EQ(DayFolder::Named(L"2007-02-31")->LongText(), L"2007-02-31")
        << "wrongly dated notes stay in sight";
    for (const wchar_t* name : {L"2007-03-05", L"2007-02-31", L"+207-03-05"}) {
        ASSERT_TRUE(DayFolder::Named(name)) << std::wstring(name).size();
        EXPECT_EQ(DayFolder::Named(name)->Name(), name);
        EXPECT_EQ(DayFolder::Named(name)->IsOfCalendar(), name == std::wstring(L"2007-03-05"));
    }
    for (const wchar_t* name : {L"2007-3-05", L"2007-00-05", L"2007/03/05", L"2007-03-055", L"0000-03-05"})
        EXPECT_FALSE(DayFolder::Named(name)) << std::wstring(name).size();
}

}  // namespace
