// Walks the stroke records of a note file in file order.
#pragma once

#include <cstddef>
#include <cstdint>

#include "ink/ByteStream.h"
#include "ink/NoteFile.h"
#include "ink/StrokePool.h"

namespace ink {

enum class ScanResult { Record, End, Damaged, OutOfMemory };

// Used after ReadNoteHeader. Bytes are read in large pieces straight into chunks of a pool, and records are
// handed out where they lie. In Keep mode they stay valid as long as the pool; in Visit mode each only until
// the next call of Next, and memory does not grow with the file.
class NoteScanner {
  public:
    enum class Mode { Keep, Visit };

    // `bandHeight` is the height that records of old versions are converted for.
    NoteScanner(ByteSource& source, const NoteFileHeader& header, int32_t bandHeight, StrokePool& pool,
                Mode mode);

    // The next record (its count is 0 or more), converted to the current version. After any other result
    // the walk is over.
    ScanResult Next(StrokeRecord*& record);

    // The band block of the last record.
    int64_t Block() const { return block_; }

  private:
    // Makes `size` bytes at the cursor contiguous.
    ScanResult Need(uint64_t size);
    bool FindRoom(uint64_t size, uint64_t& room) const;
    size_t NextPiece() const;
    bool NextChunk(size_t capacity);
    ScanResult Fill();
    size_t Left() const { return end_ - cursor_; }
    void Convert(StrokeRecord& record) const;

    ByteSource& source_;
    StrokePool& pool_;
    const Mode mode_;
    const bool hasPagePoints_;
    const int32_t bandHeight_;
    const int64_t blocks_;
    int64_t block_ = -1;
    uint32_t recordsLeft_ = 0;  // in the current block
    bool atEnd_ = false;

    // The newest chunk, and the part of it that holds bytes not yet handed out.
    uint8_t* chunk_ = nullptr;
    size_t capacity_ = 0;
    size_t cursor_ = 0;
    size_t end_ = 0;
    bool chunkHoldsRecords_ = false;
};

}  // namespace ink
