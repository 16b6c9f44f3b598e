#include "platform/ScaleText.h"

#include <cmath>
#include <cwchar>

namespace platform {

std::optional<ink::Scale> ScaleOfText(const std::wstring& text) {
    constexpr double kLargest = 3;
    wchar_t* end = nullptr;
    const double scale = std::wcstod(text.c_str(), &end);
    if (text.empty() || *end != L'\0' || !(scale >= 1 && scale <= kLargest)) return std::nullopt;
    return ink::Scale(static_cast<int32_t>(std::lround(scale * ink::Scale::kPageDots)));
}

}  // namespace platform
