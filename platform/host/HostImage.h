// A picture of the headless port. Besides its pixels it knows what was drawn on it, so that a test can read
// a window as a person does: texts by their words, small pictures as "picture 7" after their number.
#pragma once

#include <string>
#include <vector>

#include "platform/Image.h"

namespace platform {

struct DrawnThing {
    std::wstring text;
    ink::Rect place;  // screen pixels
};

struct Image::Impl {
    int width = 0;  // page pixels
    int height = 0;
    ink::Scale scale;
    std::vector<uint32_t> pixels;  // screen pixels
    std::vector<DrawnThing> things;

    // Something else covers the area (screen pixels): what lies wholly in it is gone.
    void Cover(const ink::Rect& area);
};

namespace host {

// Copies `source` of one picture to `topLeft` of another, as far as that has room, things drawn included.
// Screen pixels.
void CopyPicture(const Image& from, const ink::Rect& source, const Image& to, ink::Point topLeft);

}  // namespace host

}  // namespace platform
