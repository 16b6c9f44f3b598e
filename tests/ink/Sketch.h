// What the ink tests share: pages to look into, files as bytes, and strokes made up at random.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "ink/InkPage.h"
#include "ink/NoteFile.h"
#include "ink/PixelSurface.h"

namespace sketch {

using Bytes = std::vector<uint8_t>;
using Points = std::vector<ink::Point>;

Bytes ReadFixture(const std::string& name);
// Names of the fixtures, without ".ikw", that begin with `prefix`.
std::vector<std::string> FixtureNames(const std::string& prefix);

struct Loaded {
    bool header = false;
    ink::LoadResult result = ink::LoadResult::Damaged;
    bool Ok() const { return header && result == ink::LoadResult::Loaded; }
};
Loaded Load(const Bytes& bytes, ink::InkPage& page);
Loaded Load(ink::ByteSource& source, ink::InkPage& page);
Bytes Save(const ink::InkPage& page);

ink::AddResult Add(ink::InkPage& page, const Points& points, ink::ColorRef color = 0);

// Every record by slot in order: "slot: offset colour minY..maxY (x,y) (x,y)", y as page y.
std::vector<std::string> Describe(const ink::InkPage& page);

struct Picture {
    Picture(int32_t width, int32_t height, uint32_t fill = 0xFFFFFF)
        : pixels(static_cast<size_t>(width) * static_cast<size_t>(height), fill),
          surface{pixels.data(), width, height, width} {}
    Picture(const Picture& other) : pixels(other.pixels), surface(other.surface) {
        surface.pixels = pixels.data();
    }
    Picture& operator=(const Picture&) = delete;
    bool operator==(const Picture& other) const { return pixels == other.pixels; }
    uint32_t At(int32_t x, int32_t y) const { return surface.Row(y)[x]; }

    std::vector<uint32_t> pixels;
    ink::PixelSurface surface;
};

// A wandering line of `count` points whose steps are up to `step` pixels, inside the given rectangle.
Points Wander(std::mt19937& random, size_t count, int step, const ink::Rect& inside);

}  // namespace sketch
