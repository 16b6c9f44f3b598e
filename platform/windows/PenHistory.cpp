#include "platform/windows/PenHistory.h"

#include <algorithm>
#include <cstdint>

namespace platform::windows {

namespace {

constexpr int kSystemHistory = 64;

// History coordinates carry 16 bits; monitors left of or above the first one have negative ones.
LONG Signed(int coordinate) {
    return static_cast<int16_t>(coordinate & 0xFFFF);
}

// Times wrap after 49 days.
bool IsLater(DWORD time, DWORD than) {
    return static_cast<int32_t>(time - than) > 0;
}

}  // namespace

PenHistory::Sample PenHistory::SampleOfMessage(HWND window, ink::Point position) {
    Sample sample;
    sample.place = {position.x, position.y};
    ClientToScreen(window, &sample.place);
    sample.time = static_cast<DWORD>(GetMessageTime());
    return sample;
}

void PenHistory::Begin(HWND window, ink::Point position) {
    last_ = SampleOfMessage(window, position);
    down_ = true;
    handling_ = false;
}

void PenHistory::Arrive(HWND window, ink::Point position) {
    current_ = SampleOfMessage(window, position);
    // A message sent straight to the window has no place in the pointer's history.
    handling_ = down_ && !InSendMessage();
}

void PenHistory::Leave() {
    if (handling_) last_ = current_;
    handling_ = false;
}

size_t PenHistory::Samples(HWND window, ink::Point* samples, size_t capacity) const {
    if (!handling_ || capacity == 0) return 0;
    MOUSEMOVEPOINT from{};
    from.x = current_.place.x & 0xFFFF;
    from.y = current_.place.y & 0xFFFF;
    from.time = current_.time;
    MOUSEMOVEPOINT history[kSystemHistory];
    const int known =
        GetMouseMovePointsEx(sizeof from, &from, history, kSystemHistory, GMMP_USE_DISPLAY_POINTS);

    size_t count = 0;
    for (int i = 1; i < known && count < capacity; ++i) {  // [0] is the message's own position
        const Sample sample{{Signed(history[i].x), Signed(history[i].y)}, history[i].time};
        const bool isLast =
            sample.time == last_.time && sample.place.x == last_.place.x && sample.place.y == last_.place.y;
        if (isLast || IsLater(last_.time, sample.time)) break;
        POINT client = sample.place;
        ScreenToClient(window, &client);
        samples[count++] = {client.x, client.y};
    }
    std::reverse(samples, samples + count);
    return count;
}

}  // namespace platform::windows
