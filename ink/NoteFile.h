// Reading and writing .ikw note files (docs/FILE_FORMAT.md).
#pragma once

#include <cstdint>

#include "ink/ByteStream.h"
#include "ink/InkPage.h"

namespace ink {

struct NoteFileHeader {
    uint32_t formatVersion = 0;
    ColorRef backgroundColor = 0;
    int32_t bandCount = 0;
    int32_t bandHeight = 0;

    // Versions 0 and 1 carry no background colour of their own.
    bool HasBackground() const { return formatVersion > 1; }
    // Before version 4 points held page y, without an offset.
    bool HasPagePoints() const { return formatVersion < 4; }
};

// Reads the 16 bytes before the bands. False when the read fails or the file is shorter.
bool ReadNoteHeader(ByteSource& source, NoteFileHeader& header);

enum class LoadResult { Loaded, Damaged, OutOfMemory };

// Clears the page and fills it from what follows the header, filed for the page's own bandHeight; takes over
// the background colour where the version has one. Any result but Loaded leaves the page cleared. Damaged
// stands for a read error, an early end, or counts no note can have. Time and memory stay in proportion to
// the bytes that are really there, whatever the counts claim. Only one read of `source` may find the end:
// the source is not asked again after that.
LoadResult ReadNoteBody(ByteSource& source, const NoteFileHeader& header, InkPage& page);

// The same, but the page keeps the strokes that were read before any result but Loaded.
LoadResult ReadWhatIsWhole(ByteSource& source, const NoteFileHeader& header, InkPage& page);

// Writes header, bands and strokes. False at the first failed write.
bool WriteNote(ByteSink& sink, const InkPage& page);

}  // namespace ink
