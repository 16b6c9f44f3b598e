#include <algorithm>

#include "platform/MessageBox.h"
#include "platform/Printer.h"
#include "platform/windows/GdiSheet.h"
#include "platform/windows/Guards.h"
#include "platform/windows/SystemDialog.h"
// Needs what those have included.
// clang-format off
#include <commdlg.h>
#include <cderr.h>
// clang-format on

namespace platform {

namespace {

using windows::GdiPaper;
using windows::GdiSheet;

constexpr double kPointsPerInch = 72;
constexpr WORD kMostSheets = 0xFFFF;

struct FreeGlobal {
    void operator()(void* memory) const { GlobalFree(memory); }
};
using OwnedGlobal = std::unique_ptr<void, FreeGlobal>;

GdiPaper PaperOf(HDC dc) {
    const auto ask = [dc](int what) { return GetDeviceCaps(dc, what); };
    return {static_cast<double>(ask(LOGPIXELSX)),
            static_cast<double>(ask(LOGPIXELSY)),
            ask(PHYSICALOFFSETX),
            ask(PHYSICALOFFSETY),
            ask(PHYSICALWIDTH),
            ask(PHYSICALHEIGHT)};
}

// Of the four sides what the printer can't reach, the largest.
double MarginOf(HDC dc, const GdiPaper& paper) {
    const LONG right = paper.width - paper.left - GetDeviceCaps(dc, HORZRES);
    const LONG bottom = paper.height - paper.top - GetDeviceCaps(dc, VERTRES);
    return std::max(static_cast<double>(std::max(paper.left, right)) / paper.dotsX,
                    static_cast<double>(std::max(paper.top, bottom)) / paper.dotsY) *
           kPointsPerInch;
}

class WindowsPrintJob : public PrintJob {
  public:
    // What the user has chosen. Takes the device context over.
    WindowsPrintJob(const PRINTDLGW& chosen, std::wstring name)
        : dc_(chosen.hDC),
          name_(std::move(name)),
          isToFile_((chosen.Flags & PD_PRINTTOFILE) != 0),
          paper_(PaperOf(chosen.hDC)) {
        if ((chosen.Flags & PD_PAGENUMS) == 0) return;
        first_ = chosen.nFromPage;
        last_ = chosen.nToPage;
    }
    WindowsPrintJob(const WindowsPrintJob&) = delete;
    WindowsPrintJob& operator=(const WindowsPrintJob&) = delete;
    ~WindowsPrintJob() override {
        sheet_.reset();
        if (isBegun_) AbortDoc(dc_.get());
    }

    PrintPaper Paper() const override {
        return {paper_.width / paper_.dotsX * kPointsPerInch, paper_.height / paper_.dotsY * kPointsPerInch,
                MarginOf(dc_.get(), paper_)};
    }
    // The driver repeats.
    std::vector<size_t> Wanted(size_t count) const override {
        std::vector<size_t> wanted;
        for (size_t sheet = first_; sheet <= std::min(last_, count); ++sheet) wanted.push_back(sheet - 1);
        return wanted;
    }
    ink::LineCanvas* BeginSheet() override {
        if (!isBegun_) {
            DOCINFOW document{};
            document.cbSize = sizeof document;
            document.lpszDocName = name_.c_str();
            document.lpszOutput = isToFile_ ? L"FILE:" : nullptr;
            isBegun_ = StartDocW(dc_.get(), &document) > 0;
        }
        if (!isBegun_ || StartPage(dc_.get()) <= 0) return nullptr;
        sheet_ = std::make_unique<GdiSheet>(dc_.get(), paper_);
        return sheet_.get();
    }
    bool EndSheet() override {
        const bool isGood = sheet_->IsGood();
        sheet_.reset();
        return EndPage(dc_.get()) > 0 && isGood;
    }
    bool Finish() override {
        isBegun_ = false;
        return EndDoc(dc_.get()) > 0;
    }

  private:
    windows::OwnedMemoryDc dc_;
    std::wstring name_;
    bool isToFile_;     // whose name the system asks for
    size_t first_ = 1;  // sheets, counted from 1
    size_t last_ = kMostSheets;
    GdiPaper paper_;
    std::unique_ptr<GdiSheet> sheet_;
    bool isBegun_ = false;
};

// That there is no printer at all the dialog tells by itself; 0 is the user's own Cancel.
bool IsUntold(DWORD error) { return error != 0 && error != PDERR_NODEFAULTPRN && error != PDERR_NODEVICES; }

void TellThatNoneWorks(Window& owner) {
    ShowMessage(&owner, L"No printer can be used!\n\nPlease make sure that a printer is set up.", L" Error",
                MessageButtons::Ok, MessageIcon::Error);
}

}  // namespace

std::unique_ptr<PrintJob> ChoosePrinter(Window& owner, const std::wstring& name) {
    PRINTDLGW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = windows::FrameOf(&owner);
    request.Flags = PD_RETURNDC | PD_ALLPAGES | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE;
    request.nFromPage = request.nToPage = request.nMinPage = 1;
    request.nMaxPage = kMostSheets;
    request.nCopies = 1;
    bool isChosen = false;
    {
        const windows::SystemDialog running(&owner, IDCANCEL);
        isChosen = PrintDlgW(&request) != FALSE;
    }
    const OwnedGlobal mode(request.hDevMode);
    const OwnedGlobal names(request.hDevNames);
    if (isChosen && request.hDC) return std::make_unique<WindowsPrintJob>(request, name);
    if (isChosen || IsUntold(CommDlgExtendedError())) TellThatNoneWorks(owner);
    return nullptr;
}

}  // namespace platform
