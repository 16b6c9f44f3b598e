#pragma once

#include "ink/InkPage.h"

namespace editor {

// A page in the slots of its view's height, as files tell it and pages are counted. A page keeps the bands it
// was filed in, whose slots its history and its journal name; where the view has another height since, this
// holds the same records filed anew. Of use until the page changes.
class ViewFiling {
  public:
    explicit ViewFiling(const ink::InkPage& page) : page_(page) {
        filed_.bandHeight = page.canvasHeight;
        isFiled_ = page.canvasHeight != page.bandHeight && filed_.FileAnew(page);
    }

    // Of the bands of Page(), 0 for those of the page itself.
    int32_t NewHeight() const { return isFiled_ ? filed_.bandHeight : 0; }
    // The page as it is when memory is short, or when it is too long for lower bands.
    const ink::InkPage& Page() const { return isFiled_ ? filed_ : page_; }

  private:
    const ink::InkPage& page_;
    ink::InkPage filed_;
    bool isFiled_ = false;
};

}  // namespace editor
