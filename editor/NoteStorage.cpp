#include "editor/NoteStorage.h"

#include "app/store/FileStreams.h"
#include "app/store/MemoFile.h"
#include "app/store/StorePaths.h"
#include "editor/NewNoteFile.h"
#include "editor/ViewFiling.h"
#include "ink/NoteFile.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"

namespace editor {

namespace {

// Another program that is just writing the note lets go of it within moments.
constexpr int kHeaderReads = 5;
constexpr uint32_t kRetryMilliseconds = 500;

bool ReadHeaderPatiently(platform::File& file, ink::ByteSource& source, ink::NoteFileHeader& header) {
    for (int reads = 1;; ++reads) {
        if (ink::ReadNoteHeader(source, header)) return true;
        if (file.Error() != platform::FileError::AccessDenied || reads == kHeaderReads) return false;
        platform::Pause(kRetryMilliseconds);
    }
}

bool ReadNote(platform::Window* owner, ink::InkPage& page) {
    platform::File file = platform::File::OpenForReading(page.notePath);
    if (!file.IsOpen()) return false;
    store::FileSource source(file);
    ink::NoteFileHeader header;
    if (!ReadHeaderPatiently(file, source, header)) return false;
    const ink::LoadResult result = ink::ReadNoteBody(source, header, page);
    if (result == ink::LoadResult::OutOfMemory) platform::ShowOutOfMemory(owner);
    return result == ink::LoadResult::Loaded;
}

store::SafeFile OpenNoteFile(platform::Window* owner, NoteKind kind, ink::InkPage& page) {
    if (!store::NamesFile(page.notePath)) {
        page.isProposal = true;
        return CreateNewNoteFile(owner, kind, page.notePath);
    }
    if (page.isProposal) page.notePath = store::FreeNotePath(page.notePath);
    return store::SafeFile::At(page.notePath);
}

bool WriteSafely(store::SafeFile file, ink::InkPage& page, store::NoteJournal& journal) {
    const ViewFiling filing(page);
    if (!file.IsOpen() || !ink::WriteNote(file, filing.Page())) return false;
    journal.Saving(file.Path(), filing.NewHeight());
    if (!(page.isProposal ? file.CommitToFreePlace() : file.Commit())) return false;
    page.notePath = file.Path();
    return true;
}

// Counts what a note takes.
struct SizeSink : ink::ByteSink {
    bool Write(const void*, size_t size) override {
        bytes += size;
        return true;
    }
    uint64_t bytes = 0;
};

bool FitsOnlyInPlace(const std::wstring& path, const ink::InkPage& page) {
    SizeSink note;
    return ink::WriteNote(note, page) && store::FitsOnlyInPlace(path, note.bytes);
}

// The old version is given up only once the journal has the page for good.
bool WriteInPlace(const ink::InkPage& page, store::NoteJournal& journal) {
    const ViewFiling filing(page);
    const ink::InkPage& note = filing.Page();
    if (page.isProposal || !FitsOnlyInPlace(page.notePath, note) || !journal.Hold() ||
        !FitsOnlyInPlace(page.notePath, note))
        return false;
    journal.Saving(page.notePath, filing.NewHeight());
    platform::File file = platform::File::Create(page.notePath);
    store::FileSink sink(file);
    if (file.IsOpen() && ink::WriteNote(sink, note) && file.Flush()) return true;
    file.Close();
    platform::EraseFile(page.notePath);
    return false;
}

}  // namespace

void LoadNote(platform::Window* owner, ink::InkPage& page) {
    const platform::WaitCursor wait;
    if (ReadNote(owner, page)) return;
    page.Clear();
    ForgetFile(page);
}

bool ReloadNote(ink::InkPage& page) {
    ink::InkPage trial;
    trial.bandHeight = page.bandHeight;
    trial.notePath = page.notePath;
    if (!ReadNote(nullptr, trial)) return false;
    const int32_t scroll = page.scroll;
    page.Clear();
    LoadNote(nullptr, page);
    page.scroll = scroll;
    return true;
}

bool HasFile(const ink::InkPage& page) { return store::NamesFile(page.notePath) && !page.isProposal; }

bool SaveNote(platform::Window* owner, NoteKind kind, ink::InkPage& page, store::NoteJournal& journal) {
    const platform::WaitCursor wait;
    if (!store::NamesFile(page.notePath)) {
        page.TrimTrailingBands();
        const bool hasMemoFolder = !page.notePath.empty() && !page.memo.empty();
        if (!page.HasInk() && !hasMemoFolder) return true;
    }
    if (!WriteSafely(OpenNoteFile(owner, kind, page), page, journal) && !WriteInPlace(page, journal))
        return false;
    // The user is told when the memo fails. The ink is safe all the same, and the next start offers the memo;
    // without a journal only the page has it, which must stay.
    const bool hasMemo = !page.memo.empty();
    if (!hasMemo || store::MemoFile(store::MemoPath(page.notePath)).Write(owner, page.memo)) return true;
    page.isProposal = false;
    return journal.Leave();
}

bool SaveWithoutAsking(NoteKind kind, ink::InkPage& page, store::NoteJournal& journal) {
    if (!HasFile(page)) {
        if (!page.HasInk() && page.memo.empty()) return true;
        if (!store::NamesFile(page.notePath)) page.notePath = ProposedNotePath(kind, page.notePath);
        page.isProposal = true;
        store::EnsureFolders(store::FolderOf(page.notePath));
    }
    if (!WriteSafely(store::SafeFile::At(page.notePath), page, journal) && !WriteInPlace(page, journal))
        return false;
    page.isProposal = false;
    return page.memo.empty() || store::MemoFile(store::MemoPath(page.notePath)).WriteQuietly(page.memo);
}

void ForgetFile(ink::InkPage& page) {
    page.notePath = store::FolderOf(page.notePath);
    page.isProposal = false;
}

}  // namespace editor
