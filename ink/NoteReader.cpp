#include <cstring>

#include "ink/NoteFile.h"
#include "ink/NoteScanner.h"

namespace ink {
namespace {

#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "records are read and written as they lie in memory, which is little-endian in the file"
#endif

LoadResult ReadBands(ByteSource& source, const NoteFileHeader& header, InkPage& page) {
    if (header.bandCount <= 0) return LoadResult::Loaded;
    const bool sameHeight = header.bandHeight == page.bandHeight;
    NoteScanner scanner(source, header, page.bandHeight, page.Pool(), NoteScanner::Mode::Keep);
    StrokeRecord* record = nullptr;
    ScanResult result = scanner.Next(record);
    for (; result == ScanResult::Record; result = scanner.Next(record)) {
        const int64_t slot = sameHeight ? scanner.Block() : page.SlotOf(record->minY, record->maxY);
        if (slot > InkPage::kMaxSlot) return LoadResult::Damaged;
        if (!page.FileRecord(record, slot)) return LoadResult::OutOfMemory;
    }
    if (result == ScanResult::Damaged) return LoadResult::Damaged;
    if (result == ScanResult::OutOfMemory) return LoadResult::OutOfMemory;
    // The empty blocks at the end are slots as well; every one of them was really there.
    if (sameHeight) page.EnsureSlotCount(static_cast<size_t>(header.bandCount));
    return LoadResult::Loaded;
}

}  // namespace

bool ReadNoteHeader(ByteSource& source, NoteFileHeader& header) {
    uint32_t fields[4] = {};
    size_t got = 0;
    if (!source.Read(fields, sizeof fields, got) || got < sizeof fields) return false;
    header.formatVersion = fields[0];
    header.backgroundColor = fields[1];
    header.bandCount = static_cast<int32_t>(fields[2]);
    header.bandHeight = static_cast<int32_t>(fields[3]);
    return true;
}

LoadResult ReadWhatIsWhole(ByteSource& source, const NoteFileHeader& header, InkPage& page) {
    page.Clear();
    if (header.HasBackground()) page.background = header.backgroundColor;
    return ReadBands(source, header, page);
}

LoadResult ReadNoteBody(ByteSource& source, const NoteFileHeader& header, InkPage& page) {
    const LoadResult result = ReadWhatIsWhole(source, header, page);
    if (result != LoadResult::Loaded) page.Clear();
    return result;
}

}  // namespace ink
