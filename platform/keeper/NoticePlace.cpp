#include "platform/keeper/NoticePlace.h"

#include <algorithm>

namespace platform::windows {

namespace {

constexpr int kGap = 14;
constexpr int kCascadeStep = 30;
constexpr int kCascadeLength = 10;

}  // namespace

Point PlaceNotice(const Rect& work, int width, int height, const std::vector<Rect>& others) {
    std::vector<int> bottoms{work.bottom - kGap};
    for (const Rect& other : others) bottoms.push_back(other.top - kGap);
    std::sort(bottoms.rbegin(), bottoms.rend());
    for (int left = work.right - kGap - width; left >= work.left; left -= width + kGap) {
        for (const int bottom : bottoms) {
            const int top = bottom - height;
            const Rect around{left - kGap, top - kGap, left + width + kGap, bottom + kGap};
            const bool isFree = std::all_of(others.begin(), others.end(), [&](const Rect& other) {
                return ink::Intersect(around, other).IsEmpty();
            });
            if (isFree && top >= work.top && bottom <= work.bottom) return {left, top};
        }
    }
    const int shift = static_cast<int>(others.size()) % kCascadeLength * kCascadeStep;
    return {std::max(work.left, work.right - kGap - width - shift),
            std::max(work.top, std::min(work.top + shift, work.bottom - height))};
}

}  // namespace platform::windows
