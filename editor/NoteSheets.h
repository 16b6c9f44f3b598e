// The page as pictures and sheets for others show it.
#pragma once

#include <string>

#include "ink/InkPage.h"
#include "pictures/NoteInk.h"
#include "pictures/PictureOptions.h"

namespace editor {

// With the page's pen, on the paper of the user's country.
pictures::PictureOptions PenOptions(const ink::InkPage& page);

// All ink of a page, and how large a picture of it is. The page must stay as it is meanwhile. Throws
// bad_alloc.
class NoteInk {
  public:
    // Once. False when there is more ink than any picture shows.
    bool Measure(const ink::InkPage& page);
    std::wstring Problem() const { return {problem_.begin(), problem_.end()}; }

    const ink::InkPage& Page() const { return found_.Page(); }
    const pictures::PictureSize& Size() const { return size_; }

  private:
    pictures::FoundInk found_;
    pictures::PictureSize size_;
    std::string problem_;  // plain English letters
};

}  // namespace editor
