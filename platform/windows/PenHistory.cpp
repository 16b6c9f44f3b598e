#include "platform/windows/PenHistory.h"

#include <algorithm>
#include <cstdint>

namespace platform::windows {

namespace {

// History coordinates carry 16 bits; monitors left of or above the first one have negative ones.
LONG Signed(int coordinate) { return static_cast<int16_t>(coordinate & 0xFFFF); }

// Times wrap after 49 days.
bool IsLater(DWORD time, DWORD than) { return static_cast<int32_t>(time - than) > 0; }

// Fills `history` from the entry of this position on, newest first. The entry is looked for with the
// message's time, and without it where messages and history run on different clocks.
int HistoryFrom(POINT place, DWORD messageTime, MOUSEMOVEPOINT* history) {
    for (const DWORD time : {messageTime, DWORD{0}}) {
        MOUSEMOVEPOINT from{};
        from.x = place.x & 0xFFFF;
        from.y = place.y & 0xFFFF;
        from.time = time;
        const int known = GetMouseMovePointsEx(sizeof from, &from, history, PenHistory::kSystemHistory,
                                               GMMP_USE_DISPLAY_POINTS);
        if (known > 0) return known;
    }
    return 0;
}

bool IsSamePlace(const MOUSEMOVEPOINT& a, const MOUSEMOVEPOINT& b) { return a.x == b.x && a.y == b.y; }

bool IsSame(const MOUSEMOVEPOINT& a, const MOUSEMOVEPOINT& b) {
    return a.time == b.time && IsSamePlace(a, b);
}

}  // namespace

void PenHistory::Begin(HWND window, ink::Point position) {
    Arrive(window, position);
    handling_ = true;
    Leave();
    handling_ = false;
    // Without the press in the history nothing tells what came before it.
    down_ = known_ > 0;
}

void PenHistory::Arrive(HWND window, ink::Point position) {
    POINT place{position.x, position.y};
    ClientToScreen(window, &place);
    known_ = HistoryFrom(place, static_cast<DWORD>(GetMessageTime()), history_);
    // A message sent straight to the window has no place in the pointer's history.
    handling_ = down_ && !InSendMessage();
}

void PenHistory::Leave() {
    if (handling_ && known_ > 0) last_ = history_[0];
    handling_ = false;
}

size_t PenHistory::Samples(HWND window, ink::Point* samples, size_t capacity) const {
    // A message that only repeats the last position: without this, older positions of the same tick of the
    // clock would count as new.
    if (!handling_ || known_ <= 0 || IsSame(history_[0], last_)) return 0;
    size_t count = 0;
    const MOUSEMOVEPOINT* newer = &history_[0];  // the message's own position
    for (int i = 1; i < known_ && count < capacity; ++i) {
        const MOUSEMOVEPOINT& entry = history_[i];
        if (IsSame(entry, last_) || IsLater(last_.time, entry.time)) break;
        // The system notes a position again when it moves the pointer there itself.
        if (IsSamePlace(entry, *newer)) continue;
        newer = &entry;
        POINT client{Signed(entry.x), Signed(entry.y)};
        ScreenToClient(window, &client);
        samples[count++] = {client.x, client.y};
    }
    if (count > 0 && IsSamePlace(*newer, last_)) --count;
    std::reverse(samples, samples + count);
    return count;
}

}  // namespace platform::windows
