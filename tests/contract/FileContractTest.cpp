#include "platform/Clock.h"
#include "platform/File.h"
#include "platform/FileSystem.h"
#include "platform/LogFile.h"
#include "tests/contract/OnDevice.h"

using namespace contract;
using namespace platform;

namespace {

using testing::UnorderedElementsAre;

bool WriteWhole(const std::wstring& path, const std::string& bytes = "") {
    File file = File::Create(path);
    return file.IsOpen() && file.Write(bytes.data(), bytes.size());
}

std::string ReadWhole(const std::wstring& path) {
    File file = File::OpenForReading(path);
    std::string bytes(1000, '\0');
    size_t got = 0;
    if (!file.IsOpen() || !file.Read(bytes.data(), bytes.size(), got)) return "unreadable";
    bytes.resize(got);
    return bytes;
}

Texts Names(const std::wstring& folder, const std::wstring& pattern = L"*.*") {
    std::vector<FolderEntry> entries;
    if (!ListFolder(folder, pattern, entries)) return {L"(no folder)"};
    Texts names;
    for (const FolderEntry& entry : entries) names.push_back(entry.name);
    return names;
}

using FileContract = DeviceContract;

TEST_F(FileContract, FilesKeepTheirBytes) {
    const std::string bytes("\0\r\n\x1a\xff end", 9);
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", "replaced as a whole") && WriteWhole(L"\\NOTE.IKW", bytes));
    EXPECT_THAT(Names(L"\\", L"*.ikw"), ElementsAre(L"note.ikw"));
    File first = File::OpenForReading(L"\\note.ikw");
    File file = std::move(first);
    uint64_t size = 0;
    std::string read;
    EXPECT_TRUE(file.Size(size) && size == bytes.size());
    for (const size_t expected : {6, 3, 0}) {
        char part[6];
        size_t got = 0;
        EXPECT_TRUE(file.Read(part, 6, got) && got == expected) << "the end is no error";
        read.append(part, got);
    }
    EXPECT_EQ(read, bytes);
}

TEST_F(FileContract, AFileIsPutInPlaceWholeOrNotAtAll) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", "old") && WriteWhole(L"\\note.ik~", "new one"));
    {
        const File held = File::OpenForReading(L"\\note.ikw");
        EXPECT_FALSE(PutInPlace(L"\\note.ik~", L"\\note.ikw"));
    }
    EXPECT_EQ(ReadWhole(L"\\note.ikw") + ReadWhole(L"\\note.ik~"), "oldnew one");
    uint64_t size = 0;
    for (const wchar_t* place : {L"\\note.ikw", L"\\free.ikw"}) {
        ASSERT_TRUE(WriteWhole(L"\\note.ik~", "new one") && PutInPlace(L"\\note.ik~", place));
        EXPECT_TRUE(FileSize(place, size) && size == 7 && ReadWhole(place) == "new one");
    }
    EXPECT_THAT(Names(L"\\", L"*.ik~"), IsEmpty());
    EXPECT_THAT(Names(L"\\", L"*.ikw"), UnorderedElementsAre(L"note.ikw", L"free.ikw"));
    EXPECT_FALSE(PutInPlace(L"\\note.ik~", L"\\note.ikw") || FileSize(L"\\My Documents", size));
}

TEST_F(FileContract, AnOpenFileMovesInPlaceOrStaysWhereItIs) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", "the old one"));
    for (const wchar_t* place : {L"\\note.ikw", L"\\free.ikw"}) {
        File file = File::Create(L"\\note.ik~");
        ASSERT_TRUE(file.Write("new one", 7) && file.Flush());
        {
            const File held = File::OpenForReading(L"\\note.ikw");
            EXPECT_FALSE(file.MoveInPlace(L"\\note.ikw"));
        }
        EXPECT_FALSE(file.MoveInPlace(L"\\My Documents") || file.MoveInPlace(L"\\no folder\\note.ikw"));
        EXPECT_TRUE(file.MoveInPlace(place) && file.Flush());
        EXPECT_FALSE(File::OpenForReading(place).IsOpen()) << "it is still being written";
        file.Close();
        EXPECT_FALSE(file.MoveInPlace(L"\\closed.ikw"));
        EXPECT_EQ(ReadWhole(place), "new one");
        EXPECT_THAT(Names(L"\\", L"*.ik~"), IsEmpty());
    }
    EXPECT_THAT(Names(L"\\", L"*.ikw"), UnorderedElementsAre(L"note.ikw", L"free.ikw"));
}

