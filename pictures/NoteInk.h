// A note as it is drawn.
#pragma once

#include <cstdint>
#include <string>

#include "ink/ByteStream.h"
#include "ink/InkPage.h"

namespace pictures {

// In page pixels, from the page's top left corner: what lies above or left of that no view ever shows.
struct PictureSize {
    int32_t width = 0;
    int32_t height = 0;
};

// No side of a picture is longer, in pixels of the page or its own.
constexpr int64_t kMostSide = 1000000;

// All of a page's strokes, where whoever asks for some rows finds them: as they are filed where that serves,
// so that they keep their order. The page must outlive it and stay as it is.
class FoundInk {
  public:
    // Once. False when memory is short, or a stroke lies where none can.
    bool Find(const ink::InkPage& page);
    const ink::InkPage& Page() const { return *found_; }

  private:
    const ink::InkPage* found_ = nullptr;
    ink::InkPage filed_;  // when there are strokes in bands where nobody looks for them
};

// A note's file as it is drawn.
class LoadedNote {
  public:
    // Once. False with what is wrong, in words for the user.
    bool Load(ink::ByteSource& source, std::string& problem);
    const ink::InkPage& Page() const { return found_.Page(); }

  private:
    ink::InkPage read_;
    FoundInk found_;
};

// All ink and a margin, at least as wide as the smallest screen and as high as the page's head. `reach` is
// how far ink goes beyond its points. False with what is wrong when there is more of it than any picture
// shows.
bool MeasureNote(const ink::InkPage& page, int32_t reach, PictureSize& size, std::string& problem);

}  // namespace pictures
