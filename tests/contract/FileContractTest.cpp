#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/File.h"
#include "platform/FileSystem.h"
#include "tests/contract/Driver.h"

namespace platform {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

bool WriteWhole(const std::wstring& path, const std::string& bytes) {
    File file = File::Create(path);
    return file.IsOpen() && file.Write(bytes.data(), bytes.size());
}

std::string ReadWhole(const std::wstring& path) {
    File file = File::OpenForReading(path);
    std::string bytes(100000, '\0');
    size_t got = 0;
    if (!file.IsOpen() || !file.Read(bytes.data(), bytes.size(), got)) return "unreadable";
    bytes.resize(got);
    return bytes;
}

std::vector<std::wstring> Names(const std::wstring& folder, const std::wstring& pattern) {
    std::vector<FolderEntry> entries;
    if (!ListFolder(folder, pattern, entries)) return {L"(no folder)"};
    std::vector<std::wstring> names;
    for (const FolderEntry& entry : entries) names.push_back(entry.name);
    return names;
}

class FileContract : public testing::Test {
  protected:
    contract::Driver driver_;
};

TEST_F(FileContract, FilesKeepTheirBytes) {
    const std::string bytes("\0\r\n\x1a\xff end", 9);
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", bytes));
    EXPECT_EQ(ReadWhole(L"\\note.ikw"), bytes);

    File file = File::OpenForReading(L"\\note.ikw");
    uint64_t size = 0;
    EXPECT_TRUE(file.Size(size));
    EXPECT_EQ(size, bytes.size());
    char part[6];
    size_t got = 0;
    EXPECT_TRUE(file.Read(part, 6, got));
    EXPECT_EQ(got, 6u);
    EXPECT_TRUE(file.Read(part, 6, got)) << "the end is no error";
    EXPECT_EQ(got, bytes.size() - 6);
    EXPECT_TRUE(file.Read(part, 6, got));
    EXPECT_EQ(got, 0u);
}

TEST_F(FileContract, CreateEmptiesAnExistingFile) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", "a long text"));
    ASSERT_TRUE(WriteWhole(L"\\NOTE.IKW", "x"));
    EXPECT_EQ(ReadWhole(L"\\note.ikw"), "x");
    EXPECT_THAT(Names(L"\\", L"*.ikw"), ElementsAre(L"note.ikw"));
}

TEST_F(FileContract, SpellingsOfOnePath) {
    ASSERT_TRUE(MakeFolder(L"\\Notes"));
    ASSERT_TRUE(WriteWhole(L"\\Notes\\a.ikw", "ink"));
    for (const wchar_t* path : {L"\\Notes\\a.ikw", L"Notes\\a.ikw", L"\\NOTES\\A.IKW", L"\\Notes\\\\a.ikw"}) {
        EXPECT_EQ(ReadWhole(path), "ink") << path;
        EXPECT_EQ(FindEntry(path), EntryKind::File) << path;
    }
}

TEST_F(FileContract, NoPathLeadsOutOfTheDevice) {
    // What lies outside must be untouched: the file, if any, must be found by a plain name inside.
    WriteWhole(L"\\..\\..\\escaped.ikw", "x");
    WriteWhole(L"..\\escaped too.ikw", "x");
    for (const std::wstring& name : Names(L"\\", L"*.ikw")) EXPECT_EQ(name.find(L'\\'), std::wstring::npos);
    EXPECT_EQ(FindEntry(L"\\escaped.ikw"), FindEntry(L"\\..\\..\\escaped.ikw"));
    EXPECT_EQ(FindEntry(L"\\escaped too.ikw"), FindEntry(L"\\..\\escaped too.ikw"));
}

TEST_F(FileContract, NamesThatNoFileMayHave) {
    for (const wchar_t c : std::wstring(L"/:*?\"<>|")) {
        const std::wstring path = L"\\a" + std::wstring(1, c) + L"b.ikw";
        File file = File::Create(path);
        EXPECT_FALSE(file.IsOpen()) << path;
        EXPECT_EQ(file.Error(), FileError::Other) << path;
        EXPECT_FALSE(MakeFolder(path)) << path;
        EXPECT_EQ(FindEntry(path), EntryKind::Missing) << path;
    }
    EXPECT_THAT(Names(L"\\", L"*.*"), ElementsAre(L"My Documents")) << "something was made all the same";
}

TEST_F(FileContract, WhyAnOpenFails) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", "ink"));
    EXPECT_EQ(File::OpenForReading(L"\\missing.ikw").Error(), FileError::NotFound);
    EXPECT_EQ(File::OpenForReading(L"\\no folder\\note.ikw").Error(), FileError::NotFound);
    EXPECT_EQ(File::OpenForReading(L"\\My Documents").Error(), FileError::AccessDenied);
    EXPECT_EQ(File::Create(L"\\no folder\\note.ikw").Error(), FileError::NotFound);
    EXPECT_FALSE(File::Create(L"\\My Documents").IsOpen());
    EXPECT_FALSE(File::Create(L"\\name\\").IsOpen());
    EXPECT_EQ(File::OpenForReading(L"\\note.ikw").Error(), FileError::None);
}

