#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "ink/LineCanvas.h"

namespace platform {

class Window;

// In points of 1/72 inch, as the paper is turned.
struct PrintPaper {
    double width = 0;
    double height = 0;
    double margin = 0;  // that the printer needs or the user has set, of the side where it is widest
};

// A printer with its paper, as the user has chosen them. It gets nothing before the first sheet. What was not
// finished is taken back, as far as that can still be done.
class PrintJob {
  public:
    virtual ~PrintJob() = default;

    virtual PrintPaper Paper() const = 0;
    // Of so many sheets those that the user wants, in the order in which to print them, each as often as the
    // printer does not repeat it by itself. None when he asked for others only.
    virtual std::vector<size_t> Wanted(size_t count) const = 0;

    // One sheet after another; what it is drawn on belongs to the job, until EndSheet. Null, or false, once
    // something has failed: nothing further is to be printed then.
    virtual ink::LineCanvas* BeginSheet() = 0;
    virtual bool EndSheet() = 0;
    // After the last sheet.
    virtual bool Finish() = 0;
};

// Asks by the system's own dialog. `name` is what queues show. Null when the user has cancelled it, or when
// there is no printer, which he was told.
std::unique_ptr<PrintJob> ChoosePrinter(Window& owner, const std::wstring& name);

}  // namespace platform
