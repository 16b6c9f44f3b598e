#include "app/store/NoteIntent.h"

#include <exception>
#include <vector>

#include "app/store/FileStreams.h"
#include "app/store/NoteAlarms.h"
#include "app/store/NoteFiles.h"
#include "app/store/SafeFile.h"
#include "app/store/StorePaths.h"
#include "ink/Blocks.h"
#include "platform/FileSystem.h"
#include "platform/Shell.h"

namespace store {

namespace {

constexpr wchar_t kExtension[] = L".iki";
constexpr int kMostIntents = 100;

// Memos whose notes went with the folder.
void EraseLoneMemos(const std::wstring& folder) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(folder, L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring path = folder + L"\\" + entry.name;
        if (entry.isFolder) EraseLoneMemos(path);
        const bool isMemo = !entry.isFolder && EndsWithNoCase(entry.name, L".txt");
        if (isMemo && !IsFile(path.substr(0, path.size() - 4) + kNoteExtension)) platform::EraseFile(path);
    }
}

// Of copies that were being written.
void EraseRemnants(const std::wstring& from, const std::wstring& to) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(WithoutTrailingBackslashes(from), L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        if (entry.isFolder) EraseRemnants(from + entry.name + L"\\", to + entry.name + L"\\");
        const std::wstring beside = SafeFile::PathBeside(to + entry.name);
        if (!entry.isFolder && IsFile(beside)) platform::EraseFile(beside);
    }
}

void Finish(NoteIntent::Kind kind, const std::wstring& from, const std::wstring& to) {
    using Kind = NoteIntent::Kind;
    switch (kind) {
        case Kind::ReplaceNote:
            if (IsFile(from) && !IsFile(to)) platform::MoveEntry(from, to);
            [[fallthrough]];
        case Kind::MoveNote:
            if (!IsFile(from) && IsFile(to))
                FollowMovedNote(from, to,
                                kind == Kind::MoveNote ? MemoInTheWay::Keep : MemoInTheWay::Replace);
            return;
        case Kind::DeleteNote:
            if (!IsFile(from)) FollowDeletedNote(from);
            return;
        case Kind::MoveFolder:
            if (!IsFolder(from) && IsFolder(to)) FollowMovedFolder(from, to);
            return;
        case Kind::DeleteFolder:
            EraseLoneMemos(from);
            RemoveOrphanAlarms();
            return;
        case Kind::CopyFolder:
            return EraseRemnants(from, to);
    }
}

// Nothing can be told of what lies on a card that is away.
bool IsOutOfReach(const std::wstring& path) {
    return !path.empty() && !platform::Exists(path) && !platform::IsGone(path);
}

// Those of a copy that runs can't be opened, those of another device are its own, and some wait for
// their card.
bool FinishOne(const std::wstring& path) {
    platform::File file = platform::File::OpenForReading(path);
    FileSource source(file);
    uint32_t kind = 0;
    ink::BlockBytes content;
    if (!file.IsOpen()) return false;
    if (!ink::NextBlock(source, kind, content)) return true;  // nothing had been done yet
    ink::BlockParser block(content);
    if (block.Text() != platform::DeviceName()) return false;
    const std::wstring from = block.Text();
    const std::wstring to = block.Text();
    if (IsOutOfReach(WithoutTrailingBackslashes(from)) || IsOutOfReach(WithoutTrailingBackslashes(to)))
        return false;
    if (block.IsGood()) Finish(static_cast<NoteIntent::Kind>(kind), from, to);
    return true;
}

}  // namespace

NoteIntent::NoteIntent(Kind kind, const std::wstring& from, const std::wstring& to) {
    // What was left open may name files that are to be moved now.
    FinishIntents();
    try {
        EnsureFolders(TemporaryFolder());
        for (int n = 1; n <= kMostIntents && !log_.IsOpen(); ++n) {
            path_ = TemporaryFolder() + L"begun " + std::to_wstring(n) + kExtension;
            if (!platform::Exists(path_)) log_ = platform::LogFile::Create(path_);
        }
        ink::BlockPacker block(static_cast<uint32_t>(kind));
        block.Text(platform::DeviceName());
        block.Text(from);
        block.Text(to);
        const ink::BlockBytes bytes = block.Finish();
        if (log_.Append(bytes.data(), bytes.size())) log_.Flush();
    } catch (const std::exception&) {
    }
}

NoteIntent::~NoteIntent() {
    const bool isMade = log_.IsOpen();
    log_.Close();
    if (isMade && !isLeftOpen_) platform::EraseFile(path_);
}

void FinishIntents() {
    std::vector<platform::FolderEntry> entries;
    const std::wstring folder = TemporaryFolder();
    platform::ListFolder(WithoutTrailingBackslashes(folder), std::wstring(L"*") + kExtension, entries);
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring path = folder + entry.name;
        try {
            if (!entry.isFolder && FinishOne(path)) platform::EraseFile(path);
        } catch (const std::exception&) {
        }
    }
}

}  // namespace store
