#include "platform/windows/DialogSource.h"

#include <cstring>

#include "platform/windows/ScreenScale.h"
#include "platform/windows/WindowImpl.h"

namespace platform::windows {

namespace {

// Of an extended template, in 16-bit units: the fixed part, after which come menu, class and title.
constexpr size_t kFixedUnits = 13;
constexpr uint16_t kExtended = 0xFFFF;  // the second unit of such a template

// Behind a text that ends with a zero, or a number that is told by 0xFFFF.
size_t Behind(const uint16_t* units, size_t count, size_t at) {
    if (at < count && units[at] == 0xFFFF) return at + 2;
    while (at < count && units[at] != 0) ++at;
    return at + 1;
}

void EnlargeText(uint16_t* units, size_t count, ink::Scale wanted, UINT given) {
    if (count <= kFixedUnits || units[1] != kExtended) return;
    size_t points = kFixedUnits;
    for (int part = 0; part < 3; ++part) points = Behind(units, count, points);
    if (points < count)
        units[points] = static_cast<uint16_t>(MulDiv(units[points], wanted.Dots(), static_cast<int>(given)));
}

}  // namespace

DialogSource FindDialog(int id) {
    DialogSource source;
    const HRSRC found = FindResourceW(Module(), MAKEINTRESOURCEW(id), reinterpret_cast<LPCWSTR>(RT_DIALOG));
    const HGLOBAL loaded = found ? LoadResource(Module(), found) : nullptr;
    const void* const bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes) return source;
    const size_t size = SizeofResource(Module(), found);
    source.units_.resize((size + sizeof(uint32_t) - 1) / sizeof(uint32_t));
    std::memcpy(source.units_.data(), bytes, size);
    const UINT dots = DotsAt(nullptr);
    const ink::Scale wanted = ScaleFor(dots);
    if (wanted != ink::Scale(static_cast<int32_t>(dots)))
        EnlargeText(reinterpret_cast<uint16_t*>(source.units_.data()), size / sizeof(uint16_t), wanted, dots);
    return source;
}

}  // namespace platform::windows
