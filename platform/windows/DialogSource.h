#pragma once

#include <cstdint>
#include <vector>

#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// Gives a dialog that is still to be made text as large as INKWRIGHT_SCALE asks for: dialogs are measured in
// their font, so all that is in them grows with it. The system itself enlarges them as the monitor asks for.
void EnlargeDialog(DLGTEMPLATE& source);

// A dialog template of the program's resources, enlarged so.
class DialogSource {
  public:
    // Null for an id that the resources lack.
    const DLGTEMPLATE* Template() const {
        return units_.empty() ? nullptr : reinterpret_cast<const DLGTEMPLATE*>(units_.data());
    }

  private:
    friend DialogSource FindDialog(int id);
    std::vector<uint32_t> units_;  // templates begin at a multiple of four bytes
};
DialogSource FindDialog(int id);

}  // namespace platform::windows
