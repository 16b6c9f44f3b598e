#pragma once

#include <memory>
#include <string>

#include "ink/Color.h"
#include "ink/Geometry.h"
#include "platform/Image.h"

namespace platform {

using ink::Point;
using ink::Rect;

// A font of the screen; `tenthPoints` is its size in tenths of a point.
struct Font {
    int tenthPoints = 80;
    bool bold = false;
};

// Colours of dialogs and panes, and of the bars around them, which are dark where the user wants dark
// surroundings.
enum class SystemColor { ButtonFace, ButtonText, WindowFrame, Window, WindowText, BarFace, BarText, BarEdge };
ink::ColorRef ColorOf(SystemColor color);
// The user has asked for few colours that stand out from each other: all that is drawn but ink and paper is
// then drawn in the system's colours.
bool HasHighContrast();

// Small pictures side by side in one bitmap resource, with a transparent colour. Move-only.
class ImageList {
  public:
    ImageList();
    ImageList(ImageList&& other) noexcept;
    ImageList& operator=(ImageList&& other) noexcept;
    ~ImageList();

    // `imageSize` in page pixels; drawn for `scale` as Image::FromResource says.
    static ImageList FromResource(int bitmapId, int imageSize, ink::ColorRef mask,
                                  ink::Scale scale = ink::Scale());
    bool IsValid() const { return impl_ != nullptr; }

    struct Impl;
    const Impl* Handle() const { return impl_.get(); }

  private:
    std::unique_ptr<Impl> impl_;
};

// Draws shapes and Tahoma text into an image. All numbers are page pixels; what is drawn is as fine as the
// image's scale. Text is drawn without a background of its own.
class Canvas {
  public:
    explicit Canvas(const Image& image) : image_(image) {}

    void Fill(const Rect& area, ink::ColorRef color);
    // Text from its top left corner, clipped to `clip`; no prefix characters.
    void Text(const std::wstring& text, Point topLeft, const Font& font, ink::ColorRef color,
              const Rect& clip);
    // Width and height of a text at this scale, rounded up: right and bottom of a rectangle at (0, 0).
    static Rect TextSize(const std::wstring& text, const Font& font, ink::Scale scale = ink::Scale());
    // Pictures that were drawn for a smaller scale lie in the middle of the room that they are to take.
    void Draw(const ImageList& images, int index, Point topLeft);
    void Draw(const Image& picture, Point topLeft);

  private:
    const Image& image_;
};

}  // namespace platform
