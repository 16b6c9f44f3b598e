#pragma once

#include <string>

#include "app/store/PenSettings.h"
#include "platform/Canvas.h"

namespace manager {

// The strip below the tree: the head of the selected note, or the program's picture.
class PreviewStrip {
  public:
    static constexpr int kHeight = 75;

    PreviewStrip(const store::PenSettings& pen, const platform::ImageList& images)
        : pen_(pen), images_(images) {}

    // Draws the strip anew for a note's path; empty for no note: then `isBare` has it say how to begin. When
    // memory is short there is no picture.
    void Update(const std::wstring& notePath, int width, ink::Scale scale, bool isBare);
    const platform::Image& Picture() const { return picture_; }

  private:
    void DrawNoNote(int bannerId);
    void DrawNote(const std::wstring& notePath);
    void DrawInk(const std::wstring& notePath);

    const store::PenSettings& pen_;
    const platform::ImageList& images_;
    platform::Image picture_;
    platform::Image noteMark_;  // read when the first note is shown
};

}  // namespace manager
