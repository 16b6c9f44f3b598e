// A note on sheets of paper, as a PDF has it and a printer prints it.
#pragma once

#include <cstddef>
#include <vector>

#include "ink/InkPage.h"
#include "ink/LineCanvas.h"
#include "pictures/LineArt.h"
#include "pictures/NoteInk.h"
#include "pictures/PageBreaks.h"
#include "pictures/PictureOptions.h"

namespace pictures {

// The page must outlive it and stay as it is. Throws bad_alloc.
class Sheets {
  public:
    // Margins are 15 mm, or `leastMargin` points where that is more. What is too wide between them is made
    // smaller.
    Sheets(const ink::InkPage& page, const PictureSize& size, const PictureOptions& options,
           double leastMargin = 0);

    // None when strokes that go on from sheet to sheet would make it all out of proportion.
    size_t Count() const { return rows_.size(); }
    void Draw(size_t sheet, ink::LineCanvas& canvas) const;

  private:
    std::vector<RowSpan> Break() const;

    const ink::InkPage& page_;
    const PictureSize size_;
    const Paper paper_;
    const std::vector<PenLine> lines_;
    double margin_;
    double unit_;  // points for a page pixel
    std::vector<RowSpan> rows_;
};

}  // namespace pictures
