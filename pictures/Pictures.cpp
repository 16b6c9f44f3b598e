#include "pictures/Pictures.h"

namespace pictures {

const char* EndingOf(Format format) {
    switch (format) {
        case Format::Png:
            return ".png";
        case Format::Svg:
            return ".svg";
        case Format::Pdf:
            break;
    }
    return ".pdf";
}

PictureResult WritePicture(Format format, const ink::InkPage& page, const PictureSize& size,
                           const PictureOptions& options, ink::ByteSink& sink) {
    switch (format) {
        case Format::Png:
            return WritePng(page, size, options, sink);
        case Format::Svg:
            return WriteSvg(page, size, options, sink);
        case Format::Pdf:
            break;
    }
    return WritePdf(page, size, options, sink);
}

}  // namespace pictures
