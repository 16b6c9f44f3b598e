#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/store/FileStamp.h"
#include "ink/ByteStream.h"
#include "ink/InkPage.h"

namespace store {

// What a journal tells of something that was not saved.
struct JournalStory {
    enum class State { Whole, Empty, OtherVersion };

    State state = State::Empty;
    std::wstring device;
    std::wstring notePath;  // or the folder of a new note
    FileStamp noteStamp;    // when it was opened
    std::wstring proposedPath;
    std::wstring savingPath;             // where a new note was being put; empty if that was not tried
    int32_t savingHeight = 0;            // of the bands it was being put there in; 0 for the page's own
    std::unique_ptr<ink::InkPage> page;  // null when the journal is of a memo alone
    bool hasMemo = false;                // one was being typed
    std::wstring memoPath;
    FileStamp memoStamp;
    std::wstring memo;
};

// Reads up to the last whole step. False when memory is short.
bool ReadJournal(ink::ByteSource& source, JournalStory& story);

// The journals of the temporary folder, as paths.
std::vector<std::wstring> JournalFiles();

}  // namespace store
