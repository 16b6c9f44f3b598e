#include "tests/ink/Sketch.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace sketch {

Bytes ReadFixture(const std::string& name) {
    std::ifstream file(std::string(FIXTURES) + "/" + name + ".ikw", std::ios::binary);
    // A fixture that cannot be opened must not pass for an empty one.
    if (!file) throw std::runtime_error("no fixture " + name);
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::vector<std::string> FixtureNames(const std::string& prefix) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(FIXTURES)) {
        const std::string name = entry.path().stem().string();
        if (name.rfind(prefix, 0) == 0) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

Loaded Load(ink::ByteSource& source, ink::InkPage& page) {
    ink::NoteFileHeader header;
    Loaded loaded;
    loaded.header = ink::ReadNoteHeader(source, header);
    if (loaded.header) loaded.result = ink::ReadNoteBody(source, header, page);
    return loaded;
}

Loaded Load(const Bytes& bytes, ink::InkPage& page) {
    ink::MemorySource source(bytes.data(), bytes.size());
    return Load(source, page);
}

Bytes Save(const ink::InkPage& page) {
    ink::MemorySink sink;
    return ink::WriteNote(sink, page) ? sink.Bytes() : Bytes();
}

ink::AddResult Add(ink::InkPage& page, const Points& points, ink::ColorRef color) {
    int32_t top = 0;
    int32_t bottom = 0;
    if (!points.empty()) {
        const auto byY = [](const ink::Point& a, const ink::Point& b) { return a.y < b.y; };
        top = std::min_element(points.begin(), points.end(), byY)->y;
        bottom = std::max_element(points.begin(), points.end(), byY)->y;
    }
    return page.AddStroke(points.data(), static_cast<int32_t>(points.size()), top, bottom, color);
}

std::vector<std::string> Describe(const ink::InkPage& page) {
    std::vector<std::string> lines;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) {
            const ink::StrokeRecord& record = band->At(i);
            std::ostringstream line;
            line << slot << ": " << record.yOffset << " " << std::hex << record.Color() << std::dec << " "
                 << record.minY << ".." << record.maxY;
            for (int32_t k = 0; k < record.count; ++k) {
                line << " (" << record.Points()[k].x << "," << record.PageY(k) << ")";
            }
            lines.push_back(line.str());
        }
    }
    return lines;
}

Points Wander(std::mt19937& random, size_t count, int step, const ink::Rect& inside) {
    std::uniform_int_distribution<int32_t> x(inside.left, inside.right - 1);
    std::uniform_int_distribution<int32_t> y(inside.top, inside.bottom - 1);
    std::uniform_int_distribution<int32_t> move(-step, step);
    Points points{{x(random), y(random)}};
    while (points.size() < count) {
        const ink::Point last = points.back();
        const ink::Point next{std::clamp(last.x + move(random), inside.left, inside.right - 1),
                              std::clamp(last.y + move(random), inside.top, inside.bottom - 1)};
        if (next != last) points.push_back(next);
    }
    return points;
}

}  // namespace sketch
