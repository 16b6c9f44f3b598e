// Changes inputs so that most of them stay well-formed.
#pragma once

#include "fuzz/Target.h"

namespace fuzz {

// Any bytes, a note file, or what TryJournal packs into blocks: a kind, a number of words and so many words.
enum class Form { Any, Note, Blocks };

size_t Mutate(Form form, uint8_t* data, size_t size, size_t mostBytes, unsigned seed);

}  // namespace fuzz
