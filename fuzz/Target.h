// What the fuzzers feed, and what they share. A promise that does not hold ends the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/NoteFile.h"

namespace fuzz {

using Bytes = std::vector<uint8_t>;

// Quick leaves out what takes long: painting, and pages of very many slots.
enum class Care { Quick, Thorough };

void Require(bool kept, const char* promise);

// A page of ours takes fixed memory, and more in proportion to the bytes that it came from.
void RequireModest(ink::InkPage& page, size_t size);
Bytes Save(const ink::InkPage& page);
ink::LoadResult Load(const Bytes& note, ink::InkPage& page);
// The page can be saved, and loads and saves again as the same bytes.
void RequireWhole(const ink::InkPage& page);
void PaintViews(const ink::InkPage& page, Care care);

void TryNote(const Bytes& bytes, Care care);
void TrySalvage(const Bytes& bytes, Care care);
void TryJournal(const Bytes& bytes, Care care);
void TryNotificationEntry(const Bytes& bytes, Care care);
void TryCommandLine(const Bytes& bytes, Care care);
void TryNamePattern(const Bytes& bytes, Care care);
void TryMemo(const Bytes& bytes, Care care);
void TryDayName(const Bytes& bytes, Care care);

}  // namespace fuzz
