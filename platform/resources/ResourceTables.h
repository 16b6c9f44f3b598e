// The program's dialogs and bitmaps, made from res/ when the program is built, for ports whose system keeps
// no resources: nothing has to lie beside such a program.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ink/Geometry.h"
#include "platform/Image.h"

namespace platform::resources {

struct DialogItem {
    int id = 0;
    std::wstring kind;  // the resource script's keyword, or the window class of a CONTROL
    std::wstring text;
    std::wstring styles;  // by their names, a blank around each
    ink::Rect place;      // dialog units

    bool Has(const wchar_t* style) const;
};

struct DialogTemplate {
    int id = 0;
    std::wstring caption;
    std::wstring styles;
    int width = 0;  // dialog units
    int height = 0;
    std::vector<DialogItem> items;
};

// A file of res/ as it is.
struct ResourceFile {
    int id = 0;
    const unsigned char* bytes = nullptr;
    size_t size = 0;
};

// Null for an id that the program does not have.
const DialogTemplate* FindDialog(int id);
// Without bytes for an id that the program does not have.
ResourceFile FindIcon(int id);
// Only uncompressed 24-bit bitmaps; invalid when there is none or memory is short.
// In the largest size drawn for it that `scale` has room for.
Image ImageOfBitmap(int id, ink::Scale scale);

// The tables themselves.
const std::vector<DialogTemplate>& Dialogs();
const std::vector<ResourceFile>& Bitmaps();
const std::vector<ResourceFile>& Icons();

}  // namespace platform::resources