TEST_F(FileContract, OpenFilesAreGuarded) {
    File written = File::Create(L"\\note.ikw");
    EXPECT_EQ(File::OpenForReading(L"\\note.ikw").Error(), FileError::Other);
    EXPECT_FALSE(File::Create(L"\\note.ikw").IsOpen());
    EXPECT_FALSE(EraseFile(L"\\note.ikw"));
    written.Close();
    EXPECT_FALSE(written.IsOpen());

    const File reader = File::OpenForReading(L"\\note.ikw", File::Share::Read);
    EXPECT_TRUE(File::OpenForReading(L"\\note.ikw", File::Share::Read).IsOpen());
    EXPECT_FALSE(File::OpenForReading(L"\\note.ikw").IsOpen()) << "wants the file for itself";
    EXPECT_FALSE(File::Create(L"\\note.ikw").IsOpen());
}

TEST_F(FileContract, MovedFilesGoOn) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", "ink"));
    File first = File::OpenForReading(L"\\note.ikw");
    File second = std::move(first);
    char text[3];
    size_t got = 0;
    EXPECT_TRUE(second.Read(text, 3, got));
    EXPECT_EQ(std::string(text, got), "ink");
}

TEST_F(FileContract, WhatASearchFinds) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", ""));
    const struct {
        const wchar_t* path;
        EntryKind kind;
    } kCases[] = {{L"\\note.ikw", EntryKind::File},
                  {L"\\My Documents", EntryKind::Folder},
                  {L"my documents", EntryKind::Folder},
                  {L"\\My Documents\\", EntryKind::Missing},
                  {L"\\note.ikw\\", EntryKind::Missing},
                  {L"\\none", EntryKind::Missing},
                  {L"\\*.ikw", EntryKind::Missing},
                  {L"\\not?.ikw", EntryKind::Missing},
                  {L"\\", EntryKind::Missing},
                  {L"", EntryKind::Missing},
                  {L"\\none\\note.ikw", EntryKind::Missing},
                  {L"\\note.ikw\\x", EntryKind::Missing}};
    for (const auto& each : kCases) EXPECT_EQ(FindEntry(each.path), each.kind) << each.path;
}

TEST_F(FileContract, ListsMatchWholeExtensions) {
    ASSERT_TRUE(MakeFolder(L"\\Notes"));
    ASSERT_TRUE(MakeFolder(L"\\Notes\\Folder.ikw"));
    for (const wchar_t* name : {L"a.ikw", L"B.IKW", L"c.ikwz", L"d.ik", L"ikw", L"e.ikw.txt", L"plain"}) {
        ASSERT_TRUE(WriteWhole(L"\\Notes\\" + std::wstring(name), "")) << name;
    }
    EXPECT_THAT(Names(L"\\Notes", L"*.ikw"), UnorderedElementsAre(L"a.ikw", L"B.IKW", L"Folder.ikw"));
    EXPECT_THAT(Names(L"\\Notes", L"*.bmp"), IsEmpty());
    EXPECT_EQ(Names(L"\\Notes", L"*.*").size(), 8u) << "names without a dot count too";
    EXPECT_THAT(Names(L"\\none", L"*.*"), ElementsAre(L"(no folder)"));
    EXPECT_THAT(Names(L"\\Notes\\a.ikw", L"*.*"), ElementsAre(L"(no folder)"));
}

TEST_F(FileContract, ListsTellKindAndTime) {
    ASSERT_TRUE(MakeFolder(L"\\Notes"));
    ASSERT_TRUE(MakeFolder(L"\\Notes\\Sub"));
    ASSERT_TRUE(WriteWhole(L"\\Notes\\a.ikw", ""));
    const DateTime now = LocalNow();
    std::vector<FolderEntry> entries;
    ASSERT_TRUE(ListFolder(L"\\Notes", L"*.*", entries));
    ASSERT_EQ(entries.size(), 2u);
    for (const FolderEntry& entry : entries) {
        EXPECT_EQ(entry.isFolder, entry.name == L"Sub");
        if (entry.isFolder) continue;
        EXPECT_EQ(entry.lastWrite.year, now.year);
        EXPECT_EQ(entry.lastWrite.hour, now.hour) << "local time is wanted";
    }
}

