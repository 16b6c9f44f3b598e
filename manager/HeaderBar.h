#pragma once

#include <string>

#include "platform/Canvas.h"

namespace manager {

// The bar above the tree: on which storage the store lies, and how much room is left there.
class HeaderBar {
  public:
    // Its height, from the font.
    static int Height(ink::Scale scale);

    // Draws the bar anew for a store root prefix. When memory is short there is no picture.
    void Update(const std::wstring& rootPrefix, int width, ink::Scale scale);
    // The same bar in another width or at another scale, without asking for the room again.
    void Draw(int width, ink::Scale scale);
    const platform::Image& Picture() const { return picture_; }

    // "Main Memory [ 1.50MB Free ]"; without the free space when it can't be told.
    static std::wstring Text(const std::wstring& rootPrefix);

  private:
    std::wstring text_;
    platform::Image picture_;
};

}  // namespace manager