TEST_F(FileContract, ALogIsItsOwnersAloneAndReadAfterwards) {
    LogFile log = LogFile::Create(L"\\a.log");
    EXPECT_TRUE(log.Append("ab", 2) && log.Flush() && log.Append("cd", 2));
    EXPECT_FALSE(LogFile::Create(L"\\A.log").IsOpen() || File::OpenForReading(L"\\a.log").IsOpen() ||
                 EraseFile(L"\\a.log"));
    log.Close();
    EXPECT_FALSE(log.Append("e", 1) || LogFile::Create(L"\\a.log").IsOpen());
    EXPECT_EQ(ReadWhole(L"\\a.log"), "abcd");
    EXPECT_FALSE(LogFile::Create(L"\\no folder\\a.log").IsOpen());
}

TEST_F(FileContract, NamesThatNoFileMayHave) {
    for (const wchar_t c : std::wstring(L"/:*?\"<>|")) {
        const std::wstring path = L"\\a" + std::wstring(1, c) + L"b.ikw";
        EXPECT_EQ(File::Create(path).Error(), FileError::Other) << path;
        EXPECT_FALSE(MakeFolder(path) || FindEntry(path) != EntryKind::Missing) << path;
    }
    // No path leads out of the device: a file, if any, is found by a plain name inside.
    WriteWhole(L"\\..\\..\\escaped.ikw", "x");
    EXPECT_EQ(FindEntry(L"\\escaped.ikw"), FindEntry(L"\\..\\..\\escaped.ikw"));
}

TEST_F(FileContract, WhyAnOpenFails) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw"));
    EXPECT_EQ(File::OpenForReading(L"\\note.ikw").Error(), FileError::None);
    for (const wchar_t* path : {L"\\missing.ikw", L"\\no folder\\note.ikw"})
        EXPECT_EQ(File::OpenForReading(path).Error(), FileError::NotFound);
    EXPECT_EQ(File::OpenForReading(L"\\My Documents").Error(), FileError::AccessDenied);
    EXPECT_EQ(File::Create(L"\\no folder\\note.ikw").Error(), FileError::NotFound);
    EXPECT_FALSE(File::Create(L"\\My Documents").IsOpen() || File::Create(L"\\name\\").IsOpen());
    {
        const File written = File::Create(L"\\note.ikw");
        EXPECT_EQ(File::OpenForReading(L"\\note.ikw").Error(), FileError::Other);
        EXPECT_FALSE(EraseFile(L"\\note.ikw"));
    }
    const File reader = File::OpenForReading(L"\\note.ikw", File::Share::Read);
    EXPECT_TRUE(File::OpenForReading(L"\\note.ikw", File::Share::Read).IsOpen());
    EXPECT_FALSE(File::OpenForReading(L"\\note.ikw").IsOpen() || File::Create(L"\\note.ikw").IsOpen());
}

