#pragma once

#include "options/sheet/CPropertyPageEx.h"

namespace options {

// "Misc.": pen, calendar and alarms.
class COptPageMisc : public CPropertyPageEx {
  public:
    COptPageMisc();

    void OnControlChanged(int id) override;

  private:
    void ShowSettings(const store::Settings& settings) override;
    void StoreSettings(store::Settings& settings) override;
    void ShowPen(uint32_t penInfo);
    void FollowPenStyle();
};

}  // namespace options
