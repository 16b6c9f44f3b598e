// Keeps what was printed.
#include <algorithm>

#include "platform/Printer.h"
#include "platform/host/HostDevice.h"

namespace platform {

using host::HostDesk;
using host::HostDevice;

namespace {

class HostSheet : public ink::LineCanvas {
  public:
    explicit HostSheet(host::PrintedSheet& sheet) : sheet_(sheet) {}

    void FillPaper(ink::ColorRef color) override { sheet_.paper = color; }
    void Show(const ink::SheetView& view) override { sheet_.view = view; }
    void Fill(const ink::Rect& area, ink::ColorRef) override { sheet_.fills.push_back(area); }
    void Draw(const ink::StrokeRecord& record, double width, ink::ColorRef color) override {
        host::PrintedLine line{{}, width, color};
        for (int32_t i = 0; i < record.count; ++i)
            line.points.push_back({record.Points()[i].x, static_cast<int32_t>(record.PageY(i))});
        sheet_.lines.push_back(line);
    }

  private:
    host::PrintedSheet& sheet_;
};

class HostPrintJob : public PrintJob {
  public:
    HostPrintJob(HostDesk& desk, const std::wstring& name)
        : desk_(desk), choice_(*desk.chosenPrinter), name_(name) {}

    PrintPaper Paper() const override { return choice_.paper; }
    std::vector<size_t> Wanted(size_t count) const override {
        std::vector<size_t> wanted;
        for (size_t sheet = choice_.first; sheet <= std::min(choice_.last, count); ++sheet)
            wanted.push_back(sheet - 1);
        return wanted;
    }
    ink::LineCanvas* BeginSheet() override {
        if (begun_++ == 0) desk_.printed.push_back({name_, {}, false});
        if (begun_ > choice_.failsAfter) return nullptr;
        desk_.printed.back().sheets.emplace_back();
        sheet_ = std::make_unique<HostSheet>(desk_.printed.back().sheets.back());
        return sheet_.get();
    }
    bool EndSheet() override { return true; }
    bool Finish() override { return desk_.printed.back().isFinished = true; }

  private:
    HostDesk& desk_;
    const host::PrinterChoice choice_;
    const std::wstring name_;
    size_t begun_ = 0;
    std::unique_ptr<HostSheet> sheet_;
};

}  // namespace

std::unique_ptr<PrintJob> ChoosePrinter(Window&, const std::wstring& name) {
    HostDesk& desk = HostDevice::Current().desk;
    if (!desk.chosenPrinter) return nullptr;
    return std::make_unique<HostPrintJob>(desk, name);
}

}  // namespace platform