TEST_F(FileContract, WhatIsFoundAndListed) {
    ASSERT_TRUE(MakeFolder(L"\\Notes") && MakeFolder(L"\\Notes\\Folder.ikw"));
    for (const wchar_t* name : {L"a.ikw", L"B.IKW", L"c.ikwz", L"ikw", L"e.ikw.txt"})
        ASSERT_TRUE(WriteWhole(L"\\Notes\\" + std::wstring(name))) << name;
    EXPECT_THAT(Names(L"\\Notes", L"*.ikw"), UnorderedElementsAre(L"a.ikw", L"B.IKW", L"Folder.ikw"));
    EXPECT_THAT(Names(L"\\Notes", L"*.bmp"), IsEmpty());
    EXPECT_EQ(Names(L"\\Notes").size(), 6u) << "names without a dot count too";
    for (const wchar_t* folder : {L"\\none", L"\\Notes\\a.ikw"})
        EXPECT_THAT(Names(folder), ElementsAre(L"(no folder)"));
    // What is there, and whether it has attributes of its own.
    const std::tuple<const wchar_t*, EntryKind, bool> entries[] = {
        {L"Notes\\\\A.ikw", EntryKind::File, true},      {L"my documents", EntryKind::Folder, true},
        {L"\\My Documents\\", EntryKind::Missing, true}, {L"\\none", EntryKind::Missing, false},
        {L"\\Notes\\*.ikw", EntryKind::Missing, false},  {L"\\Notes\\a.ikw\\x", EntryKind::Missing, false}};
    for (const auto& [path, kind, exists] : entries) {
        EXPECT_EQ(FindEntry(path), kind) << path;
        EXPECT_EQ(Exists(path), exists) << path;
    }
    for (const wchar_t* path : {L"\\Notes\\a.ikw\\", L"\\", L""})
        EXPECT_EQ(FindEntry(path), EntryKind::Missing) << path;
}

// Local time, with the daylight saving of the file's day.
TEST_F(FileContract, TimesOfLastWriting) {
    const DateTime now = LocalNow();
    DateTime written;
    std::vector<FolderEntry> entries;
    ASSERT_TRUE(WriteWhole(L"\\note.ikw") && ListFolder(L"\\", L"*.ikw", entries));
    EXPECT_EQ(entries[0].lastWrite.year * 100 + entries[0].lastWrite.hour, now.year * 100 + now.hour);
    EXPECT_FALSE(entries[0].isFolder || LastWriteTime(L"\\none.ikw", written));
    int hours[2];
    for (const int month : {1, 7}) {
        device_.SetLastWrite(L"\\note.ikw", {2007, month, 0, 15, 12, 0, 0, 0});
        ASSERT_TRUE(LastWriteTime(L"\\note.ikw", written));
        hours[month / 7] = written.hour;
    }
    EXPECT_EQ(hours[1] - hours[0], device_.SummerHours());
}

TEST_F(FileContract, FoldersMovesAndCopies) {
    EXPECT_FALSE(MakeFolder(L"\\a\\b")) << "one level at a time";
    EXPECT_TRUE(MakeFolder(L"\\a") && MakeFolder(L"\\a\\b") && WriteWhole(L"\\f", "f"));
    EXPECT_FALSE(MakeFolder(L"\\A") || DropFolder(L"\\a")) << "it is there, and not empty";
    EXPECT_FALSE(EraseFile(L"\\a\\b") || DropFolder(L"\\f")) << "each to its kind";
    EXPECT_TRUE(DropFolder(L"\\a\\b") && EraseFile(L"\\f") && !EraseFile(L"\\f"));

    ASSERT_TRUE(WriteWhole(L"\\a.ikw", "a") && WriteWhole(L"\\b.ikw", "b"));
    EXPECT_FALSE(MoveEntry(L"\\a.ikw", L"\\b.ikw")) << "moves never overwrite";
    EXPECT_TRUE(MoveEntry(L"\\a.ikw", L"\\a\\A.ikw") && MoveEntry(L"\\a\\A.ikw", L"\\a\\a.IKW"));
    EXPECT_THAT(Names(L"\\a"), ElementsAre(L"a.IKW")) << "only the letter case changed";
    EXPECT_TRUE(MoveEntry(L"\\a", L"\\Moved"));
    EXPECT_EQ(ReadWhole(L"\\Moved\\a.ikw"), "a");
    EXPECT_FALSE(MoveEntry(L"\\Moved", L"\\Moved\\Inside"));
    EXPECT_TRUE(CopyFileTo(L"\\b.ikw", L"\\Moved\\a.ikw"));
    EXPECT_EQ(ReadWhole(L"\\Moved\\a.ikw"), "b") << "copies do overwrite";
    EXPECT_FALSE(CopyFileTo(L"\\none", L"\\c.ikw") || CopyFileTo(L"\\Moved", L"\\Copied"));
}

