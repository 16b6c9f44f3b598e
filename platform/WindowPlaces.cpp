#include "platform/WindowPlaces.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "ink/Require.h"

namespace platform {

namespace {

using ink::Rect;

constexpr int kFarthest = 32767;  // of any desktop's pixels from its origin
// How much of a caption is to be in sight.
constexpr int kHoldWidth = 64;
constexpr int kHoldHeight = 16;

// How far apart, by the longer of the two ways; negative where they overlap.
int Distance(const Rect& a, const Rect& b) {
    const int across = std::max(a.left, b.left) - std::min(a.right, b.right);
    const int along = std::max(a.top, b.top) - std::min(a.bottom, b.bottom);
    return std::max(across, along);
}

int64_t CommonPixels(const Rect& a, const Rect& b) {
    const Rect common = Intersect(a, b);
    return common.IsEmpty() ? 0 : int64_t{common.Width()} * common.Height();
}

const Rect& NearestTo(const Rect& frame, const std::vector<Rect>& workAreas) {
    const auto isNearer = [&frame](const Rect& a, const Rect& b) {
        const int64_t pixels = CommonPixels(a, frame);
        const int64_t others = CommonPixels(b, frame);
        return pixels != others ? pixels > others : Distance(a, frame) < Distance(b, frame);
    };
    return *std::min_element(workAreas.begin(), workAreas.end(), isNearer);
}

}  // namespace

std::optional<WindowPlace> ReadWindowPlace(const std::wstring& text) {
    std::wistringstream numbers(text);
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int maximised = 0;
    if (!(numbers >> x >> y >> width >> height >> maximised) || !(numbers >> std::ws).eof())
        return std::nullopt;
    const bool isSomewhere = std::min(x, y) >= -kFarthest && std::max(x, y) <= kFarthest;
    const bool isSized = std::min(width, height) > 0 && std::max(width, height) <= kFarthest;
    if (!isSomewhere || !isSized || maximised < 0 || maximised > 1) return std::nullopt;
    return WindowPlace{{x, y, x + width, y + height}, maximised == 1};
}

std::wstring TextOfPlace(const WindowPlace& place) {
    std::wostringstream text;
    text << place.frame.left << L" " << place.frame.top << L" " << place.frame.Width() << L" "
         << place.frame.Height() << L" " << (place.isMaximised ? 1 : 0);
    return text.str();
}

Rect OntoMonitors(const Rect& frame, const std::vector<Rect>& workAreas, const Rect& least) {
    ink::Require(!workAreas.empty(), "a desktop without a monitor");
    const Rect& area = NearestTo(frame, workAreas);
    Rect sized = frame;
    sized.right = sized.left + std::min(std::max(frame.Width(), least.Width()), area.Width());
    sized.bottom = sized.top + std::min(std::max(frame.Height(), least.Height()), area.Height());
    const Rect caption{sized.left, sized.top, sized.right, sized.top + kHoldHeight};
    const bool isInReach = std::any_of(workAreas.begin(), workAreas.end(), [&caption](const Rect& each) {
        const Rect seen = Intersect(caption, each);
        return seen.Width() >= kHoldWidth && seen.Height() >= kHoldHeight;
    });
    const bool isCut = sized.Width() < frame.Width() || sized.Height() < frame.Height();
    return isInReach && !isCut ? sized : MovedInto(sized, area);
}

}  // namespace platform
