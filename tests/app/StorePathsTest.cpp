#include "app/StorePaths.h"
#include "tests/support/DeskTest.h"

namespace {

class StorePaths : public testing_support::DeskTest {};

TEST_F(StorePaths, TheRootHasOnePrefixHoweverItIsWritten) {
    EXPECT_EQ(app::RootPrefix(), L"\\My Documents\\Inkwright\\");
    for (const wchar_t* root : {L"\\Storage Card\\Ink\\\\\\", L"\\Storage Card\\Ink"}) {
        device.SetSetting(L"RootDirPath", root);
        EXPECT_EQ(app::RootPrefix(), L"\\Storage Card\\Ink\\");
    }
    EXPECT_EQ(app::TemporaryFolder(), L"\\My Documents\\Inkwright\\Temp\\");
}

TEST_F(StorePaths, EnsureFoldersMakesEveryLevel) {
    app::EnsureFolders(L"\\A\\B b\\C\\\\");
    EXPECT_TRUE(app::IsFolder(L"\\A\\B b\\C"));
    app::EnsureFolders(L"D\\E");
    EXPECT_TRUE(app::IsFolder(L"\\D\\E"));
    device.files.Put(L"\\F", "a file in the way");
    app::EnsureFolders(L"\\F\\G\\");
    EXPECT_TRUE(app::IsFile(L"\\F"));
    EXPECT_FALSE(app::IsFolder(L"\\F\\G"));
}

TEST_F(StorePaths, EnsureFoldersMakesNoStorage) {
    const size_t before = device.files.Nodes().size();
    for (const wchar_t* path :
         {L"\\Storage Card\\Ink\\", L"\\\\server\\share\\Ink\\", L"\\\\server\\", L"\\X:\\Ink"})
        app::EnsureFolders(path);
    EXPECT_EQ(device.files.Nodes().size(), before);
    device.files.PutFolder(L"\\\\server\\share");
    device.files.PutFolder(L"\\server\\share");
    for (const wchar_t* path :
         {L"\\\\server\\share\\Ink\\Reminders\\2007-03-05\\", L"\\Storage Cards\\Ink"}) {
        app::EnsureFolders(path);
        EXPECT_TRUE(app::IsFolder(app::WithoutTrailingBackslashes(path)));
    }
    EXPECT_TRUE(app::IsFolder(L"\\\\SERVER\\share"));
    EXPECT_FALSE(app::IsFolder(L"\\server\\share\\Ink")) << "a share is no folder of the root";
}

TEST_F(StorePaths, PathForms) {
    EXPECT_EQ(app::WithBackslash(L""), L"");
    EXPECT_EQ(app::WithBackslash(L"a"), L"a");
    EXPECT_EQ(app::WithBackslash(L"ab"), L"ab\\");
    EXPECT_EQ(app::WithBackslash(L"ab\\"), L"ab\\");
    EXPECT_EQ(app::FolderOf(L"\\A\\b.ikw"), L"\\A\\");
    EXPECT_EQ(app::FolderOf(L"b.ikw"), L"");
    EXPECT_EQ(app::MemoPath(L"\\A\\b.c.ikw"), L"\\A\\b.c.txt");
    EXPECT_EQ(app::MemoPath(L"\\A\\b"), L"");
}

TEST_F(StorePaths, DateFolderNames) {
    platform::DateTime day;
    ASSERT_TRUE(app::ParseDateFolderName(L"2007-03-05", day));
    EXPECT_EQ(day.dayOfWeek, 1);
    EXPECT_EQ(app::DateFolderName(day), L"2007-03-05");
    for (const wchar_t* bad :
         {L"2007-3-05", L"2007-00-05", L"2007-02-29", L"2007/03/05", L"2007-03-055", L"+207-03-05"}) {
        EXPECT_FALSE(app::ParseDateFolderName(bad, day)) << std::wstring(bad).size();
    }
}

}  // namespace
