// What the fuzzer and the replay of stored cases do with an input.
#pragma once

#include <cstddef>
#include <cstdint>

// Quick leaves out what takes a hundred times as long as the rest: care, and going on with a page of very
// many slots.
enum class Care { Quick, Thorough };

// Reads any bytes as a note, looks at them the way the preview does, saves what was read, erases in it and
// moves its ink, and paints views of it. A promise that does not hold ends the program.
void TryNote(const uint8_t* data, size_t size, Care care);
