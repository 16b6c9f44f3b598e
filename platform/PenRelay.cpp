#include "platform/PenRelay.h"

#include <algorithm>

#include "platform/Window.h"

namespace platform {

size_t PenRelay::Samples(ink::Point* samples, size_t capacity) const {
    const size_t count = std::min(capacity, before_.size());
    std::copy(before_.end() - static_cast<std::ptrdiff_t>(count), before_.end(), samples);
    return count;
}

void PenRelay::PenDown(ink::Point place, PenEnd end) {
    end_ = end;
    before_.clear();
    window_.OnPenDown(place);
}

void PenRelay::PenMove(ink::Point place, const std::vector<ink::Point>& before) {
    before_ = before;
    window_.OnPenMove(place);
    before_.clear();
}

void PenRelay::PenUp(ink::Point place, const std::vector<ink::Point>& before) {
    before_ = before;
    window_.OnPenUp(place);
    before_.clear();
    end_ = PenEnd::Tip;
}

void PenRelay::PenHovers(ink::Point place, PenEnd end) { window_.OnPenHover(place, end); }

void PenRelay::PenLeaves() { window_.OnPenLeave(); }

}  // namespace platform
