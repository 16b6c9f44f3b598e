// From what pens and fingers report to the pen events of a window. Asks the system for nothing: a port fills
// in packets, one or more for each message, and hands on what comes out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/Geometry.h"

namespace platform {

enum class PointerKind { Pen, Touch };

// Which end of the pen is meant. A pen whose barrel button is held is its eraser too.
enum class PenEnd { Tip, Eraser };

// What a device reported at one moment.
struct PointerPacket {
    uint32_t pointer = 0;  // the system's number for the pen or finger, from its coming near to its leaving
    PointerKind kind = PointerKind::Pen;
    ink::Point place;   // page pixels of the client area
    uint32_t time = 0;  // milliseconds that wrap
    bool isNear = true;
    bool isDown = false;
    bool isInverted = false;
    bool hasButton = false;   // the barrel button is held
    bool isCanceled = false;  // the system takes this contact for something else
};

// Who hears of the pen: a port hands these on to the window. Places are those of the packets.
class PenListener {
  public:
    virtual ~PenListener() = default;
    virtual void PenDown(ink::Point place, PenEnd end) = 0;
    // `before`: where the pen was since the event before, oldest first, without `place`.
    virtual void PenMove(ink::Point place, const std::vector<ink::Point>& before) = 0;
    virtual void PenUp(ink::Point place, const std::vector<ink::Point>& before) = 0;
    // The contact came to nothing.
    virtual void PenLost() = 0;
    // Near, and not touching.
    virtual void PenHovers(ink::Point place, PenEnd end) = 0;
    virtual void PenLeaves() = 0;
};

// One pen writes at a time: the first that touches. Fingers write only where nothing else could, and else
// belong to the system, but for those that came while a pen was near or had just been: that is the hand.
class PenTranslator {
  public:
    // A hand rests for so long after the pen has left, in milliseconds.
    static constexpr uint32_t kPalmTime = 500;
    // A contact of which nothing was heard for so long has ended unnoticed, once another pen comes down.
    static constexpr uint32_t kSilence = 1000;

    explicit PenTranslator(PenListener& listener) : listener_(listener) {}

    void LetFingersWrite(bool write) { fingersWrite_ = write; }

    // The packets of one message of one pointer, oldest first. False when the system is to make of them what
    // it makes of fingers; otherwise nobody else is to see the message.
    bool Take(const PointerPacket* packets, size_t count);
    // The window does not get the contact any more.
    void ContactTaken();
    bool HasContact() const { return isDown_; }
    // Whether fingers mean nothing now, those included that came before the pen.
    bool IsPenAbout(uint32_t time) const { return isNear_ || (hasBeenNear_ && time - leftAt_ < kPalmTime); }

  private:
    bool IsPalm(const PointerPacket& packet);
    void TakePen(const PointerPacket& packet, bool isLast);
    void Begin(const PointerPacket& packet);
    void GoOn(const PointerPacket& packet, bool isLast);
    void End();
    void Hover(const PointerPacket& packet);

    PenListener& listener_;
    bool fingersWrite_ = false;

    uint32_t writer_ = 0;  // the pointer whose contact it is
    bool isDown_ = false;
    PenEnd end_ = PenEnd::Tip;
    ink::Point last_;
    uint32_t lastTime_ = 0;
    std::vector<ink::Point> before_;

    uint32_t near_ = 0;  // the pen that hovers or writes
    bool isNear_ = false;
    bool hasBeenNear_ = false;
    uint32_t leftAt_ = 0;
    struct Finger {
        uint32_t pointer;
        bool isPalm;  // as it was found when it came
    };
    std::vector<Finger> fingers_;
};

}  // namespace platform
