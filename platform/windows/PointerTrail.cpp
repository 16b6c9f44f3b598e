#include "platform/windows/PointerTrail.h"

namespace platform::windows {

namespace {

// Coordinates carry 16 bits; monitors left of or above the first one have negative ones.
int Signed(int coordinate) { return static_cast<int16_t>(coordinate & 0xFFFF); }

}  // namespace

// The entry is looked for with the message's time, and without it where messages and history run on different
// clocks.
PointerTrail TrailOf(HWND window, ink::Point position) {
    const ink::Point origin = ClientOrigin(window);
    PointerTrail trail;
    for (const DWORD time : {static_cast<DWORD>(GetMessageTime()), DWORD{0}}) {
        MOUSEMOVEPOINT from{};
        from.x = (origin.x + position.x) & 0xFFFF;
        from.y = (origin.y + position.y) & 0xFFFF;
        from.time = time;
        MOUSEMOVEPOINT known[PointerTrail::kMost];
        trail.count =
            GetMouseMovePointsEx(sizeof from, &from, known, PointerTrail::kMost, GMMP_USE_DISPLAY_POINTS);
        for (int i = 0; i < trail.count; ++i)
            trail.samples[static_cast<size_t>(i)] = {{Signed(known[i].x), Signed(known[i].y)}, known[i].time};
        if (trail.count > 0) break;
    }
    return trail;
}

ink::Point ClientOrigin(HWND window) {
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    return {origin.x, origin.y};
}

}  // namespace platform::windows