TEST_F(FileContract, StorageCardsAreFoldersOfTheRoot) {
    EXPECT_THAT(StorageCards(), IsEmpty());
    for (const wchar_t* card : {L"Storage Card2", L"storage card"}) device_.InsertCard(card);
    ASSERT_TRUE(MakeFolder(L"\\Storage Card box")) << "a card, but not by its name alone";
    ASSERT_TRUE(MakeFolder(L"\\My Documents\\Storage Card3") && WriteWhole(L"\\Storage Card.txt"));
    EXPECT_THAT(StorageCards(), ElementsAre(L"storage card", L"Storage Card box", L"Storage Card2"));
    ASSERT_TRUE(WriteWhole(L"\\STORAGE CARD\\note.ikw"));
    EXPECT_TRUE(IsGone(L"\\Storage Card\\other.ikw") && !IsGone(L"\\Storage Card\\note.ikw"));
    uint64_t bytes = 0;
    EXPECT_TRUE(FreeBytes(L"\\Storage Card", bytes) && bytes > 0);
}

// Nothing else may stand in for a storage that is away: what is written there would be lost to its owner.
TEST_F(FileContract, WhereNoStorageIsEverythingFails) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw") && MakeFolder(L"\\Folder"));
    uint64_t bytes = 0;
    for (const std::wstring storage :
         {L"storage card", L"\\Storage Card7", L"\\\\no server\\share", L"\\X:"}) {
        for (const std::wstring& path : {storage, storage + L"\\Inkwright"}) {
            EXPECT_EQ(FindEntry(path), EntryKind::Missing) << path;
            EXPECT_FALSE(MakeFolder(path) || Exists(path) || FreeBytes(path, bytes)) << path;
            EXPECT_FALSE(File::Create(path).IsOpen() || File::OpenForReading(path).IsOpen()) << path;
            EXPECT_FALSE(CopyFileTo(L"\\note.ikw", path) || MoveEntry(L"\\Folder", path)) << path;
            EXPECT_THAT(Names(path), ElementsAre(L"(no folder)")) << path;
        }
        EXPECT_EQ(IsGone(storage + L"\\note.ikw"), storage.back() == L':') << "nobody knows of a storage";
    }
    EXPECT_TRUE(IsGone(L"\\none\\other.ikw") && IsGone(L"\\a?b.ikw") && !IsGone(L"\\note.ikw"));
    ASSERT_TRUE(DropFolder(L"\\My Documents"));
    EXPECT_FALSE(IsGone(L"\\My Documents\\note.ikw"));
    EXPECT_EQ(DocumentsFolder(), L"\\My Documents");
    EXPECT_EQ(FindEntry(L"\\My Documents"), EntryKind::Folder) << "it is made when it is asked for";
}

TEST_F(FileContract, AFileHeldForAMomentIsWaitedFor) {
    const std::function<bool()> works[] = {
        [] { return File::OpenForReading(L"\\F\\a.ikw").IsOpen(); }, [] { return WriteWhole(L"\\F\\a.ikw"); },
        [] { return CopyFileTo(L"\\F\\a.ikw", L"\\b.ikw"); },
        [] { return MoveEntry(L"\\F", L"\\G") && MoveEntry(L"\\G", L"\\F"); },
        [] { return EraseFile(L"\\F\\a.ikw"); }};
    ASSERT_TRUE(MakeFolder(L"\\F") && WriteWhole(L"\\F\\a.ikw"));
    for (const auto& work : works) {
        device_.HoldForAMoment(L"\\F\\a.ikw");
        EXPECT_TRUE(work()) << &work - works;
    }
}

}  // namespace
