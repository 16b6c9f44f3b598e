#include <algorithm>
#include <cmath>
#include <vector>

#include "export/Deflate.h"
#include "export/LineArt.h"
#include "export/PageBreaks.h"
#include "export/Pictures.h"
#include "export/TextOut.h"

namespace inkexport {

namespace {

constexpr double kMargin = 42.52;           // points: 15 mm
constexpr double kPointsPerPixel = 0.75;    // of a page pixel of 1/96 inch
constexpr int kFine = 9;                    // places: the last rows may be a million units from the first
constexpr uint64_t kFreeRepeats = 1 << 20;  // points told on more than one sheet
constexpr int64_t kCatalog = 1;             // numbers of the first two objects
constexpr int64_t kSheets = 2;

std::string ColorText(ink::ColorRef color) {
    const auto part = [](uint8_t value) { return Decimal(value / 255.0) + " "; };
    return part(ink::Red(color)) + part(ink::Green(color)) + part(ink::Blue(color));
}

// Packs what is written.
class PackedText : public ink::ByteSink {
  public:
    bool Write(const void* data, size_t size) override {
        const uint8_t* bytes = static_cast<const uint8_t*>(data);
        for (size_t i = 0; i < size; ++i) stream_.AddByte(bytes[i]);
        return true;
    }
    const std::vector<uint8_t>& Finish() {
        stream_.Finish();
        return stream_.Packed();
    }

  private:
    ZlibStream stream_;
};

// The objects of a file, numbered as they come but for the first two.
class PdfObjects {
  public:
    explicit PdfObjects(ink::ByteSink& sink) : out_(sink), places_(kSheets + 1) {
        out_ << "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
    }

    TextOut& Begin(int64_t number) {
        places_[static_cast<size_t>(number)] = out_.Bytes();
        return out_ << number << " 0 obj\n";
    }
    int64_t NewNumber() {
        places_.push_back(0);
        return static_cast<int64_t>(places_.size()) - 1;
    }
    bool AddStream(int64_t number, const std::vector<uint8_t>& packed) {
        Begin(number) << "<</Length " << static_cast<int64_t>(packed.size())
                      << "/Filter/FlateDecode>>stream\n"
                      << std::string(packed.begin(), packed.end()) << "\nendstream\nendobj\n";
        return out_.Flush();
    }
    bool Finish() {
        const int64_t start = static_cast<int64_t>(out_.Bytes());
        const int64_t count = static_cast<int64_t>(places_.size());
        out_ << "xref\n0 " << count << "\n0000000000 65535 f \n";
        for (size_t i = 1; i < places_.size(); ++i) {
            const std::string place = std::to_string(places_[i]);
            out_ << std::string(10 - std::min<size_t>(place.size(), 10), '0') << place << " 00000 n \n";
        }
        out_ << "trailer\n<</Size " << count << "/Root " << kCatalog << " 0 R>>\nstartxref\n"
             << start << "\n%%EOF\n";
        return out_.Flush();
    }

  private:
    TextOut out_;
    std::vector<uint64_t> places_;  // of the objects in the file
};

class PdfSheets {
  public:
    PdfSheets(const ink::InkPage& page, const PictureSize& size, const Arguments& arguments)
        : page_(page),
          size_(size),
          paper_(arguments.paper),
          lines_(LinesOf(arguments.style, arguments.size)) {
        unit_ = std::min(kPointsPerPixel * arguments.scale, (paper_.width - 2 * kMargin) / size.width);
    }

    // None when strokes that go on from sheet to sheet would make the file out of all proportion.
    std::vector<RowSpan> Break() const {
        const int64_t capacity =
            std::max<int64_t>(static_cast<int64_t>((paper_.height - 2 * kMargin) / unit_), 1);
        uint64_t points = kFreeRepeats;
        uint64_t repeats = 0;
        const int64_t reach = static_cast<int64_t>(std::ceil(lines_.front().width / 2));
        std::vector<RowSpan> strokes{{0, ink::kHeadRows}};
        page_.VisitStrokes(0, size_.height, [&](const ink::StrokeRecord& record) {
            int64_t top = record.PageY(0);
            int64_t bottom = top;
            for (int32_t i = 1; i < record.count; ++i) {
                top = std::min(top, record.PageY(i));
                bottom = std::max(bottom, record.PageY(i));
            }
            if (bottom < 0) return;
            points += static_cast<uint64_t>(record.count);
            repeats += static_cast<uint64_t>(record.count) *
                       static_cast<uint64_t>(
                           (std::min<int64_t>(bottom, size_.height) - std::max<int64_t>(top, 0)) / capacity);
            strokes.push_back({top - reach, bottom + reach + 1});
        });
        if (repeats > points) return {};
        return BreakPages(std::move(strokes), size_.height, capacity);
    }

