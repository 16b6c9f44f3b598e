#include "ink/NoteSalvage.h"

#include <algorithm>

namespace ink {
namespace {

// Zeros that a power cut left read as strokes without points: nobody misses those.
bool HasPoints(const InkPage& page) {
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const StrokeBand* band = page.Band(slot);
        if (band == nullptr) continue;
        const auto holdsPoints = [](const StrokeRecord* record) { return record->count > 0; };
        if (std::any_of(band->begin(), band->end(), holdsPoints)) return true;
    }
    return false;
}

}  // namespace

bool SalvageNote(ByteSource& source, InkPage& page) {
    page.Clear();
    NoteFileHeader header;
    if (!ReadNoteHeader(source, header)) return false;
    // With the file's own height the strokes stay in the bands that it has them in.
    page.bandHeight = header.bandHeight;
    const LoadResult result = ReadWhatIsWhole(source, header, page);
    if (result != LoadResult::OutOfMemory && HasPoints(page)) return true;
    page.Clear();
    return false;
}

}  // namespace ink