TEST_F(FileContract, Folders) {
    EXPECT_FALSE(MakeFolder(L"\\a\\b")) << "one level at a time";
    EXPECT_TRUE(MakeFolder(L"\\a"));
    EXPECT_FALSE(MakeFolder(L"\\A")) << "it is there";
    EXPECT_TRUE(MakeFolder(L"\\a\\b"));
    EXPECT_FALSE(DropFolder(L"\\a")) << "not empty";
    EXPECT_FALSE(EraseFile(L"\\a\\b")) << "no file";
    EXPECT_TRUE(DropFolder(L"\\a\\b"));
    EXPECT_TRUE(DropFolder(L"\\a"));
    EXPECT_FALSE(DropFolder(L"\\a"));
    ASSERT_TRUE(WriteWhole(L"\\file", ""));
    EXPECT_FALSE(DropFolder(L"\\file"));
    EXPECT_TRUE(EraseFile(L"\\file"));
    EXPECT_FALSE(EraseFile(L"\\file"));
}

TEST_F(FileContract, MovesNeverOverwriteAndCopiesDo) {
    ASSERT_TRUE(WriteWhole(L"\\a.ikw", "a") && WriteWhole(L"\\b.ikw", "b") && MakeFolder(L"\\Notes"));
    EXPECT_FALSE(MoveEntry(L"\\a.ikw", L"\\b.ikw"));
    EXPECT_FALSE(MoveEntry(L"\\none", L"\\c.ikw"));
    EXPECT_FALSE(MoveEntry(L"\\a.ikw", L"\\none\\a.ikw"));
    EXPECT_TRUE(MoveEntry(L"\\a.ikw", L"\\Notes\\A.ikw"));
    EXPECT_TRUE(MoveEntry(L"\\Notes\\A.ikw", L"\\Notes\\a.IKW")) << "only the letter case changes";
    EXPECT_THAT(Names(L"\\Notes", L"*.ikw"), ElementsAre(L"a.IKW"));
    EXPECT_TRUE(MoveEntry(L"\\Notes", L"\\Moved"));
    EXPECT_EQ(ReadWhole(L"\\Moved\\a.ikw"), "a");
    EXPECT_FALSE(MoveEntry(L"\\Moved", L"\\Moved\\Inside"));

    EXPECT_TRUE(CopyFileTo(L"\\b.ikw", L"\\Moved\\a.ikw"));
    EXPECT_EQ(ReadWhole(L"\\Moved\\a.ikw"), "b");
    EXPECT_FALSE(CopyFileTo(L"\\none", L"\\c.ikw"));
    EXPECT_FALSE(CopyFileTo(L"\\Moved", L"\\Copied"));
}

TEST_F(FileContract, FreeSpaceOfAFolderThatExists) {
    uint64_t bytes = 0;
    EXPECT_TRUE(FreeBytes(L"\\My Documents", bytes));
    EXPECT_GT(bytes, 0u);
    EXPECT_FALSE(FreeBytes(L"\\none", bytes));
}

TEST_F(FileContract, TimesOfLastWriting) {
    const DateTime before = LocalNow();
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", "ink"));
    DateTime written;
    ASSERT_TRUE(LastWriteTime(L"\\note.ikw", written));
    EXPECT_EQ(written.year, before.year);
    EXPECT_EQ(written.hour, before.hour) << "local time is wanted";
    EXPECT_FALSE(LastWriteTime(L"\\none.ikw", written));
    EXPECT_EQ(written.year, before.year) << "a failure leaves it alone";
}

TEST_F(FileContract, TimesHaveTheDaylightSavingOfTheirDay) {
    DateTime winter{2007, 1, 0, 15, 12, 0, 0, 0};
    DateTime summer{2007, 7, 0, 15, 12, 0, 0, 0};
    for (DateTime* moment : {&winter, &summer}) {
        ASSERT_TRUE(WriteWhole(L"\\note.ikw", "ink"));
        driver_.SetLastWrite(L"\\note.ikw", *moment);
        ASSERT_TRUE(LastWriteTime(L"\\note.ikw", *moment));
    }
    EXPECT_EQ(summer.hour - winter.hour, driver_.SummerHours());
}

TEST_F(FileContract, WhatHasAttributesExists) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", ""));
    for (const wchar_t* path : {L"\\note.ikw", L"NOTE.ikw", L"\\My Documents", L"\\My Documents\\"}) {
        EXPECT_TRUE(Exists(path)) << path;
    }
    for (const wchar_t* path : {L"\\none", L"\\none\\", L"\\no?e.ikw", L"\\*.ikw", L"\\note.ikw\\x"}) {
        EXPECT_FALSE(Exists(path)) << path;
    }
}

