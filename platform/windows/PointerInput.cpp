#include "platform/windows/PointerInput.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cwchar>

#include "platform/windows/FingerRules.h"
#include "platform/windows/LookUp.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/WindowImpl.h"

namespace platform::windows {

namespace {

// Not in user32 before Windows 8, and so looked up.
struct PointerFunctions {
    decltype(&::GetPointerType) type = nullptr;
    decltype(&::GetPointerInfo) info = nullptr;
    decltype(&::GetPointerPenInfoHistory) penHistory = nullptr;
    bool AreThere() const { return type && info && penHistory; }
};

const PointerFunctions& Functions() {
    static const PointerFunctions functions = [] {
        PointerFunctions found;
        LookUp(found.type, "GetPointerType");
        LookUp(found.info, "GetPointerInfo");
        LookUp(found.penHistory, "GetPointerPenInfoHistory");
        return found;
    }();
    return functions;
}

// More than a pen of 240 packets a second sends while the program is busy for half a second.
constexpr UINT32 kMostPackets = 128;

PointerPacket PacketOf(const POINTER_INFO& info, const Window::Impl& state) {
    PointerPacket packet;
    POINT place = info.ptPixelLocation;
    ScreenToClient(state.page, &place);
    packet.pointer = info.pointerId;
    packet.kind = info.pointerType == PT_PEN ? PointerKind::Pen : PointerKind::Touch;
    packet.place = ToPage(place, state.scale);
    packet.time = info.dwTime;
    packet.isNear = (info.pointerFlags & POINTER_FLAG_INRANGE) != 0;
    packet.isDown = (info.pointerFlags & POINTER_FLAG_INCONTACT) != 0;
    packet.isCanceled = (info.pointerFlags & POINTER_FLAG_CANCELED) != 0;
    return packet;
}

PointerPacket PacketOf(const POINTER_PEN_INFO& pen, const Window::Impl& state) {
    PointerPacket packet = PacketOf(pen.pointerInfo, state);
    packet.isInverted = (pen.penFlags & (PEN_FLAG_INVERTED | PEN_FLAG_ERASER)) != 0;
    packet.hasButton = (pen.penFlags & PEN_FLAG_BARREL) != 0;
    return packet;
}

bool FingersWriteHere() {
    const wchar_t* option = _wgetenv(L"INKWRIGHT_FINGERS");
    return FingersWrite(GetSystemMetrics(SM_DIGITIZER), GetSystemMetrics(SM_MOUSEPRESENT) != 0,
                        option ? option : L"");
}

}  // namespace

PointerInput::PointerInput(Window& window)
    : PenRelay(window), pens_(*this), fingersWrite_(FingersWriteHere()) {
    pens_.LetFingersWrite(fingersWrite_);
}

bool PointerInput::Take(UINT message, WPARAM wParam, LPARAM) {
    if (!Functions().AreThere()) return false;
    const UINT32 pointer = GET_POINTERID_WPARAM(wParam);
    POINTER_INPUT_TYPE type = PT_POINTER;
    if (!Functions().type(pointer, &type) || (type != PT_PEN && type != PT_TOUCH)) return false;
    if (message == WM_POINTERCAPTURECHANGED) {
        pens_.ContactTaken();
        return type == PT_PEN;
    }
    return type == PT_PEN ? TakePen(pointer) : TakeFinger(pointer);
}

// The history comes newest first.
bool PointerInput::TakePen(UINT32 pointer) {
    std::array<POINTER_PEN_INFO, kMostPackets> history{};
    UINT32 count = kMostPackets;
    if (!Functions().penHistory(pointer, &count, history.data())) return false;
    count = std::min(count, kMostPackets);
    std::vector<PointerPacket> packets;
    packets.reserve(count);
    for (UINT32 i = count; i-- > 0;) packets.push_back(PacketOf(history[i], *window_.Handle()));
    return pens_.Take(packets.data(), packets.size());
}

bool PointerInput::TakeFinger(UINT32 pointer) {
    POINTER_INFO info{};
    if (!Functions().info(pointer, &info)) return false;
    const PointerPacket packet = PacketOf(info, *window_.Handle());
    return pens_.Take(&packet, 1);
}

bool PointerInput::TakeGesture(UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_GESTURENOTIFY) {
        GESTURECONFIG wanted[] = {
            {GID_PAN, GC_PAN | GC_PAN_WITH_SINGLE_FINGER_VERTICALLY | GC_PAN_WITH_INERTIA,
             GC_PAN_WITH_SINGLE_FINGER_HORIZONTALLY | GC_PAN_WITH_GUTTER},
            {GID_TWOFINGERTAP, GC_TWOFINGERTAP, 0}};
        SetGestureConfig(window_.Handle()->page, 0, 2, wanted, sizeof wanted[0]);
        return false;  // the system asks others too
    }
    GESTUREINFO gesture{};
    gesture.cbSize = sizeof gesture;
    const auto handle = reinterpret_cast<HGESTUREINFO>(lParam);
    if (!GetGestureInfo(handle, &gesture)) return false;
    const bool isOurs = gesture.dwID == GID_PAN || gesture.dwID == GID_TWOFINGERTAP;
    if (!isOurs) return false;
    CloseGestureInfoHandle(handle);
    const int64_t row = window_.Handle()->scale.ToPage(gesture.ptsLocation.y);
    const int64_t rows = (gesture.dwFlags & GF_BEGIN) != 0 ? 0 : row - panRow_;
    panRow_ = row;
    // The hand of somebody who writes moves too.
    if (pens_.IsPenAbout(static_cast<uint32_t>(GetMessageTime()))) return true;
    if (gesture.dwID == GID_PAN && rows != 0) window_.OnPan(static_cast<int>(rows));
    if (gesture.dwID == GID_TWOFINGERTAP) window_.OnTwoFingerTap();
    return true;
}

bool PointerInput::IsFromFinger() const {
    return !fingersWrite_ && IsMadeOfTouch(static_cast<uint32_t>(GetMessageExtraInfo()));
}

void PointerInput::PenLost() {
    if (window_.HasPen()) window_.ReleasePen();
    end_ = PenEnd::Tip;
}

}  // namespace platform::windows
