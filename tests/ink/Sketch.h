#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <sstream>
#include <stdexcept>

#include "ink/NoteFile.h"
#include "ink/PixelSurface.h"
#include "tests/support/FaultSweep.h"

namespace sketch {

using Bytes = std::vector<uint8_t>;
using Points = std::vector<ink::Point>;
using Lines = std::vector<std::string>;

struct Stroke {
    int64_t slot = 0;
    int32_t offset = 0;
    ink::ColorRef color = 0;
    Points points;
    int32_t top = 0;
    int32_t bottom = 0;

    Stroke& MeasureRows() {
        top = bottom = points.empty() ? 0 : points[0].y;
        for (const ink::Point& point : points) {
            top = std::min(top, point.y);
            bottom = std::max(bottom, point.y);
        }
        return *this;
    }
};
using Strokes = std::vector<Stroke>;

inline Stroke StrokeOf(int64_t slot, const ink::StrokeRecord& record) {
    Stroke stroke{slot, record.yOffset, record.Color(), {}, record.minY, record.maxY};
    for (int32_t i = 0; i < record.count; ++i)
        stroke.points.push_back({record.Points()[i].x, static_cast<int32_t>(record.PageY(i))});
    return stroke;
}

inline Strokes StrokesOf(const ink::InkPage& page, bool asDrawn = false) {
    Strokes strokes;
    for (size_t i = 0; i < page.SlotCount(); ++i) {
        const size_t slot = asDrawn ? page.SlotCount() - 1 - i : i;
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t k = 0; band != nullptr && k < band->Count(); ++k)
            strokes.push_back(StrokeOf(static_cast<int64_t>(slot), band->At(k)));
    }
    return strokes;
}

// "slot: offset colour top..bottom (x,y) (x,y)"
inline Lines Describe(const Strokes& strokes) {
    Lines lines;
    for (const Stroke& stroke : strokes) {
        std::ostringstream line;
        line << stroke.slot << ": " << stroke.offset << " " << std::hex << stroke.color << std::dec << " "
             << stroke.top << ".." << stroke.bottom;
        for (const ink::Point& point : stroke.points) line << " (" << point.x << "," << point.y << ")";
        lines.push_back(line.str());
    }
    return lines;
}
inline Lines Describe(const ink::InkPage& page) { return Describe(StrokesOf(page)); }

inline ink::AddResult Add(ink::InkPage& page, const Points& points, ink::ColorRef color = 0) {
    const Stroke stroke = Stroke{0, 0, color, points}.MeasureRows();
    ink::StrokeChange change;
    return page.AddStroke(points.data(), static_cast<int32_t>(points.size()), stroke.top, stroke.bottom,
                          color, change);
}

// Adds a stroke as only a file may hold it: with an offset, or without points.
inline void File(ink::InkPage& page, const Stroke& stroke) {
    ink::StrokeRecord* record = page.Pool().Allocate(static_cast<int32_t>(stroke.points.size()));
    record->yOffset = stroke.offset;
    record->SetColor(stroke.color);
    record->minY = stroke.top;
    record->maxY = stroke.bottom;
    ink::Point* stored = record->Points();
    for (const ink::Point& point : stroke.points) *stored++ = {point.x, point.y - stroke.offset};
    if (!page.FileRecord(record, page.SlotOf(record->minY, record->maxY)))
        throw std::runtime_error("no slot");
}

inline Bytes ReadFixture(const std::string& name) {
    std::ifstream file(FIXTURES "/" + name + ".ikw", std::ios::binary);
    if (!file) throw std::runtime_error("no " + name);
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

// Nothing when not even the header could be read.
inline std::optional<ink::LoadResult> Load(ink::ByteSource& source, ink::InkPage& page) {
    ink::NoteFileHeader header;
    if (!ink::ReadNoteHeader(source, header)) return std::nullopt;
    return ink::ReadNoteBody(source, header, page);
}
inline std::optional<ink::LoadResult> Load(const Bytes& bytes, ink::InkPage& page) {
    ink::MemorySource source(bytes.data(), bytes.size());
    return Load(source, page);
}
inline Bytes Save(const ink::InkPage& page) {
    ink::MemorySink sink;
    return ink::WriteNote(sink, page) ? sink.Bytes() : Bytes();
}

// Has exactly as much memory as the rows need, so that a sanitizer sees what goes beyond.
struct Picture {
    explicit Picture(int32_t width, int32_t height, int32_t stride = 0, uint32_t fill = 0xFFFFFF)
        : pixels(static_cast<size_t>(std::max(stride, width) * (height - 1) + width), fill),
          surface{pixels.data(), width, height, std::max(stride, width)} {}
    Picture(const Picture& other) : pixels(other.pixels), surface(other.surface) {
        surface.pixels = pixels.data();
    }
    Picture& operator=(const Picture&) = delete;

    std::vector<uint32_t> pixels;
    ink::PixelSurface surface;
};

class Dice {
  public:
    explicit Dice(uint32_t seed) : random_(seed) {}

    int32_t operator()(int32_t low, int32_t high) {  // both may come
        return std::uniform_int_distribution<int32_t>(low, high)(random_);
    }
    // Wanders in steps of up to `step` pixels.
    Points Line(int32_t count, int32_t step, const ink::Rect& inside) {
        Dice& dice = *this;
        Points points{{dice(inside.left, inside.right - 1), dice(inside.top, inside.bottom - 1)}};
        while (points.size() < static_cast<size_t>(count)) {
            const ink::Point last = points.back();
            points.push_back({std::clamp(last.x + dice(-step, step), inside.left, inside.right - 1),
                              std::clamp(last.y + dice(-step, step), inside.top, inside.bottom - 1)});
        }
        return points;
    }

  private:
    std::mt19937 random_;
};

}  // namespace sketch