TEST_F(FileContract, StorageCardsAreFoldersOfTheRoot) {
    EXPECT_THAT(StorageCards(), IsEmpty());
    driver_.InsertCard(L"Storage Card2");
    driver_.InsertCard(L"storage card");
    ASSERT_TRUE(MakeFolder(L"\\Storage Card box")) << "a card, but not by its name alone";
    ASSERT_TRUE(MakeFolder(L"\\My Documents\\Storage Card3")) << "not in the root";
    ASSERT_TRUE(WriteWhole(L"\\Storage Card.txt", ""));
    EXPECT_THAT(StorageCards(), ElementsAre(L"storage card", L"Storage Card box", L"Storage Card2"));
    ASSERT_TRUE(WriteWhole(L"\\STORAGE CARD\\note.ikw", "ink"));
    EXPECT_TRUE(IsGone(L"\\Storage Card\\other.ikw"));
    EXPECT_FALSE(IsGone(L"\\Storage Card\\note.ikw"));
}

// Nothing else may stand in for a storage that is away: what is written there would be lost to its owner.
TEST_F(FileContract, WhereNoStorageIsEverythingFails) {
    ASSERT_TRUE(WriteWhole(L"\\note.ikw", "ink"));
    ASSERT_TRUE(MakeFolder(L"\\Folder"));
    std::vector<FolderEntry> entries;
    uint64_t bytes = 0;
    for (const std::wstring storage :
         {L"\\Storage Card", L"storage card", L"\\Storage Card7", L"\\\\no server\\share", L"\\X:"}) {
        SCOPED_TRACE(testing::Message() << storage);
        for (const std::wstring& path : {storage, storage + L"\\Inkwright"}) {
            EXPECT_FALSE(MakeFolder(path));
            EXPECT_EQ(FindEntry(path), EntryKind::Missing);
            EXPECT_FALSE(Exists(path));
            EXPECT_FALSE(FreeBytes(path, bytes));
            EXPECT_FALSE(ListFolder(path, L"*.*", entries));
            EXPECT_FALSE(File::Create(path).IsOpen());
            EXPECT_FALSE(File::OpenForReading(path).IsOpen());
            EXPECT_FALSE(CopyFileTo(L"\\note.ikw", path));
            EXPECT_FALSE(MoveEntry(L"\\Folder", path));
        }
        EXPECT_EQ(IsGone(storage + L"\\note.ikw"), storage.back() == L':') << "nobody knows of a storage";
    }
    EXPECT_EQ(File::OpenForReading(L"\\Storage Card\\note.ikw").Error(), FileError::NotFound);
    EXPECT_THAT(Names(L"\\", L"*.*"), UnorderedElementsAre(L"My Documents", L"note.ikw", L"Folder"));
    EXPECT_FALSE(IsGone(L"\\note.ikw"));
    EXPECT_TRUE(IsGone(L"\\other.ikw") && IsGone(L"\\none\\other.ikw") && IsGone(L"\\a?b.ikw"));
    ASSERT_TRUE(DropFolder(L"\\My Documents"));
    EXPECT_FALSE(IsGone(L"\\My Documents\\note.ikw"));
}

TEST_F(FileContract, AFileHeldForAMomentIsWaitedFor) {
    const struct {
        const char* what;
        std::function<bool()> work;
    } kCases[] = {
        {"reading", [] { return File::OpenForReading(L"\\F\\a.ikw").IsOpen(); }},
        {"saving", [] { return File::Create(L"\\F\\a.ikw").IsOpen(); }},
        {"copying", [] { return CopyFileTo(L"\\F\\a.ikw", L"\\F\\b.ikw"); }},
        {"moving the folder", [] { return MoveEntry(L"\\F", L"\\G") && MoveEntry(L"\\G", L"\\F"); }},
        {"moving", [] { return MoveEntry(L"\\F\\a.ikw", L"\\a.ikw"); }},
        {"deleting", [] { return EraseFile(L"\\F\\a.ikw"); }}};
    ASSERT_TRUE(MakeFolder(L"\\F"));
    for (const auto& each : kCases) {
        ASSERT_TRUE(WriteWhole(L"\\F\\a.ikw", "ink"));
        driver_.HoldForAMoment(L"\\F\\a.ikw");
        EXPECT_TRUE(each.work()) << each.what;
    }
}

TEST_F(FileContract, DocumentsFolderIsMade) {
    ASSERT_TRUE(DropFolder(L"\\My Documents"));
    EXPECT_EQ(DocumentsFolder(), L"\\My Documents");
    EXPECT_EQ(FindEntry(L"\\My Documents"), EntryKind::Folder);
    EXPECT_EQ(DocumentsFolder(), L"\\My Documents");
}

TEST_F(FileContract, HostPaths) {
    for (const wchar_t* text : {L"", L"\\My Documents\\a.ikw", L"a.ikw", L"\\\\server\\share\\a.ikw"}) {
        EXPECT_EQ(FromHostPath(text), text) << "no path with a drive letter";
    }
    EXPECT_EQ(FromHostPath(L"Q:\\Some Folder\\a.ikw"), L"\\Q:\\Some Folder\\a.ikw");
}

}  // namespace

}  // namespace platform
