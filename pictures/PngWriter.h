// Writes a PNG file row by row.
#pragma once

#include <cstdint>
#include <vector>

#include "ink/ByteStream.h"
#include "ink/PixelSurface.h"
#include "pictures/Deflate.h"

namespace pictures {

// Eight bits for each of red, green and blue. Memory does not grow with the picture. Throws bad_alloc.
class PngWriter {
  public:
    // `dots` to the inch. The sink must outlive the writer.
    PngWriter(ink::ByteSink& sink, int32_t width, int32_t height, double dots);

    // All rows of the strip, as wide as the picture. Each is false once a write has failed.
    bool AddRows(const ink::PixelSurface& strip);
    bool AddRow(const uint32_t* pixels);
    // After the last row.
    bool Finish();

  private:
    void WriteChunk(const char* type, const std::vector<uint8_t>& data);
    void WritePacked();

    ink::ByteSink& sink_;
    int32_t width_;
    bool isGood_;
    Crc32 crc_;
    ZlibStream rows_;
};

}  // namespace pictures
