// The file of a journal of what is not saved yet: blocks (ink/Blocks.h), the head first and its owner next.
// Between the blocks of ink/PageJournal.h stand these.
#pragma once

#include <cstdint>

namespace store {

constexpr uint32_t kHeadBlock = 16;    // the text below, the version
constexpr uint32_t kOwnerBlock = 17;   // the device, the note's path or folder, its stamp, a proposed path
constexpr uint32_t kSavingBlock = 18;  // under which path a new note is being saved
constexpr uint32_t kMemoBlock = 19;    // path (empty: the page's own), stamp, a text that is being typed
constexpr uint32_t kMemoClosedBlock = 20;  // it is saved, or not wanted
constexpr uint32_t kEndBlock = 21;         // all is saved, or not wanted: the file is only not erased yet

constexpr wchar_t kJournalMark[] = L"Inkwright journal";
constexpr uint32_t kJournalVersion = 1;
constexpr wchar_t kJournalExtension[] = L".ikj";

}  // namespace store
