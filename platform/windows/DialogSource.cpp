#include "platform/windows/DialogSource.h"

#include <cstring>

#include "platform/windows/ScreenScale.h"
#include "platform/windows/WindowImpl.h"

namespace platform::windows {

namespace {

// The fixed part of a template, after which come menu, class and title; in 16-bit units.
constexpr size_t kFixedUnits = 9;
constexpr size_t kFixedUnitsExtended = 13;
constexpr uint16_t kExtended = 0xFFFF;  // the second unit of an extended template

// Behind a text that ends with a zero, or a number that is told by 0xFFFF.
size_t Behind(const uint16_t* units, size_t at) {
    if (units[at] == 0xFFFF) return at + 2;
    while (units[at] != 0) ++at;
    return at + 1;
}

}  // namespace

void EnlargeDialog(DLGTEMPLATE& source) {
    const UINT given = DotsAt(nullptr);
    const ink::Scale wanted = ScaleFor(given);
    auto* const units = reinterpret_cast<uint16_t*>(&source);
    const bool isExtended = units[1] == kExtended;
    DWORD style = source.style;
    if (isExtended) std::memcpy(&style, units + 6, sizeof style);
    if (wanted == ink::Scale(static_cast<int32_t>(given)) || (style & DS_SETFONT) == 0) return;
    size_t points = isExtended ? kFixedUnitsExtended : kFixedUnits;
    for (int part = 0; part < 3; ++part) points = Behind(units, points);
    units[points] = static_cast<uint16_t>(MulDiv(units[points], wanted.Dots(), static_cast<int>(given)));
}

DialogSource FindDialog(int id) {
    DialogSource source;
    const HRSRC found = FindResourceW(Module(), MAKEINTRESOURCEW(id), reinterpret_cast<LPCWSTR>(RT_DIALOG));
    const HGLOBAL loaded = found ? LoadResource(Module(), found) : nullptr;
    const void* const bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes) return source;
    const size_t size = SizeofResource(Module(), found);
    source.units_.resize((size + sizeof(uint32_t) - 1) / sizeof(uint32_t));
    std::memcpy(source.units_.data(), bytes, size);
    EnlargeDialog(*reinterpret_cast<DLGTEMPLATE*>(source.units_.data()));
    return source;
}

}  // namespace platform::windows
