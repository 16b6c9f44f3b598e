#include "platform/Utf16.h"

#include <cstdint>

namespace platform {

namespace {

constexpr bool kIsWide = sizeof(wchar_t) > sizeof(char16_t);

bool IsHighHalf(uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowHalf(uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::u16string ToUtf16(const std::wstring& text) {
    std::u16string units;
    units.reserve(text.size());
    for (const wchar_t c : text) {
        const auto point = static_cast<char32_t>(c);
        if (kIsWide && point > 0xFFFF) {
            units += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10 & 0x3FF));
            units += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
        } else {
            units += static_cast<char16_t>(point);
        }
    }
    return units;
}

std::wstring FromUtf16(const std::u16string& units) {
    std::wstring text;
    text.reserve(units.size());
    for (size_t i = 0; i < units.size(); ++i) {
        const uint32_t unit = units[i];
        const uint32_t next = i + 1 < units.size() ? units[i + 1] : 0u;
        if (kIsWide && IsHighHalf(unit) && IsLowHalf(next)) {
            text += static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
            ++i;
        } else {
            text += static_cast<wchar_t>(unit);
        }
    }
    return text;
}

}  // namespace platform
