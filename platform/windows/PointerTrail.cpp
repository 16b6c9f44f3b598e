#include "platform/windows/PointerTrail.h"

namespace platform::windows {

namespace {

// Coordinates carry 16 bits; monitors left of or above the first one have negative ones.
int Signed(int coordinate) { return static_cast<int16_t>(coordinate & 0xFFFF); }

// What the system keeps from this place on; with time 0, from the last time that the pointer was there.
PointerTrail TrailFrom(ink::Point place, DWORD time) {
    PointerTrail trail;
    MOUSEMOVEPOINT from{};
    from.x = place.x & 0xFFFF;
    from.y = place.y & 0xFFFF;
    from.time = time;
    MOUSEMOVEPOINT known[PointerTrail::kMost];
    trail.count =
        GetMouseMovePointsEx(sizeof from, &from, known, PointerTrail::kMost, GMMP_USE_DISPLAY_POINTS);
    for (int i = 0; i < trail.count; ++i)
        trail.samples[static_cast<size_t>(i)] = {{Signed(known[i].x), Signed(known[i].y)}, known[i].time};
    return trail;
}

}  // namespace

// The entry is looked for with the message's time, and without it where messages and history run on different
// clocks. Where it can't be found at all, everything up to where the pointer is now counts by its time.
PointerTrail TrailOf(HWND window, ink::Point position) {
    const ink::Point origin = ClientOrigin(window);
    const PointerSample message{{origin.x + position.x, origin.y + position.y},
                                static_cast<uint32_t>(GetMessageTime())};
    for (const DWORD time : {DWORD{message.time}, DWORD{0}}) {
        const PointerTrail trail = TrailFrom(message.place, time);
        if (trail.count > 0) return trail;
    }
    POINT now{};
    if (!GetCursorPos(&now)) return {};
    const PointerTrail noted = TrailFrom({now.x, now.y}, 0);
    return noted.count > 0 ? TrailByTime(message, noted) : noted;
}

ink::Point ClientOrigin(HWND window) {
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    return {origin.x, origin.y};
}

}  // namespace platform::windows
