#pragma once

#include "ink/NoteFile.h"

namespace fuzz {

using Bytes = std::vector<uint8_t>;
// Quick leaves out what takes long: painting, and pages of very many slots.
enum class Care { Quick, Thorough };
using Try = void(const Bytes& bytes, Care care);
Try TryNote, TrySalvage, TryJournal, TryNotificationEntry, TryCommandLine, TryNamePattern, TryMemo,
    TryDayName;

// A promise that does not hold ends the program, so that the fuzzer notices.
void Require(bool kept, const char* promise);
ink::LoadResult Load(const Bytes& note, ink::InkPage& page);
Bytes Save(const ink::InkPage& page);
// The page takes memory in proportion to the bytes that it came from; saved, it loads and saves as the same
// bytes.
void RequireWhole(ink::InkPage& page, size_t size, Care care);

}  // namespace fuzz
