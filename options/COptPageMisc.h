#pragma once

#include <cstdint>

#include "ink/PenStyle.h"
#include "platform/PropertyDialog.h"

namespace options {

// The pen as the setting `PenInfo` holds it: size in tenths in bits 0 to 7, style in bits 16 to 23.
struct PenChoice {
    int size = 1;  // 1 to 10
    ink::PenStyle style = ink::PenStyle::Smooth;
};

PenChoice DecodePenInfo(uint32_t penInfo);
uint32_t EncodePenInfo(uint32_t size, ink::PenStyle style);

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
