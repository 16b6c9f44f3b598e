#pragma once

#include <string>

#include "ink/InkPage.h"

namespace platform {
class Screen;
}

namespace editor {

// Asks for a printer and prints the page as it is now, on as many sheets as it needs; tells when that fails.
// The page must stay as it is until this returns. `name` is what the printer's queue shows.
void PrintNote(platform::Screen& owner, const ink::InkPage& page, const std::wstring& name);

}  // namespace editor
