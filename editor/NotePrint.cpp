#include "editor/NotePrint.h"

#include <exception>

#include "editor/NoteSheets.h"
#include "pictures/Sheets.h"
#include "platform/Dialog.h"
#include "platform/MessageBox.h"
#include "platform/Printer.h"
#include "platform/Screen.h"
#include "res/resource.h"

namespace editor {

namespace {

using platform::MessageButtons;
using platform::MessageIcon;
using platform::PrintJob;

// So many are printed before the user could have read how far it is.
constexpr size_t kFewSheets = 3;
constexpr int kTimer = 1;
constexpr uint32_t kTimerMilliseconds = 10;

// Prints one sheet after another.
class Printing {
  public:
    Printing(PrintJob& job, const pictures::Sheets& sheets)
        : job_(job), sheets_(sheets), wanted_(job.Wanted(sheets.Count())) {}

    size_t Count() const { return wanted_.size(); }
    size_t Done() const { return done_; }
    bool IsOver() const { return hasFailed_ || done_ == wanted_.size(); }
    bool HasFailed() const { return hasFailed_; }
    void PrintNext() {
        ink::LineCanvas* canvas = job_.BeginSheet();
        if (canvas != nullptr) sheets_.Draw(wanted_[done_], *canvas);
        hasFailed_ = canvas == nullptr || !job_.EndSheet();
        if (!hasFailed_ && ++done_ == wanted_.size()) hasFailed_ = !job_.Finish();
    }

  private:
    PrintJob& job_;
    const pictures::Sheets& sheets_;
    const std::vector<size_t> wanted_;
    size_t done_ = 0;
    bool hasFailed_ = false;
};

// Tells how far it is; Cancel takes the job back.
class PrintDialog : public platform::Dialog {
  public:
    explicit PrintDialog(Printing& printing) : Dialog(IDD_PRINTING), printing_(printing) {}

    bool OnCreate() override {
        ShowProgress();
        if (StartTimer(kTimer, kTimerMilliseconds)) return true;
        platform::ShowOutOfMemory(this);
        EndModal(platform::kIdCancel);
        return false;
    }
    void OnTimer(int) override {
        if (!printing_.IsOver()) printing_.PrintNext();
        if (printing_.IsOver()) return EndModal(platform::kIdOk);
        ShowProgress();
    }

  private:
    void ShowProgress() {
        SetItemText(IDC_PROGRESS, L"Sheet " + std::to_wstring(printing_.Done() + 1) + L" of " +
                                      std::to_wstring(printing_.Count()));
    }

    Printing& printing_;
};

// Empty, or what is wrong, for the user.
std::wstring PrintOn(PrintJob& job, platform::Screen& owner, const ink::InkPage& page,
                     const std::wstring& name) {
    NoteInk ink;
    if (!ink.Measure(page)) return ink.Problem();
    const platform::PrintPaper paper = job.Paper();
    pictures::PictureOptions options = PenOptions(page);
    options.paper = {paper.width, paper.height};
    const pictures::Sheets sheets(ink.Page(), ink.Size(), options, paper.margin);
    if (sheets.Count() == 0) return L"The note would take too many sheets.";
    Printing printing(job, sheets);
    if (printing.Count() == 0)
        return L"The note has no such page. It takes " + std::to_wstring(sheets.Count()) + L" of this paper.";
    if (printing.Count() > kFewSheets) {
        PrintDialog(printing).RunModal(&owner);
    } else {
        const platform::WaitCursor wait;
        while (!printing.IsOver()) printing.PrintNext();
    }
    return printing.HasFailed() ? L"Printing '" + name + L"' failed!" : L"";
}

}  // namespace

void PrintNote(platform::Screen& owner, const ink::InkPage& page, const std::wstring& name) {
    std::wstring problem = L"There is no ink to print!";
    if (page.HasInk()) {
        try {
            const std::unique_ptr<PrintJob> job = platform::ChoosePrinter(owner, name);
            problem = job ? PrintOn(*job, owner, page, name) : std::wstring();
        } catch (const std::exception&) {
            return platform::ShowOutOfMemory(&owner);
        }
    }
    if (problem.empty()) return;
    platform::ShowMessage(&owner, problem, L" Error", MessageButtons::Ok, MessageIcon::Error);
}

}  // namespace editor
