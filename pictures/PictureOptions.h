// What others' pictures of a note are like.
#pragma once

#include "ink/PenStyle.h"

namespace pictures {

enum class Format { Png, Svg, Pdf };

// ".png", ".svg" or ".pdf".
const char* EndingOf(Format format);

// In points, of which an inch has 72.
struct Paper {
    double width;
    double height;
};
constexpr Paper kA4{595.276, 841.89};
constexpr Paper kLetter{612, 792};

struct PictureOptions {
    double scale = 1;  // of a page pixel, which measures 1/96 inch
    ink::PenStyle style = ink::PenStyle::Smooth;
    double size = 1;  // of the pen, in page pixels
    Paper paper = kA4;
};

}  // namespace pictures
