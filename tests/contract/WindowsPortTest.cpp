// What the contract's tests can't see: what the system is given to print.
#include "platform/windows/GdiSheet.h"
#include "platform/windows/Guards.h"
#include "tests/contract/SheetSketch.h"

using namespace platform::windows;

namespace {

// As on a printer that can't reach the edge of the paper.
TEST(WindowsPort, SheetsAreDrawnToScale) {
    constexpr int kLeft = 10;
    constexpr int kTop = 6;
    const GdiPaper paper{contract::kSketchDots,      contract::kSketchDots,      kLeft, kTop,
                         2 * contract::kSketchWidth, 2 * contract::kSketchHeight};
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, paper.width, -paper.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const OwnedBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const OwnedMemoryDc dc(CreateCompatibleDC(nullptr));
    const Selection selected(dc.get(), bitmap.get());
    {
        GdiSheet sheet(dc.get(), paper);
        contract::SketchOn(sheet);
        EXPECT_TRUE(sheet.IsGood());
    }
    EXPECT_NE(SetPixel(dc.get(), 0, paper.height - 1, 0), CLR_INVALID) << "no longer cut off";
    GdiFlush();
    contract::ExpectSketch([&](int x, int y) {
        return static_cast<const uint32_t*>(bits)[(y - kTop) * paper.width + x - kLeft];
    });
}

}  // namespace