    // What is drawn on the sheet of some rows.
    void Draw(const RowSpan& rows, TextOut& out) const {
        out << ColorText(page_.background) << "rg 0 0 " << Decimal(paper_.width) << " "
            << Decimal(paper_.height) << " re f\n";
        const double top = paper_.height - kMargin;
        const double height = static_cast<double>(rows.end - rows.first) * unit_;
        // Page pixels, downwards, from here on; strokes of other sheets stay out.
        out << "0 " << Decimal(top - height) << " " << Decimal(paper_.width) << " " << Decimal(height)
            << " re W n\n";
        out << Decimal(unit_, kFine) << " 0 0 " << Decimal(-unit_, kFine) << " " << Decimal(kMargin) << " "
            << Decimal(top + static_cast<double>(rows.first) * unit_, kFine) << " cm\n";
        if (rows.first < ink::kHeadRows) {
            for (const HeadBar& bar : HeadBarsOf(page_.background, size_.width)) {
                out << ColorText(bar.color) << "rg " << int64_t{bar.left} << " " << int64_t{bar.top} << " "
                    << int64_t{bar.width} << " " << int64_t{bar.height} << " re f\n";
            }
        }
        // Points lie in the middle of their pixels.
        out << "1 J 1 j 1 0 0 1 .5 .5 cm\n";
        DrawStrokes(rows, out);
    }

  private:
    void DrawStrokes(const RowSpan& rows, TextOut& out) const {
        ink::ColorRef color = 0;  // as a sheet begins
        double width = -1;
        const int64_t reach = static_cast<int64_t>(std::ceil(lines_.front().width));
        page_.VisitStrokes(rows.first - reach, rows.end + reach, [&](const ink::StrokeRecord& record) {
            for (const PenLine& line : lines_) {
                const ink::ColorRef wanted = ColorOf(line, record.Color());
                if (wanted != color) out << ColorText(wanted) << "RG\n";
                if (line.width != width) out << Decimal(line.width) << " w\n";
                color = wanted;
                width = line.width;
                for (int32_t i = 0; i < record.count; ++i) {
                    out << int64_t{record.Points()[i].x} << " " << record.PageY(i)
                        << (i == 0 ? " m\n" : " l\n");
                }
                // A dot is a line of no length.
                if (record.count == 1)
                    out << int64_t{record.Points()[0].x} << " " << record.PageY(0) << " l\n";
                out << "S\n";
            }
        });
    }
    const ink::InkPage& page_;
    const PictureSize size_;
    const Paper paper_;
    const std::vector<PenLine> lines_;
    double unit_;  // points for a page pixel
};

}  // namespace

PictureResult WritePdf(const ink::InkPage& page, const PictureSize& size, const Arguments& arguments,
                       ink::ByteSink& sink) {
    const PdfSheets sheets(page, size, arguments);
    PdfObjects objects(sink);
    std::string list;
    const std::vector<RowSpan> breaks = sheets.Break();
    if (breaks.empty()) return PictureResult::TooLarge;
    for (const RowSpan& rows : breaks) {
        const int64_t sheet = objects.NewNumber();
        const int64_t content = objects.NewNumber();
        PackedText packed;
        TextOut text(packed);
        sheets.Draw(rows, text);
        text.Flush();
        objects.Begin(sheet) << "<</Type/Page/Parent " << kSheets << " 0 R/Resources<<>>/MediaBox[0 0 "
                             << Decimal(arguments.paper.width) << " " << Decimal(arguments.paper.height)
                             << "]/Contents " << content << " 0 R>>\nendobj\n";
        if (!objects.AddStream(content, packed.Finish())) return PictureResult::NotWritten;
        list += std::to_string(sheet) + " 0 R ";
    }
    objects.Begin(kSheets) << "<</Type/Pages/Count " << static_cast<int64_t>(breaks.size()) << "/Kids["
                           << list << "]>>\nendobj\n";
    objects.Begin(kCatalog) << "<</Type/Catalog/Pages " << kSheets << " 0 R>>\nendobj\n";
    return objects.Finish() ? PictureResult::Made : PictureResult::NotWritten;
}

}  // namespace inkexport
