#include "manager/HeaderBar.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/Product.h"
#include "platform/TextEncoding.h"

namespace manager {

namespace {

constexpr platform::Font kFont{85, true};
constexpr double kHeightFactor = 1.5;
constexpr int kRightMargin = 5;

std::wstring StorageName(const std::wstring& rootPrefix) {
    const size_t productTail = std::wstring(platform::kProductName).size() + 2;  // between backslashes
    const std::wstring storage =
        rootPrefix.substr(0, rootPrefix.size() - std::min(productTail, rootPrefix.size()));
    return platform::EqualNoCase(storage, platform::DocumentsFolder()) ? L" Main Memory" : storage;
}

// Whole kilobytes as megabytes, in the single precision that every release has shown.
std::wstring FreeSpace(const std::wstring& rootPrefix) {
    uint64_t bytes = 0;
    if (!platform::FreeBytes(store::WithoutTrailingBackslashes(rootPrefix), bytes)) return {};
    const auto megabytes = static_cast<float>(static_cast<double>(bytes >> 10) * 0.0009765625);
    wchar_t text[64];
    std::swprintf(text, std::size(text), L" [ %.02fMB Free ]", static_cast<double>(megabytes));
    return text;
}

}  // namespace

int HeaderBar::Height(ink::Scale scale) {
    return static_cast<int>(platform::Canvas::TextSize(L"Aqua", kFont, scale).bottom * kHeightFactor);
}

std::wstring HeaderBar::Text(const std::wstring& rootPrefix) {
    const std::wstring text = StorageName(rootPrefix) + FreeSpace(rootPrefix);
    const size_t first = text.find_first_not_of(L'\\');
    return first == std::wstring::npos ? std::wstring() : text.substr(first);
}

void HeaderBar::Update(const std::wstring& rootPrefix, int width, ink::Scale scale) {
    text_ = Text(rootPrefix);
    Draw(width, scale);
}

void HeaderBar::Draw(int width, ink::Scale scale) {
    using platform::SystemColor;
    const int height = Height(scale);
    if (picture_.Width() != width || picture_.Height() != height || picture_.PageScale() != scale)
        picture_ = platform::Image::Make(width, height, scale);
    if (!picture_.IsValid()) return;
    platform::Canvas canvas(picture_);
    const platform::Rect all{0, 0, width, height};
    canvas.Fill(all, platform::ColorOf(SystemColor::BarFace));
    canvas.Fill({0, height - 1, width, height}, platform::ColorOf(SystemColor::BarEdge));
    const platform::Rect size = platform::Canvas::TextSize(text_, kFont, scale);
    const platform::Point place{width - kRightMargin - size.right, (height - size.bottom) / 2 - 1};
    canvas.Text(text_, place, kFont, platform::ColorOf(SystemColor::BarText), all);
}

}  // namespace manager
