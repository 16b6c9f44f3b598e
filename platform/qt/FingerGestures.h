// What fingers on the page mean: by rules alone, nothing here asks the system anything.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "ink/Geometry.h"

namespace platform::qt {

// One finger moves what is shown; two that touch and go together are a tap.
class FingerGestures {
  public:
    static constexpr uint32_t kTapMilliseconds = 400;
    static constexpr int kTapPixels = 16;  // of a finger that only taps

    void Down(uint32_t finger, ink::Point place, uint32_t time) {
        if (fingers_.empty()) {
            begin_ = time;
            most_ = 0;
            isTap_ = true;
        }
        fingers_.push_back({finger, place, place});
        most_ = std::max(most_, fingers_.size());
    }

    // By how many rows what is shown is to follow.
    int Move(uint32_t finger, ink::Point place) {
        Finger* moved = Find(finger);
        if (moved == nullptr) return 0;
        const int rows = place.y - moved->last.y;
        moved->last = place;
        const ink::Point way{place.x - moved->first.x, place.y - moved->first.y};
        if (std::max(std::abs(way.x), std::abs(way.y)) > kTapPixels) isTap_ = false;
        return fingers_.size() == 1 && most_ == 1 ? rows : 0;
    }

    // True when two fingers have tapped.
    bool Up(uint32_t finger, uint32_t time) {
        const Finger* gone = Find(finger);
        if (gone == nullptr) return false;
        fingers_.erase(fingers_.begin() + (gone - fingers_.data()));
        return fingers_.empty() && isTap_ && most_ == 2 && time - begin_ <= kTapMilliseconds;
    }

    // The contacts were something else.
    void Forget() { fingers_.clear(); }

  private:
    struct Finger {
        uint32_t id;
        ink::Point first;
        ink::Point last;
    };
    Finger* Find(uint32_t finger) {
        const auto isIt = [finger](const Finger& each) { return each.id == finger; };
        const auto found = std::find_if(fingers_.begin(), fingers_.end(), isIt);
        return found == fingers_.end() ? nullptr : &*found;
    }

    std::vector<Finger> fingers_;
    size_t most_ = 0;  // that touched at once since the first came
    uint32_t begin_ = 0;
    bool isTap_ = false;
};

}  // namespace platform::qt
