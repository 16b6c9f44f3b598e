#include <QPageRanges>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>

#include "platform/Printer.h"
#include "platform/qt/Application.h"
#include "platform/qt/QtSheet.h"
#include "platform/qt/Text.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

namespace {

class QtPrintJob : public PrintJob {
  public:
    explicit QtPrintJob(const std::wstring& name) : printer_(QPrinter::HighResolution) {
        printer_.setDocName(qt::ToQt(name));
        printer_.setFullPage(true);
    }
    QtPrintJob(const QtPrintJob&) = delete;
    QtPrintJob& operator=(const QtPrintJob&) = delete;
    ~QtPrintJob() override {
        sheet_.reset();
        if (painter_.isActive()) {
            printer_.abort();
            painter_.end();
        }
    }

    // False when the user has cancelled.
    bool Choose(Window& owner) {
        QPrintDialog dialog(&printer_, qt::FrameOf(&owner));
        dialog.setOption(QAbstractPrintDialog::PrintPageRange);
        dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
        dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
        const qt::SystemDialog running(&owner, [&dialog] { dialog.reject(); });
        return dialog.exec() == QDialog::Accepted;
    }

    PrintPaper Paper() const override {
        const QSizeF paper = Size();
        const QMarginsF margins = printer_.pageLayout().margins(QPageLayout::Point);
        return {paper.width(), paper.height(),
                std::max({margins.left(), margins.top(), margins.right(), margins.bottom()})};
    }
    std::vector<size_t> Wanted(size_t count) const override {
        std::vector<size_t> wanted;
        for (size_t sheet = 0; sheet < count; ++sheet) {
            if (IsWanted(static_cast<int>(sheet) + 1)) wanted.push_back(sheet);
        }
        if (printer_.pageOrder() == QPrinter::LastPageFirst) std::reverse(wanted.begin(), wanted.end());
        return Repeated(wanted);
    }
    ink::LineCanvas* BeginSheet() override {
        const bool isGood = painter_.isActive() ? printer_.newPage() : painter_.begin(&printer_);
        if (!isGood) return nullptr;
        sheet_ = std::make_unique<qt::QtSheet>(painter_, Size(), printer_.resolution());
        return sheet_.get();
    }
    bool EndSheet() override {
        sheet_.reset();
        return printer_.printerState() != QPrinter::Error;
    }
    bool Finish() override { return painter_.end() && printer_.printerState() != QPrinter::Error; }

  private:
    QSizeF Size() const { return printer_.pageLayout().fullRect(QPageLayout::Point).size(); }
    bool IsWanted(int sheet) const {
        if (printer_.printRange() != QPrinter::PageRange) return true;
        const QPageRanges ranges = printer_.pageRanges();
        return ranges.isEmpty() || ranges.contains(sheet);
    }
    // Where the printer does not do that by itself.
    std::vector<size_t> Repeated(const std::vector<size_t>& sheets) const {
        const int copies = printer_.supportsMultipleCopies() ? 1 : printer_.copyCount();
        std::vector<size_t> repeated;
        for (int copy = 0; copy < copies; ++copy) {
            for (size_t i = 0; i < sheets.size(); ++i) {
                const size_t all = sheets.size();
                const size_t at = static_cast<size_t>(copy) * all + i;
                repeated.push_back(sheets[printer_.collateCopies() ? i : at / static_cast<size_t>(copies)]);
            }
        }
        return repeated;
    }

    QPrinter printer_;
    QPainter painter_;
    std::unique_ptr<qt::QtSheet> sheet_;
};

}  // namespace

std::unique_ptr<PrintJob> ChoosePrinter(Window& owner, const std::wstring& name) {
    if (qt::Application::The().IsEnding()) return nullptr;
    auto job = std::make_unique<QtPrintJob>(name);
    if (!job->Choose(owner)) return nullptr;
    return job;
}

}  // namespace platform
