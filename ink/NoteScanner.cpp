#include "ink/NoteScanner.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace ink {
namespace {

// Hostile numbers may overflow; they wrap like the 32-bit fields they are stored in.
int32_t Subtract(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

}  // namespace

NoteScanner::NoteScanner(ByteSource& source, const NoteFileHeader& header, int32_t bandHeight,
                         StrokePool& pool, Mode mode)
    : source_(source),
      pool_(pool),
      mode_(mode),
      hasPagePoints_(header.HasPagePoints()),
      bandHeight_(bandHeight),
      blocks_(std::max(header.bandCount, 0)) {}

ScanResult NoteScanner::Next(StrokeRecord*& record) {
    while (recordsLeft_ == 0) {
        if (block_ + 1 >= blocks_) return ScanResult::End;
        ScanResult result = ScanResult::Record;
        if (Left() < sizeof(uint32_t)) result = Need(sizeof(uint32_t));
        if (result != ScanResult::Record) return result;
        std::memcpy(&recordsLeft_, chunk_ + cursor_, sizeof(uint32_t));
        cursor_ += sizeof(uint32_t);
        ++block_;
    }

    ScanResult result = ScanResult::Record;
    if (Left() < sizeof(StrokeRecord)) result = Need(sizeof(StrokeRecord));
    if (result != ScanResult::Record) return result;
    int32_t count = 0;
    std::memcpy(&count, chunk_ + cursor_, sizeof count);
    if (count < 0) return ScanResult::Damaged;
    const uint64_t size = StrokeRecord::ByteSize(count);
    if (Left() < size) result = Need(size);
    if (result != ScanResult::Record) return result;

    record = reinterpret_cast<StrokeRecord*>(chunk_ + cursor_);
    cursor_ += static_cast<size_t>(size);
    // The pool may cut new records from what lies behind the last one that is kept.
    if (mode_ == Mode::Keep) pool_.SetUsed(cursor_);
    chunkHoldsRecords_ = true;
    --recordsLeft_;
    if (hasPagePoints_) Convert(*record);
    return ScanResult::Record;
}

ScanResult NoteScanner::Need(uint64_t size) {
    while (Left() < size) {
        if (atEnd_) return ScanResult::Damaged;
        if (end_ == capacity_ || size > capacity_ - cursor_) {
            uint64_t room = 0;
            if (!FindRoom(size, room)) return ScanResult::Damaged;
            if (room > std::numeric_limits<size_t>::max() / 2) return ScanResult::OutOfMemory;
            if (!NextChunk(static_cast<size_t>(room))) return ScanResult::OutOfMemory;
        }
        const ScanResult result = Fill();
        if (result != ScanResult::Record) return result;
    }
    return ScanResult::Record;
}

// A claimed size is believed only as far as the bytes that are there: where that is not known the room at
// most doubles.
bool NoteScanner::FindRoom(uint64_t size, uint64_t& room) const {
    const uint64_t piece = NextPiece();
    uint64_t left = 0;
    room = std::max(size, piece);
    if (size <= piece) return true;
    if (source_.BytesLeft(left)) return size <= left + Left();
    room = std::max(piece, std::min(size, 2 * static_cast<uint64_t>(Left())));
    return true;
}

// How much is read at once.
size_t NoteScanner::NextPiece() const {
    return mode_ == Mode::Visit && chunk_ != nullptr ? StrokePool::kLargeChunk : pool_.NextChunkSize();
}

// Goes on in a new chunk, taking along the bytes not yet handed out. What was only visited makes room for
// what follows.
bool NoteScanner::NextChunk(size_t capacity) {
    const size_t left = Left();
    if (mode_ == Mode::Visit && capacity <= capacity_) {
        std::memmove(chunk_, chunk_ + cursor_, left);
        cursor_ = 0;
        end_ = left;
        return true;
    }
    uint8_t* next = pool_.AddChunk(capacity);
    if (next == nullptr) return false;
    if (left != 0) std::memcpy(next, chunk_ + cursor_, left);
    if (mode_ == Mode::Visit || !chunkHoldsRecords_) pool_.DropPreviousChunk();
    chunkHoldsRecords_ = false;
    chunk_ = next;
    capacity_ = capacity;
    cursor_ = 0;
    end_ = left;
    return true;
}

ScanResult NoteScanner::Fill() {
    size_t got = 0;
    const size_t wanted = capacity_ - end_;
    if (!source_.Read(chunk_ + end_, wanted, got)) return ScanResult::Damaged;
    end_ += std::min(got, wanted);
    atEnd_ = got < wanted;
    return ScanResult::Record;
}

// Points of old files hold page y. They become relative to an offset half a band above the stroke's end; for
// a look at them none will do.
void NoteScanner::Convert(StrokeRecord& record) const {
    if (mode_ == Mode::Visit) {
        record.yOffset = 0;
        return;
    }
    const int64_t half = bandHeight_ / 2;
    const int64_t offset = static_cast<int64_t>(record.maxY) + 1 - half;
    record.yOffset =
        static_cast<int32_t>(std::clamp<int64_t>(offset, 0, std::numeric_limits<int32_t>::max()));
    Point* points = record.Points();
    for (int32_t i = 0; i < record.count; ++i) points[i].y = Subtract(points[i].y, record.yOffset);
}

}  // namespace ink
