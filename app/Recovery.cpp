#include "app/Recovery.h"

#include <vector>

#include "app/store/FileStreams.h"
#include "app/store/JournalReader.h"
#include "app/store/MemoFile.h"
#include "app/store/SafeFile.h"
#include "app/store/StorePaths.h"
#include "ink/NoteFile.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/MessageBox.h"
#include "platform/Shell.h"
#include "platform/TextEncoding.h"

namespace app {

namespace {

using platform::DefaultButton;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

constexpr wchar_t kCaption[] = L" Restore Notes";

// A journal without an owner; open, and so ours alone, while it lives.
struct Unsaved {
    std::wstring journal;
    platform::File lock;
    store::JournalStory story;
    std::vector<uint8_t> note;  // the page as a file; empty when there is none
    std::wstring place;         // where it belongs
    bool isInPlace = false;     // it is there: only the journal was not removed any more
    bool wantsMemo = false;
};

std::vector<uint8_t> BytesOf(const ink::InkPage& page) {
    ink::MemorySink sink;
    return ink::WriteNote(sink, page) ? sink.Bytes() : std::vector<uint8_t>();
}

// As it was being saved last: what then reached its place is to be known again.
std::vector<uint8_t> BytesAsSaved(const store::JournalStory& story) {
    ink::InkPage filed;
    filed.bandHeight = story.savingHeight;
    const bool isFiled = story.savingHeight > 0 && filed.FileAnew(*story.page);
    return BytesOf(isFiled ? filed : *story.page);
}

// Of a new note, or of one that can't be brought up to date.
void FindPlaceFor(Unsaved& unsaved, const std::wstring& wanted) {
    unsaved.place = store::PlaceFor(wanted, unsaved.note, unsaved.isInPlace);
}

std::wstring RestoredPath(const std::wstring& notePath) {
    return store::NotePathWith(notePath, L" (restored)");
}

void FindPlace(Unsaved& unsaved) {
    const store::JournalStory& story = unsaved.story;
    if (!store::NamesFile(story.notePath)) {
        const bool isNamed = !story.savingPath.empty();
        return FindPlaceFor(unsaved, isNamed ? story.savingPath : story.proposedPath);
    }
    unsaved.place = story.notePath;
    unsaved.isInPlace = store::Holds(story.notePath, unsaved.note);
    if (unsaved.isInPlace || (story.noteStamp.exists && store::StampOf(story.notePath) == story.noteStamp))
        return;
    FindPlaceFor(unsaved, RestoredPath(story.notePath));
}

bool HoldsMemo(const std::wstring& path, const std::wstring& text) {
    return store::IsFile(path) ? store::MemoFile(path).Read(nullptr) == text : text.empty();
}

// What is left of a save that was cut short.
void EraseRemnants(const std::wstring& notePath) {
    for (const std::wstring& path : {notePath, store::MemoPath(notePath)}) {
        const std::wstring beside = store::SafeFile::PathBeside(path);
        if (store::IsFile(beside)) platform::EraseFile(beside);
    }
}

void Judge(Unsaved& unsaved) {
    store::JournalStory& story = unsaved.story;
    if (store::NamesFile(story.notePath)) EraseRemnants(story.notePath);
    if (!story.savingPath.empty()) EraseRemnants(story.savingPath);
    // A new note that was emptied again was none.
    const bool isNote = story.page != nullptr && (store::NamesFile(story.notePath) || story.page->HasInk() ||
                                                  !story.page->memo.empty());
    if (isNote) {
        unsaved.note = BytesAsSaved(story);
        FindPlace(unsaved);
        EraseRemnants(unsaved.place);
        unsaved.wantsMemo =
            !story.page->memo.empty() &&
            !(unsaved.isInPlace && HoldsMemo(store::MemoPath(unsaved.place), story.page->memo));
    }
    if (story.hasMemo) EraseRemnants(story.memoPath);
    // An empty text is no reason to take a memo away.
    if (story.hasMemo) unsaved.wantsMemo = !story.memo.empty() && !HoldsMemo(story.memoPath, story.memo);
}

bool IsWanted(const Unsaved& unsaved) {
    return (!unsaved.note.empty() && !unsaved.isInPlace) || unsaved.wantsMemo;
}

void Forget(Unsaved& unsaved) {
    unsaved.lock.Close();
    platform::EraseFile(unsaved.journal);
}

// Those that are read and wanted; of the others the journals go. Journals that can't be read here are named.
std::vector<Unsaved> FindUnsaved(std::vector<std::wstring>& unread) {
    std::vector<Unsaved> found;
    for (const std::wstring& path : store::JournalFiles()) {
        Unsaved unsaved;
        unsaved.journal = path;
        unsaved.lock = platform::File::OpenForReading(path);
        if (!unsaved.lock.IsOpen()) continue;  // a copy that runs has it
        store::FileSource source(unsaved.lock);
        if (!store::ReadJournal(source, unsaved.story)) continue;
        using State = store::JournalStory::State;
        if (unsaved.story.state == State::OtherVersion) unread.push_back(path);
        if (unsaved.story.state == State::OtherVersion) continue;
        const bool isOurs = unsaved.story.device == platform::DeviceName();
        if (unsaved.story.state == State::Whole && !isOurs) continue;
        Judge(unsaved);
        if (unsaved.story.state == State::Whole && IsWanted(unsaved)) {
            found.push_back(std::move(unsaved));
        } else {
            Forget(unsaved);
        }
    }
    return found;
}

size_t CountStrokes(const ink::InkPage& page) {
    size_t count = 0;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot)
        count += page.Band(slot) == nullptr ? 0 : page.Band(slot)->Count();
    return count;
}

std::wstring NoteOf(const store::JournalStory& story) {
    return story.notePath.empty() && story.page == nullptr ? story.memoPath : story.notePath;
}

std::wstring LineOf(const Unsaved& unsaved) {
    const std::wstring note = NoteOf(unsaved.story);
    std::wstring line = store::NamesFile(note)
                            ? store::NoteName(note)
                            : L"new note in " + store::NameOf(store::WithoutTrailingBackslashes(
                                                    store::FolderOf(unsaved.story.proposedPath)));
    if (unsaved.story.page == nullptr || unsaved.isInPlace) {
        line += L", text memo";
    } else {
        const size_t strokes = CountStrokes(*unsaved.story.page);
        line += L", " + std::to_wstring(strokes) + (strokes == 1 ? L" stroke" : L" strokes");
    }
    platform::DateTime time;
    if (platform::LastWriteTime(unsaved.journal, time)) line += L", " + platform::DateAndTime(time);
    return line;
}

bool WriteSafely(const std::wstring& path, const std::vector<uint8_t>& bytes) {
    store::EnsureFolders(store::FolderOf(path));
    store::SafeFile file = store::SafeFile::At(path);
    return file.IsOpen() && file.Write(bytes.data(), bytes.size()) && file.Commit();
}

bool PutNote(const Unsaved& unsaved) {
    return unsaved.note.empty() || unsaved.isInPlace || WriteSafely(unsaved.place, unsaved.note);
}

// A memo that was changed since, or whose note is gone, comes back with a note of its own.
bool PutMemo(Unsaved& unsaved) {
    if (!unsaved.wantsMemo) return true;
    const store::JournalStory& story = unsaved.story;
    if (!story.hasMemo)
        return store::MemoFile(store::MemoPath(unsaved.place)).Write(nullptr, story.page->memo);
    const std::wstring stem = story.memoPath.substr(0, story.memoPath.rfind(L'.'));
    const std::wstring note = stem + store::kNoteExtension;
    std::wstring memoPath = story.memoPath;
    if (unsaved.place.empty()) unsaved.place = note;
    if (!platform::EqualNoCase(unsaved.place, note)) {
        memoPath = store::MemoPath(unsaved.place);
    } else if (!store::IsFile(note) || !(store::StampOf(memoPath) == story.memoStamp)) {
        unsaved.place = store::FreeNotePath(RestoredPath(note));
        memoPath = store::MemoPath(unsaved.place);
        const bool isMade = store::IsFile(note) ? store::CopySafely(note, unsaved.place)
                                                : WriteSafely(unsaved.place, BytesOf(ink::InkPage()));
        if (!isMade) return false;
    }
    store::MemoFile file(memoPath);
    file.Read(nullptr);  // what can't be shown stays
    return file.Write(nullptr, story.memo);
}

void Restore(std::vector<Unsaved>& found) {
    std::vector<std::wstring> lines;
    for (Unsaved& unsaved : found) {
        const bool isRestored = PutNote(unsaved) && PutMemo(unsaved);
        if (isRestored) Forget(unsaved);
        lines.push_back(isRestored ? unsaved.place : L"Restoring '" + unsaved.place + L"' failed!");
    }
    platform::ShowMessage(nullptr, L"Restored:" + platform::MessageLines(lines), kCaption, MessageButtons::Ok,
                          MessageIcon::Information);
}

}  // namespace

