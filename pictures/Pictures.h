// Notes as files that others can show. Each is written as it is made; memory grows with the note's strokes
// but not with the picture.
#pragma once

#include "ink/ByteStream.h"
#include "ink/InkPage.h"
#include "pictures/NoteInk.h"
#include "pictures/PictureOptions.h"

namespace pictures {

enum class PictureResult { Made, NotWritten, TooLarge };

PictureResult WritePicture(Format format, const ink::InkPage& page, const PictureSize& size,
                           const PictureOptions& options, ink::ByteSink& sink);

// Pixels as the program itself paints them; smaller than 1 each is the mean of those at a scale of 1 to 2.
// The page is as large as `size` says; what lies beyond is left out. Throw bad_alloc.
PictureResult WritePng(const ink::InkPage& page, const PictureSize& size, const PictureOptions& options,
                       ink::ByteSink& sink);
PictureResult WriteSvg(const ink::InkPage& page, const PictureSize& size, const PictureOptions& options,
                       ink::ByteSink& sink);
// Sheets of the chosen paper; ink that is too wide for it is made smaller.
PictureResult WritePdf(const ink::InkPage& page, const PictureSize& size, const PictureOptions& options,
                       ink::ByteSink& sink);

}  // namespace pictures
