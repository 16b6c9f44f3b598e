#pragma once

#include <string>

#include "app/store/FileStamp.h"
#include "ink/PageJournal.h"
#include "platform/LogFile.h"

namespace store {

// Writes down, in the store's temporary folder, what a note and its memo are as long as that is not saved, so
// that the next start can bring it back whatever ends this one. Nobody waits for it and nobody hears when it
// can't be written: it is a net. Not removed, it stays for the next start.
class NoteJournal : public ink::StepListener {
  public:
    NoteJournal() = default;
    NoteJournal(const NoteJournal&) = delete;
    NoteJournal& operator=(const NoteJournal&) = delete;

    // From now on it is about this page, which lives longer and is as it is on the disk; `proposedPath` is
    // where a new note would be saved. The first step makes the file.
    void Begin(const ink::InkPage& page, const std::wstring& proposedPath);
    void OnStep(const ink::PageStep& step, ink::StepWay way) override;

    // The text that a memo dialog shows; `path` is the memo file, or empty for the memo of a page without
    // one.
    void MemoOpened(const std::wstring& path);
    void MemoTyped(const std::wstring& text);
    void MemoClosed();

    // The note is about to be put there, in bands of this height; 0 for the page's own. After a power cut the
    // journal is not to look older than the note.
    void Saving(const std::wstring& path, int32_t bandHeight = 0);
    // Puts the whole page on the disk; false when that failed.
    bool Hold();

    // Everything is saved, or not wanted any more.
    void Remove();
    // What is written so far stays for the next start, and nothing more is written. False when that is not
    // all.
    bool Leave();

  private:
    bool Open(ink::BlockBytes& bytes);
    bool NeedsNewFile() const;
    bool Start();
    template <typename Write>
    void Guarded(Write&& write);
    void Append(const ink::BlockBytes& bytes);

    const ink::InkPage* page_ = nullptr;
    std::wstring notePath_;
    std::wstring proposedPath_;
    FileStamp stamp_;
    std::wstring memoPath_;
    FileStamp memoStamp_;

    std::wstring path_;  // of the file; empty without one
    platform::LogFile log_;
    uint64_t size_ = 0;
    int32_t savingHeight_ = 0;  // as last written down
    bool hasSteps_ = false;
    bool isOff_ = false;
};

}  // namespace store
