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

TEST_F(StorePaths, EnsureFoldersMakesEveryLevel) {
    store::EnsureFolders(L"\\A\\B b\\C\\\\");
    EXPECT_TRUE(store::IsFolder(L"\\A\\B b\\C"));
    store::EnsureFolders(L"D\\E");
    EXPECT_TRUE(store::IsFolder(L"\\D\\E"));
    device.files.Put(L"\\F", "a file in the way");
    store::EnsureFolders(L"\\F\\G\\");
    EXPECT_TRUE(store::IsFile(L"\\F"));
    EXPECT_FALSE(store::IsFolder(L"\\F\\G"));
}

TEST_F(StorePaths, EnsureFoldersMakesNoStorage) {
    const size_t before = device.files.Nodes().size();
    for (const wchar_t* path :
         {L"\\Storage Card\\Ink\\", L"\\\\server\\share\\Ink\\", L"\\\\server\\", L"\\X:\\Ink"})
        store::EnsureFolders(path);
    EXPECT_EQ(device.files.Nodes().size(), before);
    device.files.PutFolder(L"\\\\server\\share");
    device.files.PutFolder(L"\\server\\share");
    for (const wchar_t* path :
         {L"\\\\server\\share\\Ink\\Reminders\\2007-03-05\\", L"\\Storage Cards\\Ink"}) {
        store::EnsureFolders(path);
        EXPECT_TRUE(store::IsFolder(store::WithoutTrailingBackslashes(path)));
    }
    EXPECT_TRUE(store::IsFolder(L"\\\\SERVER\\share"));
    EXPECT_FALSE(store::IsFolder(L"\\server\\share\\Ink")) << "a share is no folder of the root";
}

TEST_F(StorePaths, PathForms) {
    EXPECT_EQ(store::WithBackslash(L""), L"");
    EXPECT_EQ(store::WithBackslash(L"a"), L"a");
    EXPECT_EQ(store::WithBackslash(L"ab"), L"ab\\");
    EXPECT_EQ(store::WithBackslash(L"ab\\"), L"ab\\");
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
    const struct {
        const wchar_t* name;
        bool isDay;
        bool isOfCalendar;
        const wchar_t* longText;
    } kCases[] = {{L"2007-03-05", true, true, L"Monday, March 5, 2007"},
                  {L"2007-02-31", true, false, L"2007-02-31"},  // wrongly dated notes stay in sight
                  {L"+207-03-05", true, false, nullptr},
                  {L"2007-3-05", false, false, nullptr},
                  {L"2007-00-05", false, false, nullptr},
                  {L"2007/03/05", false, false, nullptr},
                  {L"2007-03-055", false, false, nullptr},
                  {L"0000-03-05", false, false, nullptr}};
    for (const auto& each : kCases) {
        const std::optional<DayFolder> day = DayFolder::Named(each.name);
        ASSERT_EQ(day.has_value(), each.isDay) << std::wstring(each.name).size();
        if (!day) continue;
        EXPECT_EQ(day->Name(), each.name);
        EXPECT_EQ(day->IsOfCalendar(), each.isOfCalendar);
        if (each.longText != nullptr) {
            EXPECT_EQ(day->LongText(), each.longText);
        }
    }
    EXPECT_EQ(DayFolder::Named(L"2007-03-05")->TitleText(), L"Monday, 3/5/2007");
}

}  // namespace
