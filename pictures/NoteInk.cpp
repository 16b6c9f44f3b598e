#include "pictures/NoteInk.h"

#include <algorithm>
#include <limits>

#include "ink/InkPainter.h"
#include "ink/NoteFile.h"

namespace pictures {

namespace {

constexpr int32_t kLeastWidth = 240;  // of the smallest screen that notes are written on
constexpr int32_t kMargin = 14;
constexpr int32_t kUsualBandHeight = 588;
// Pixels that all lines are long together: a file of some megabytes can name lines that take days to paint.
constexpr uint64_t kMostInk = uint64_t{1} << 30;
// Points that are gone through, once for each strip of about so many rows that their stroke reaches into,
// beyond what strokes of usual height take.
constexpr uint64_t kMostSteps = uint64_t{1} << 24;
constexpr int64_t kStripRows = 512;

int64_t Distance(int64_t a, int64_t b) {
    const auto onPicture = [](int64_t v) { return std::clamp<int64_t>(v, 0, kMostSide); };
    return std::abs(onPicture(a) - onPicture(b));
}

bool IsWithin(const ink::SlotRange& range, size_t slot) {
    return range.first <= static_cast<int64_t>(slot) && static_cast<int64_t>(slot) <= range.last;
}

bool AllAreFound(const ink::InkPage& page) {
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) {
            const ink::StrokeRecord& record = band->At(i);
            const bool isFound = IsWithin(page.SlotsFor(record.minY, record.minY), slot) &&
                                 IsWithin(page.SlotsFor(record.maxY, record.maxY), slot);
            if (!isFound) return false;
        }
    }
    return true;
}

}  // namespace

bool FoundInk::Find(const ink::InkPage& page) {
    found_ = &page;
    if (page.findsTallStrokes && AllAreFound(page)) return true;
    found_ = &filed_;
    filed_.findsTallStrokes = true;
    filed_.bandHeight = page.bandHeight;
    return filed_.FileAnew(page);
}

bool LoadedNote::Load(ink::ByteSource& source, std::string& problem) {
    ink::NoteFileHeader header;
    if (!ink::ReadNoteHeader(source, header)) {
        problem = "it is no note, or damaged";
        return false;
    }
    // Bands of the same height keep the order that strokes were seen in where they were written.
    read_.bandHeight = header.bandHeight > 0 ? header.bandHeight : kUsualBandHeight;
    read_.findsTallStrokes = true;
    const ink::LoadResult result = ink::ReadNoteBody(source, header, read_);
    if (result == ink::LoadResult::Damaged) problem = "it is damaged";
    if (result == ink::LoadResult::OutOfMemory) problem = "memory is too short for it";
    if (result != ink::LoadResult::Loaded) return false;
    if (found_.Find(read_)) return true;
    problem = "its strokes can't be filed";
    return false;
}

bool MeasureNote(const ink::InkPage& page, int32_t reach, PictureSize& size, std::string& problem) {
    int64_t right = 0;
    int64_t bottom = 0;
    uint64_t length = 0;
    uint64_t steps = 0;
    uint64_t points = 0;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) {
            const ink::StrokeRecord& record = band->At(i);
            int64_t top = kMostSide;
            int64_t low = 0;
            for (int32_t k = 0; k < record.count; ++k) {
                const int64_t x = record.Points()[k].x;
                const int64_t y = record.PageY(k);
                right = std::max(right, x + 1);
                top = std::min(top, std::max<int64_t>(y, 0));
                low = std::max(low, y);
                if (k == 0) continue;
                length += static_cast<uint64_t>(
                    std::max(Distance(x, record.Points()[k - 1].x), Distance(y, record.PageY(k - 1))));
            }
            bottom = std::max(bottom, low + 1);
            points += static_cast<uint64_t>(record.count);
            steps += static_cast<uint64_t>(record.count) *
                     static_cast<uint64_t>(1 + std::max<int64_t>(low - top, 0) / kStripRows);
        }
    }
    const int64_t width = std::max<int64_t>(right + reach + kMargin, kLeastWidth);
    const int64_t height = std::max<int64_t>(bottom + reach + kMargin, ink::kHeadRows);
    if (width > kMostSide || height > kMostSide) {
        problem = "its ink reaches over " + std::to_string(width) + " columns and " + std::to_string(height) +
                  " rows; a picture has at most " + std::to_string(kMostSide);
        return false;
    }
    if (length > kMostInk || steps > kMostSteps + 4 * points) {
        problem = "it has more ink than any hand can write";
        return false;
    }
    size = {static_cast<int32_t>(width), static_cast<int32_t>(height)};
    return true;
}

}  // namespace pictures