void RestoreUnsavedNotes() {
    std::vector<std::wstring> unread;
    std::vector<Unsaved> found = FindUnsaved(unread);
    if (!unread.empty()) {
        platform::ShowMessage(
            nullptr,
            L"Another version of Inkwright left unsaved notes behind:\n" + platform::MessageLines(unread),
            kCaption, MessageButtons::Ok, MessageIcon::Information);
    }
    if (found.empty()) return;
    std::vector<std::wstring> lines;
    lines.reserve(found.size());
    for (const Unsaved& unsaved : found) lines.push_back(LineOf(unsaved));
    const MessageAnswer answer =
        platform::ShowMessage(nullptr,
                              L"Inkwright was ended before these notes were saved:\n" +
                                  platform::MessageLines(lines) + L"\n\nRestore them now?",
                              kCaption, MessageButtons::YesNo, MessageIcon::Question);
    if (answer == MessageAnswer::Yes) return Restore(found);
    const MessageAnswer deletes =
        platform::ShowMessage(nullptr, L"Delete what was not saved for good?", kCaption,
                              MessageButtons::YesNo, MessageIcon::Question, DefaultButton::Second);
    for (Unsaved& unsaved : found) {
        if (deletes == MessageAnswer::Yes) Forget(unsaved);
    }
}

}  // namespace app
