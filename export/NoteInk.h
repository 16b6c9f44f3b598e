// A note as it is drawn.
#pragma once

#include <cstdint>
#include <string>

#include "ink/ByteStream.h"
#include "ink/InkPage.h"

namespace inkexport {

// In page pixels, from the page's top left corner: what lies above or left of that no view ever shows.
struct PictureSize {
    int32_t width = 0;
    int32_t height = 0;
};

// No side of a picture is longer, in pixels of the page or its own.
constexpr int64_t kMostSide = 1000000;

// All of a note's strokes, where whoever asks for some rows finds them.
class LoadedNote {
  public:
    // Once. False with what is wrong, in words for the user.
    bool Load(ink::ByteSource& source, std::string& problem);
    const ink::InkPage& Page() const { return isFiledAnew_ ? filed_ : read_; }

  private:
    ink::InkPage read_;
    ink::InkPage filed_;  // when the file has strokes in bands where nobody looks for them
    bool isFiledAnew_ = false;
};

// All ink and a margin, at least as wide as the smallest screen and as high as the page's head. `reach` is
// how far ink goes beyond its points. False with what is wrong when there is more of it than any picture
// shows.
bool MeasureNote(const ink::InkPage& page, int32_t reach, PictureSize& size, std::string& problem);

}  // namespace inkexport
