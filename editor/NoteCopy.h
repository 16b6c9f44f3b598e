#pragma once

#include <string>

#include "ink/InkPage.h"

namespace platform {
class Screen;
}

namespace editor {

// Asks for a place and writes the page there as it is now, as a picture, drawing, document or note; tells
// when that fails. What lay there stays until the copy is whole. The page and its own file are left alone.
// `name` is what is proposed. True when there is another note now.
bool SaveNoteCopy(platform::Screen& owner, const ink::InkPage& page, const std::wstring& name);

}  // namespace editor
