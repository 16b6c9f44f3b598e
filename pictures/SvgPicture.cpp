#include <cstdio>

#include "pictures/LineArt.h"
#include "pictures/Pictures.h"
#include "pictures/TextOut.h"

namespace pictures {

namespace {

std::string Hex(ink::ColorRef color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", ink::Red(color), ink::Green(color), ink::Blue(color));
    return text;
}

void PutPaper(TextOut& out, ink::ColorRef background, const PictureSize& size) {
    out << "<rect width=\"" << int64_t{size.width} << "\" height=\"" << int64_t{size.height} << "\" fill=\""
        << Hex(background) << "\"/>\n";
    for (const HeadBar& bar : HeadBarsOf(background, size.width)) {
        out << "<rect x=\"" << int64_t{bar.left} << "\" y=\"" << int64_t{bar.top} << "\" width=\""
            << int64_t{bar.width} << "\" height=\"" << int64_t{bar.height} << "\" fill=\"" << Hex(bar.color)
            << "\"/>\n";
    }
}

// Each point after the first is told by its distance from the one before, which is short.
void PutPoints(TextOut& out, const ink::StrokeRecord& record) {
    int64_t x = record.Points()[0].x;
    int64_t y = record.PageY(0);
    out << "M" << x << " " << y << "l";
    // A dot is a line of no length.
    if (record.count == 1) out << "0 0";
    for (int32_t i = 1; i < record.count; ++i) {
        const int64_t right = record.Points()[i].x - x;
        const int64_t down = record.PageY(i) - y;
        out << (i > 1 && right >= 0 ? " " : "") << right << (down >= 0 ? " " : "") << down;
        x += right;
        y += down;
    }
}

}  // namespace

PictureResult WriteSvg(const ink::InkPage& page, const PictureSize& size, const PictureOptions& options,
                       ink::ByteSink& sink) {
    TextOut out(sink);
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\""
        << Decimal(size.width * options.scale) << "\" height=\"" << Decimal(size.height * options.scale)
        << "\" viewBox=\"0 0 " << int64_t{size.width} << " " << int64_t{size.height} << "\">\n";
    PutPaper(out, page.background, size);
    // Points lie in the middle of their pixels.
    out << "<g transform=\"translate(.5 .5)\" fill=\"none\" stroke-linecap=\"round\" "
           "stroke-linejoin=\"round\"";
    const std::vector<PenLine> lines = LinesOf(options.style, options.size);
    out << " stroke-width=\"" << Decimal(lines.back().width) << "\">\n";
    page.VisitStrokes(0, size.height, [&](const ink::StrokeRecord& record) {
        for (const PenLine& line : lines) {
            out << "<path stroke=\"" << Hex(ColorOf(line, record.Color())) << "\"";
            if (&line != &lines.back()) out << " stroke-width=\"" << Decimal(line.width) << "\"";
            out << " d=\"";
            PutPoints(out, record);
            out << "\"/>\n";
        }
    });
    out << "</g>\n</svg>\n";
    return out.Flush() ? PictureResult::Made : PictureResult::NotWritten;
}

}  // namespace pictures
