#pragma once

#include <cstdint>

#include "platform/PropertyDialog.h"

namespace options {

// The pen as the setting `PenInfo` holds it: size in tenths in bits 0 to 7, style in bits 16 to 23.
struct PenChoice {
    int size = 1;       // 1 to 10
    uint8_t style = 2;  // 2 = smooth, 1 = classic, 0 = simple
};

PenChoice DecodePenInfo(uint32_t penInfo);
uint32_t EncodePenInfo(uint32_t size, uint8_t style);

// "Misc.": pen, calendar and alarms.
class COptPageMisc : public platform::PropertyPage {
  public:
    COptPageMisc();

    bool OnCreate() override;
    void OnControlChanged(int id) override;
    void OnApply() override;

  private:
    void ShowPen(const PenChoice& pen);
    void FollowPenStyle();
};

}  // namespace options
