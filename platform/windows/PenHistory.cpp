#include "platform/windows/PenHistory.h"

#include <algorithm>
#include <cstdlib>

namespace platform::windows {

namespace {

// Times wrap after 49 days.
bool IsLater(uint32_t time, uint32_t than) { return static_cast<int32_t>(time - than) > 0; }

bool IsSame(const PointerSample& a, const PointerSample& b) { return a.time == b.time && a.place == b.place; }

}  // namespace

PointerTrail TrailByTime(const PointerSample& message, const PointerTrail& noted) {
    constexpr int kNear = 1;  // pixels by which roundings differ
    PointerTrail trail;
    trail.samples[0] = message;
    trail.count = 1;
    for (int i = 0; i < noted.count && trail.count < PointerTrail::kMost; ++i) {
        const PointerSample& sample = noted.samples[static_cast<size_t>(i)];
        const bool isMessage = trail.count == 1 && std::abs(sample.place.x - message.place.x) <= kNear &&
                               std::abs(sample.place.y - message.place.y) <= kNear;
        if (IsLater(sample.time, message.time) || isMessage) continue;
        trail.samples[static_cast<size_t>(trail.count++)] = sample;
    }
    return trail;
}

void PenHistory::Begin(const PointerTrail& trail) {
    trail_ = trail;
    handling_ = true;
    Leave();
    down_ = trail.count > 0;
}

void PenHistory::Arrive(const PointerTrail& trail, bool sentDirectly) {
    trail_ = trail;
    handling_ = down_ && !sentDirectly;
}

void PenHistory::Leave() {
    if (handling_ && trail_.count > 0) last_ = trail_.samples[0];
    handling_ = false;
}

size_t PenHistory::Samples(ink::Point origin, ink::Point* samples, size_t capacity) const {
    // A message that only repeats the last position: without this, older positions of the same tick of the
    // clock would count as new.
    if (!handling_ || trail_.count <= 0 || IsSame(trail_.samples[0], last_)) return 0;
    size_t count = 0;
    ink::Point newer = trail_.samples[0].place;  // the message's own position
    for (int i = 1; i < trail_.count && count < capacity; ++i) {
        const PointerSample& sample = trail_.samples[static_cast<size_t>(i)];
        if (IsSame(sample, last_) || IsLater(last_.time, sample.time)) break;
        // The system notes a position again when it moves the pointer there itself.
        if (sample.place == newer) continue;
        newer = sample.place;
        samples[count++] = {newer.x - origin.x, newer.y - origin.y};
    }
    if (count > 0 && newer == last_.place) --count;
    std::reverse(samples, samples + count);
    return count;
}

}  // namespace platform::windows
