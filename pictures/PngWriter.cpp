#include "pictures/PngWriter.h"

#include <cmath>
#include <cstring>

namespace pictures {

namespace {

constexpr double kInchesPerMetre = 1 / 0.0254;
constexpr size_t kChunkBytes = 256 * 1024;  // about so many are written at once

void Append(std::vector<uint8_t>& bytes, uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<uint8_t>(value >> shift));
}

}  // namespace

PngWriter::PngWriter(ink::ByteSink& sink, int32_t width, int32_t height, double dots)
    : sink_(sink), width_(width), isGood_(sink.Write("\x89PNG\r\n\x1a\n", 8)) {
    std::vector<uint8_t> head;
    Append(head, static_cast<uint32_t>(width));
    Append(head, static_cast<uint32_t>(height));
    head.insert(head.end(), {8, 2, 0, 0, 0});  // bits; red, green, blue; no choices
    WriteChunk("IHDR", head);
    std::vector<uint8_t> density;
    const uint32_t perMetre = static_cast<uint32_t>(std::lround(dots * kInchesPerMetre));
    Append(density, perMetre);
    Append(density, perMetre);
    density.push_back(1);  // metres
    WriteChunk("pHYs", density);
}

bool PngWriter::AddRow(const uint32_t* pixels) {
    rows_.AddByte(0);  // not filtered
    rows_.AddPixels(pixels, static_cast<size_t>(width_));
    if (rows_.Packed().size() >= kChunkBytes) WritePacked();
    return isGood_;
}

bool PngWriter::AddRows(const ink::PixelSurface& strip) {
    for (int32_t y = 0; y < strip.height && isGood_; ++y) AddRow(strip.Row(y));
    return isGood_;
}

bool PngWriter::Finish() {
    rows_.Finish();
    WritePacked();
    WriteChunk("IEND", {});
    return isGood_;
}

void PngWriter::WritePacked() {
    WriteChunk("IDAT", rows_.Packed());
    rows_.Packed().clear();
}

void PngWriter::WriteChunk(const char* type, const std::vector<uint8_t>& data) {
    std::vector<uint8_t> head;
    Append(head, static_cast<uint32_t>(data.size()));
    head.insert(head.end(), type, type + 4);
    crc_.Restart();
    crc_.Add(head.data() + 4, 4);
    crc_.Add(data.data(), data.size());
    std::vector<uint8_t> tail;
    Append(tail, crc_.Value());
    isGood_ = isGood_ && sink_.Write(head.data(), head.size()) && sink_.Write(data.data(), data.size()) &&
              sink_.Write(tail.data(), tail.size());
}

}  // namespace pictures
