#pragma once

#include <string>
#include <vector>

#include "platform/Image.h"
#include "platform/Window.h"

namespace platform::host {

struct TemplateItem {
    int id = 0;
    std::wstring kind;  // the resource script's keyword, or the window class of a CONTROL
    std::wstring text;
    Rect place;  // dialog units
};

struct DialogTemplate {
    std::wstring caption;
    int width = 0;  // dialog units
    int height = 0;
    std::vector<TemplateItem> items;
};

// Reads the program's own resource script, so that both ports show the same dialogs. False for an id that it
// does not hold.
bool FindDialogTemplate(int id, DialogTemplate& found);
// The file of a BITMAP resource; empty when there is none.
std::string FindBitmapFile(int id);

// The named file of the resource folder as an image of this scale; only uncompressed 24-bit bitmaps.
Image LoadBitmapFile(const std::string& name, ink::Scale scale = ink::Scale());

}  // namespace platform::host
