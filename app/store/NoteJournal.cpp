#include "app/store/NoteJournal.h"

#include <exception>
#include <utility>

#include "app/store/JournalBlocks.h"
#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/Shell.h"

namespace store {

namespace {

// Beyond this the journal begins anew with the page as it is.
constexpr uint64_t kLongest = 64 * 1024 * 1024;
constexpr int kMostJournals = 1000;

void PackStamp(ink::BlockPacker& block, const FileStamp& stamp) {
    block.Number(stamp.exists ? 1 : 0);
    block.LongNumber(stamp.size);
    const platform::DateTime& time = stamp.lastWrite;
    for (const int part :
         {time.year, time.month, time.day, time.hour, time.minute, time.second, time.milliseconds})
        block.Number(static_cast<uint32_t>(part));
}

void Join(ink::BlockBytes& bytes, const ink::BlockBytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

}  // namespace

void NoteJournal::Begin(const ink::InkPage& page, const std::wstring& proposedPath) {
    page_ = &page;
    notePath_ = page.notePath;
    proposedPath_ = proposedPath;
    stamp_ = NamesFile(notePath_) ? StampOf(notePath_) : FileStamp();
    hasSteps_ = isOff_ = false;
}

// Throws bad_alloc.
bool NoteJournal::Open(ink::BlockBytes& bytes) {
    EnsureFolders(TemporaryFolder());
    for (int n = 1; n <= kMostJournals && !log_.IsOpen(); ++n) {
        path_ = TemporaryFolder() + L"unsaved " + std::to_wstring(n) + kJournalExtension;
        if (!platform::Exists(path_)) log_ = platform::LogFile::Create(path_);
    }
    if (!log_.IsOpen()) path_.clear();
    if (!log_.IsOpen()) return false;
    size_ = 0;
    savingHeight_ = 0;
    ink::BlockPacker head(kHeadBlock);
    head.Text(kJournalMark);
    head.Number(kJournalVersion);
    Join(bytes, head.Finish());
    ink::BlockPacker owner(kOwnerBlock);
    owner.Text(platform::DeviceName());
    owner.Text(notePath_);
    PackStamp(owner, stamp_);
    owner.Text(proposedPath_);
    Join(bytes, owner.Finish());
    return page_ == nullptr || ink::AppendPage(bytes, *page_);
}

bool NoteJournal::NeedsNewFile() const { return !log_.IsOpen() || size_ >= kLongest; }

// Makes the file unless there is one, with all that is to be told so far.
bool NoteJournal::Start() {
    if (!NeedsNewFile()) return true;
    std::wstring former = path_;
    log_.Close();
    ink::BlockBytes bytes;
    isOff_ = !Open(bytes);
    Append(bytes);
    // Half a beginning is of no use, and takes room that the note may need.
    if (isOff_) std::swap(path_, former);
    if (!former.empty()) platform::EraseFile(former);
    return !isOff_;
}

// A journal with a gap could not be replayed: what is written so far is all there will be.
void NoteJournal::Append(const ink::BlockBytes& bytes) {
    isOff_ = isOff_ || !log_.Append(bytes.data(), bytes.size());
    size_ += bytes.size();
    if (isOff_) log_.Close();
}

// Short memory ends the journal as a full disk does.
template <typename Write>
void NoteJournal::Guarded(Write&& write) {
    try {
        if (!isOff_) write();
    } catch (const std::exception&) {
        isOff_ = true;
    }
}

void NoteJournal::OnStep(const ink::PageStep& step, ink::StepWay way) {
    hasSteps_ = true;
    Guarded([&] {
        // The page that begins a journal has taken the step.
        const bool isNew = NeedsNewFile();
        if (!Start() || isNew) return;
        ink::BlockBytes bytes;
        isOff_ = !ink::AppendStep(bytes, step, way, *page_);
        Append(bytes);
    });
}

void NoteJournal::MemoOpened(const std::wstring& path) {
    memoPath_ = path;
    memoStamp_ = path.empty() ? FileStamp() : StampOf(path);
}

void NoteJournal::MemoTyped(const std::wstring& text) {
    Guarded([&] {
        if (!Start()) return;
        ink::BlockPacker block(kMemoBlock);
        block.Text(memoPath_);
        PackStamp(block, memoStamp_);
        block.Text(text);
        Append(block.Finish());
    });
}

void NoteJournal::MemoClosed() {
    if (!hasSteps_) return Remove();
    Guarded([&] {
        if (log_.IsOpen()) Append(ink::BlockPacker(kMemoClosedBlock).Finish());
    });
}

void NoteJournal::Saving(const std::wstring& path, int32_t bandHeight) {
    Guarded([&] {
        if (!log_.IsOpen()) return;
        ink::BlockPacker block(kSavingBlock);
        block.Text(path);
        block.Number(static_cast<uint32_t>(bandHeight));
        if (path != notePath_ || bandHeight != savingHeight_) Append(block.Finish());
        savingHeight_ = bandHeight;
        log_.Flush();
    });
}

bool NoteJournal::Hold() {
    bool isHeld = false;
    Guarded([&] {
        ink::BlockBytes bytes;
        if (page_ == nullptr || !Start() || !ink::AppendPage(bytes, *page_)) return;
        Append(bytes);
        isHeld = log_.Flush();
    });
    return isHeld;
}

bool NoteJournal::Leave() {
    const bool isAll = !isOff_ && log_.Flush();
    log_.Close();
    path_.clear();
    isOff_ = true;
    return isAll;
}

// Should the file not go, or the note be moved before it does, nothing comes back.
void NoteJournal::Remove() {
    Guarded([this] {
        if (log_.IsOpen()) Append(ink::BlockPacker(kEndBlock).Finish());
    });
    log_.Close();
    if (!path_.empty()) platform::EraseFile(path_);
    path_.clear();
    hasSteps_ = isOff_ = false;
}

}  // namespace store
