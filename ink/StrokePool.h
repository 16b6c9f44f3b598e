// The memory of a page's stroke records.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "ink/StrokeRecord.h"

namespace ink {

// Records are cut from a few large chunks, so that a note loads without one allocation per stroke and is
// freed as quickly. A released record serves the next stroke of the same length. No member throws.
class StrokePool {
  public:
    static constexpr size_t kFirstChunk = 16 * 1024;
    static constexpr size_t kLargeChunk = 256 * 1024;

    // A record for `count` points (0 or more) with only its count filled in, or null when memory is short.
    StrokeRecord* Allocate(int32_t count);

    // Takes back a record of this pool.
    void Release(StrokeRecord* record);

    // Frees everything at once; all records of this pool are gone.
    void Clear();

    // For the reader, which reads file bytes straight into chunks and lets records point into them:
    // adds a chunk of at least `size` bytes and returns its start (null when memory is short),
    uint8_t* AddChunk(size_t size);
    // tells how much of the newest chunk is taken (the rest serves new strokes),
    void SetUsed(size_t used);
    // and frees the chunk before the newest, in which the caller kept no record.
    void DropPreviousChunk();

    // The size the next chunk should have: small for short notes, then growing to kLargeChunk.
    size_t NextChunkSize() const;

    // Bytes held in chunks.
    size_t Capacity() const;

  private:
    struct Chunk {
        std::unique_ptr<uint32_t[]> words;
        size_t capacity = 0;
        size_t used = 0;
    };

    // Longer strokes come only from files and are not worth a list each.
    static constexpr size_t kLists = 128;

    std::vector<Chunk> chunks_;
    std::array<StrokeRecord*, kLists> released_{};
};

}  // namespace ink
