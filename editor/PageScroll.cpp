#include "editor/PageScroll.h"

#include <algorithm>
#include <limits>

#include "editor/ViewFiling.h"

namespace editor {

namespace {

constexpr double kLinesPerPage = 10.0;
constexpr double kPageStep = 1.15;  // a page step leaves some rows of the last view in sight

// Leaves 16-bit pen positions on either side of any view, so that page rows, and the distance between any two
// of them, are 32-bit numbers.
constexpr int32_t kLastPosition = std::numeric_limits<int32_t>::max() - 0x20000;

}  // namespace

platform::ScrollState ScrollRangeOf(const ink::InkPage& page) {
    const int64_t height = page.canvasHeight;
    const auto slots = static_cast<int64_t>(ViewFiling(page).Page().SlotCount());
    const int64_t lastSlot = slots - 1;
    const int64_t bandRows = slots == 0 ? 1 : (lastSlot + lastSlot % 2) / 2 + 1;
    // A view that has grown or shrunk stays where it is.
    const int64_t inSight = page.bandHeight == page.canvasHeight ? 0 : page.scroll + height;
    const int64_t rows = std::min<int64_t>(std::max(bandRows * height, inSight), kLastPosition);
    platform::ScrollState state;
    state.maximum = static_cast<int>(rows);
    state.page = page.canvasHeight + 1;
    state.position = std::min(page.scroll, state.maximum - page.canvasHeight);
    return state;
}

ScrollTarget ScrollTargetOf(platform::ScrollCode code, const platform::ScrollState& scroll,
                            int thumbPosition) {
    using platform::ScrollCode;
    const int line = static_cast<int>(scroll.page / kLinesPerPage);
    const int view = static_cast<int>(scroll.page / kPageStep);
    const bool byPage = code == ScrollCode::PageUp || code == ScrollCode::PageDown;
    const int step = byPage ? view : line;
    const int end = scroll.maximum - scroll.page;
    switch (code) {
        case ScrollCode::LineUp:
        case ScrollCode::PageUp:
            return {std::max(scroll.position - step, scroll.minimum), false};
        case ScrollCode::LineDown:
        case ScrollCode::PageDown:
            return {std::min(scroll.position + step, end), scroll.position >= end};
        case ScrollCode::ThumbPosition:
            return {thumbPosition, false};
        case ScrollCode::Top:
            return {scroll.minimum, false};
        case ScrollCode::Bottom:
            return {scroll.maximum, false};
        case ScrollCode::Other:
            break;
    }
    return {scroll.position, false};
}

bool LastBandHoldsInk(const ink::InkPage& page) {
    const ViewFiling filing(page);
    const size_t slots = filing.Page().SlotCount();
    if (slots == 0) return false;
    const size_t lastEven = (slots - 1) & ~size_t{1};
    const ink::StrokeBand* band = filing.Page().Band(lastEven);
    return band != nullptr && !band->IsEmpty();
}

int32_t PositionWithin(int64_t position) {
    return static_cast<int32_t>(std::clamp<int64_t>(position, 0, kLastPosition));
}

// Single precision and truncation: pages made on other devices move on by the same rows.
int32_t AdvanceRows(const ink::InkPage& page) {
    return -static_cast<int32_t>(static_cast<float>(page.canvasHeight) * -0.7f);
}

}  // namespace editor
