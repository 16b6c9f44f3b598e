#pragma once

#include "app/store/PenSettings.h"
#include "ink/ByteStream.h"
#include "ink/Color.h"
#include "ink/NoteFile.h"
#include "platform/Image.h"

namespace manager {

// The head of a note, straight from its file: no page is built, and no stroke is kept.
class NoteHead {
  public:
    // Reads the file's header from a source at its beginning; the source must live as long.
    explicit NoteHead(ink::ByteSource& source) : source_(source) {}

    bool ReadHeader();
    // White for notes of versions that keep none, and before the header was read.
    ink::ColorRef PaperColor() const;
    // Paints the strokes that begin in the page's first 45 rows; page row 0 is the picture's. What a damaged
    // file holds before the damage is painted.
    void Paint(const platform::Image& picture, const store::PenSettings& pen);

  private:
    ink::ByteSource& source_;
    ink::NoteFileHeader header_;
    bool isNote_ = false;
};

}  // namespace manager
