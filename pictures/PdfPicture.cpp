#include <algorithm>
#include <vector>

#include "pictures/Deflate.h"
#include "pictures/LineArt.h"
#include "pictures/Pictures.h"
#include "pictures/Sheets.h"
#include "pictures/TextOut.h"

namespace pictures {

namespace {

constexpr int kFine = 9;         // places: the last rows may be a million units from the first
constexpr int64_t kCatalog = 1;  // numbers of the first two objects
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

// The content of one sheet.
class PdfCanvas : public ink::LineCanvas {
  public:
    PdfCanvas(TextOut& out, const Paper& paper) : out_(out), paper_(paper) {}

    void FillPaper(ink::ColorRef color) override {
        out_ << ColorText(color) << "rg 0 0 " << Decimal(paper_.width) << " " << Decimal(paper_.height)
             << " re f\n";
    }
    // Downwards from here on; strokes of other sheets stay out.
    void Show(const ink::SheetView& view) override {
        out_ << "0 " << Decimal(paper_.height - view.clipBottom) << " " << Decimal(paper_.width) << " "
             << Decimal(view.clipBottom - view.clipTop) << " re W n\n"
             << Decimal(view.unit, kFine) << " 0 0 " << Decimal(-view.unit, kFine) << " "
             << Decimal(view.left) << " " << Decimal(paper_.height - view.top, kFine) << " cm\n1 J 1 j\n";
    }
    void Fill(const ink::Rect& area, ink::ColorRef color) override {
        out_ << ColorText(color) << "rg " << int64_t{area.left} << " " << int64_t{area.top} << " "
             << int64_t{area.Width()} << " " << int64_t{area.Height()} << " re f\n";
    }
    void Draw(const ink::StrokeRecord& record, double width, ink::ColorRef color) override {
        if (width_ < 0) out_ << "1 0 0 1 .5 .5 cm\n";  // to the middle of the pixels
        if (color != color_) out_ << ColorText(color) << "RG\n";
        if (width != width_) out_ << Decimal(width) << " w\n";
        color_ = color;
        width_ = width;
        for (int32_t i = 0; i < record.count; ++i)
            out_ << int64_t{record.Points()[i].x} << " " << record.PageY(i) << (i == 0 ? " m\n" : " l\n");
        // A dot is a line of no length.
        if (record.count == 1) out_ << int64_t{record.Points()[0].x} << " " << record.PageY(0) << " l\n";
        out_ << "S\n";
    }

  private:
    TextOut& out_;
    const Paper paper_;
    ink::ColorRef color_ = 0;  // as a sheet begins
    double width_ = -1;
};

}  // namespace

PictureResult WritePdf(const ink::InkPage& page, const PictureSize& size, const PictureOptions& options,
                       ink::ByteSink& sink) {
    const Sheets sheets(page, size, options);
    PdfObjects objects(sink);
    std::string list;
    if (sheets.Count() == 0) return PictureResult::TooLarge;
    for (size_t i = 0; i < sheets.Count(); ++i) {
        const int64_t sheet = objects.NewNumber();
        const int64_t content = objects.NewNumber();
        PackedText packed;
        TextOut text(packed);
        PdfCanvas canvas(text, options.paper);
        sheets.Draw(i, canvas);
        text.Flush();
        objects.Begin(sheet) << "<</Type/Page/Parent " << kSheets << " 0 R/Resources<<>>/MediaBox[0 0 "
                             << Decimal(options.paper.width) << " " << Decimal(options.paper.height)
                             << "]/Contents " << content << " 0 R>>\nendobj\n";
        if (!objects.AddStream(content, packed.Finish())) return PictureResult::NotWritten;
        list += std::to_string(sheet) + " 0 R ";
    }
    objects.Begin(kSheets) << "<</Type/Pages/Count " << static_cast<int64_t>(sheets.Count()) << "/Kids["
                           << list << "]>>\nendobj\n";
    objects.Begin(kCatalog) << "<</Type/Catalog/Pages " << kSheets << " 0 R>>\nendobj\n";
    return objects.Finish() ? PictureResult::Made : PictureResult::NotWritten;
}

}  // namespace pictures
