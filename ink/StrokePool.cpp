#include "ink/StrokePool.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace ink {
namespace {

constexpr size_t kLinkSize = sizeof(void*);

// Where a released record keeps the address of the next one. Records are aligned to 4 bytes only, so the
// address is copied in and out.
uint8_t* LinkPlace(StrokeRecord* record) { return reinterpret_cast<uint8_t*>(record) + 8; }

}  // namespace

StrokeRecord* StrokePool::Allocate(int32_t count) {
    if (count < 0) return nullptr;
    const size_t list = static_cast<size_t>(count);
    if (list < kLists && released_[list] != nullptr) {
        StrokeRecord* record = released_[list];
        std::memcpy(&released_[list], LinkPlace(record), kLinkSize);
        record->count = count;
        return record;
    }

    const uint64_t size = StrokeRecord::ByteSize(count);
    if (size > std::numeric_limits<size_t>::max() / 2) return nullptr;
    const size_t bytes = static_cast<size_t>(size);
    if (chunks_.empty() || chunks_.back().capacity - chunks_.back().used < bytes) {
        if (AddChunk(std::max(bytes, NextChunkSize())) == nullptr) return nullptr;
    }
    Chunk& chunk = chunks_.back();
    StrokeRecord* record = reinterpret_cast<StrokeRecord*>(chunk.words.get() + chunk.used / 4);
    chunk.used += bytes;
    record->count = count;
    return record;
}

void StrokePool::Release(StrokeRecord* record) {
    const size_t list = static_cast<size_t>(std::max(record->count, 0));
    if (list >= kLists) return;
    std::memcpy(LinkPlace(record), &released_[list], kLinkSize);
    released_[list] = record;
}

void StrokePool::Clear() {
    std::vector<Chunk>().swap(chunks_);
    released_.fill(nullptr);
}

uint8_t* StrokePool::AddChunk(size_t size) {
    Chunk chunk;
    const size_t words = size / 4 + (size % 4 != 0 ? 1 : 0);
    chunk.words.reset(new (std::nothrow) uint32_t[words]);
    if (!chunk.words) return nullptr;
    chunk.capacity = words * 4;
    try {
        chunks_.push_back(std::move(chunk));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return reinterpret_cast<uint8_t*>(chunks_.back().words.get());
}

void StrokePool::SetUsed(size_t used) {
    if (chunks_.empty()) return;
    // Kept a multiple of 4, so that the next record is aligned.
    chunks_.back().used = std::min((used + 3) / 4 * 4, chunks_.back().capacity);
}

void StrokePool::DropPreviousChunk() {
    if (chunks_.size() >= 2) chunks_.erase(chunks_.end() - 2);
}

size_t StrokePool::NextChunkSize() const {
    size_t size = kFirstChunk;
    for (size_t i = 0; i < chunks_.size() && size < kLargeChunk; ++i) size *= 2;
    return size;
}

size_t StrokePool::Capacity() const {
    size_t total = 0;
    for (const Chunk& chunk : chunks_) total += chunk.capacity;
    return total;
}

}  // namespace ink
