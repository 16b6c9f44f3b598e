#include "platform/windows/ScreenScale.h"

#include "platform/ScaleText.h"
#include "platform/windows/Guards.h"
#include "platform/windows/LookUp.h"
#include "platform/windows/SystemText.h"
#include "platform/windows/WindowImpl.h"

namespace platform::windows {

namespace {

// Not in user32 before Windows 10 of 2016, and so looked up.
struct ScaleFunctions {
    decltype(&::GetDpiForWindow) dotsOfWindow = nullptr;
    decltype(&::GetDpiForSystem) dotsOfSystem = nullptr;
    decltype(&::AdjustWindowRectExForDpi) adjust = nullptr;
};

const ScaleFunctions& Functions() {
    static const ScaleFunctions functions = [] {
        ScaleFunctions found;
        LookUp(found.dotsOfWindow, "GetDpiForWindow");
        LookUp(found.dotsOfSystem, "GetDpiForSystem");
        LookUp(found.adjust, "AdjustWindowRectExForDpi");
        return found;
    }();
    return functions;
}

UINT DotsOfSession() {
    const OwnedMemoryDc dc(CreateCompatibleDC(nullptr));
    return dc ? static_cast<UINT>(GetDeviceCaps(dc.get(), LOGPIXELSX)) : ink::Scale::kPageDots;
}

}  // namespace

UINT DotsAt(HWND window) {
    const ScaleFunctions& functions = Functions();
    const UINT dots = window && functions.dotsOfWindow    ? functions.dotsOfWindow(window)
                      : !window && functions.dotsOfSystem ? functions.dotsOfSystem()
                                                          : 0;
    return dots != 0 ? dots : DotsOfSession();
}

ink::Scale ScaleAt(HWND window) {
    const Window* ours = window ? WindowOf(window) : nullptr;
    return ours && ours->Handle()->frame ? ours->Handle()->scale : ScaleFor(DotsAt(window));
}

ink::Scale ScaleFor(UINT dots) {
    const std::optional<ink::Scale> asked = ScaleOfText(EnvironmentText(L"INKWRIGHT_SCALE"));
    return asked ? *asked : ink::Scale(static_cast<int32_t>(dots));
}

SIZE FrameAround(SIZE client, DWORD style, UINT dots) {
    RECT frame{0, 0, client.cx, client.cy};
    if (Functions().adjust) {
        Functions().adjust(&frame, style, FALSE, 0, dots);
    } else {
        AdjustWindowRectEx(&frame, style, FALSE, 0);
    }
    return {frame.right - frame.left, frame.bottom - frame.top};
}

RECT ToDesktop(const ink::Rect& page, ink::Scale scale) {
    const ink::Rect place = scale.ToSurface(page);
    return {place.left, place.top, place.right, place.bottom};
}

ink::Rect ToPage(const RECT& desktop, ink::Scale scale) {
    const ink::Point topLeft = scale.ToView({desktop.left, desktop.top});
    const ink::Point bottomRight = scale.ToView({desktop.right, desktop.bottom});
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

ink::Point ToPage(POINT client, ink::Scale scale) { return scale.ToView({client.x, client.y}); }

int WholePagePixels(int screenPixels, ink::Scale scale) {
    return screenPixels <= 0 ? 0 : static_cast<int>(scale.ToPage(screenPixels - 1)) + 1;
}

}  // namespace platform::windows
