#include "platform/PenTranslator.h"

#include <algorithm>

namespace platform {

namespace {

PenEnd EndOf(const PointerPacket& packet) {
    return packet.isInverted || packet.hasButton ? PenEnd::Eraser : PenEnd::Tip;
}

}  // namespace

bool PenTranslator::Take(const PointerPacket* packets, size_t count) {
    if (count == 0) return true;
    if (packets[0].kind == PointerKind::Touch) {
        if (IsPalm(packets[count - 1])) return true;
        if (!fingersWrite_) return false;
    }
    before_.clear();
    for (size_t i = 0; i < count; ++i) TakePen(packets[i], i + 1 == count);
    return true;
}

// Decided once for each finger: the system is to hear of a contact from its beginning to its end, or not at
// all.
bool PenTranslator::IsPalm(const PointerPacket& packet) {
    const auto known = std::find_if(fingers_.begin(), fingers_.end(), [&packet](const Finger& finger) {
        return finger.pointer == packet.pointer;
    });
    const bool isPalm = known == fingers_.end() ? IsPenAbout(packet.time) : known->isPalm;
    if (known == fingers_.end() && packet.isNear) fingers_.push_back({packet.pointer, isPalm});
    if (known != fingers_.end() && !packet.isNear) fingers_.erase(known);
    return isPalm;
}

void PenTranslator::TakePen(const PointerPacket& packet, bool isLast) {
    const bool isWriter = isDown_ && packet.pointer == writer_;
    if (isDown_ && !isWriter) {
        // Another one waits until this one is lifted, unless that was missed.
        if (!packet.isDown || packet.time - lastTime_ < kSilence) return;
        End();
    }
    if (isWriter && packet.isCanceled) return ContactTaken();
    if (packet.isDown && !packet.isCanceled) {
        // The pen was turned, or its button pressed, in the middle.
        if (isWriter && EndOf(packet) != end_) End();
        isDown_ ? GoOn(packet, isLast) : Begin(packet);
    } else if (isWriter) {
        last_ = packet.isNear ? packet.place : last_;
        End();
    }
    if (packet.kind == PointerKind::Pen) Hover(packet);
}

void PenTranslator::Begin(const PointerPacket& packet) {
    isDown_ = true;
    writer_ = packet.pointer;
    end_ = EndOf(packet);
    last_ = packet.place;
    lastTime_ = packet.time;
    before_.clear();
    listener_.PenDown(packet.place, end_);
}

void PenTranslator::GoOn(const PointerPacket& packet, bool isLast) {
    lastTime_ = packet.time;
    last_ = packet.place;
    if (!isLast) return before_.push_back(packet.place);
    listener_.PenMove(packet.place, before_);
    before_.clear();
}

void PenTranslator::End() {
    isDown_ = false;
    if (!before_.empty() && before_.back() == last_) before_.pop_back();
    listener_.PenUp(last_, before_);
    before_.clear();
}

void PenTranslator::ContactTaken() {
    if (!isDown_) return;
    isDown_ = false;
    before_.clear();
    listener_.PenLost();
}

// A pen that leaves while another one is near says nothing about that one.
void PenTranslator::Hover(const PointerPacket& packet) {
    if (packet.isNear) {
        near_ = packet.pointer;
        isNear_ = hasBeenNear_ = true;
        if (!isDown_) listener_.PenHovers(packet.place, EndOf(packet));
    } else if (isNear_ && packet.pointer == near_) {
        isNear_ = false;
        leftAt_ = packet.time;
        listener_.PenLeaves();
    }
}

}  // namespace platform
