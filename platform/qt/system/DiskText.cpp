#include "platform/qt/system/DiskText.h"

#include <cstdint>
#include <cwchar>

namespace platform::qt {

namespace {

constexpr uint32_t kStandIns = 0xF000;
constexpr wchar_t kReplacement = 0xFFFD;
constexpr uint32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};  // by how many bytes follow the first

bool IsCharacter(uint32_t point) { return point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF); }

void Append(uint32_t point, std::string& bytes) {
    int further = 0;
    while (further < 3 && point >= kSmallest[further + 1]) ++further;
    constexpr uint32_t kLead[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(kLead[further] | point >> 6 * further);
    while (further-- > 0) bytes += static_cast<char>(0x80 | (point >> 6 * further & 0x3F));
}

// The character at `at`, which moves on behind it; false, and nothing moves, where there is none.
bool Next(const std::string& bytes, size_t& at, uint32_t& point) {
    const auto byte = [&bytes](size_t i) { return i < bytes.size() ? static_cast<uint8_t>(bytes[i]) : 0u; };
    const uint32_t lead = byte(at);
    const size_t further = lead < 0x80 ? 0u : lead >= 0xF0 ? 3u : lead >= 0xE0 ? 2u : 1u;
    if ((lead >= 0x80 && lead < 0xC0) || lead >= 0xF8) return false;
    point = further == 0 ? lead : lead & (0x3Fu >> further);
    for (size_t i = 1; i <= further; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) return false;
        point = point << 6 | (byte(at + i) & 0x3F);
    }
    if (point < kSmallest[further] || !IsCharacter(point)) return false;
    at += further + 1;
    return true;
}

template <typename Odd>
std::wstring Decode(const std::string& bytes, Odd odd) {
    std::wstring text;
    text.reserve(bytes.size());
    for (size_t at = 0; at < bytes.size();) {
        uint32_t point = 0;
        if (Next(bytes, at, point)) {
            text += static_cast<wchar_t>(point);
        } else {
            text += odd(static_cast<uint8_t>(bytes[at++]));
        }
    }
    return text;
}

}  // namespace

bool ToDisk(const std::wstring& text, std::string& bytes) {
    bytes.clear();
    for (const wchar_t c : text) {
        const auto point = static_cast<char32_t>(c);
        if (point == 0 || !IsCharacter(point)) return false;
        Append(point, bytes);
    }
    return true;
}

std::wstring NameFromDisk(const std::string& name) {
    std::wstring text = Decode(name, [](uint8_t byte) { return static_cast<wchar_t>(kStandIns + byte); });
    const auto standIn = [](wchar_t& c) { c = static_cast<wchar_t>(kStandIns + static_cast<uint32_t>(c)); };
    for (wchar_t& c : text) {
        if (c < L' ' || std::wcschr(L"\\/:*?\"<>|", c)) standIn(c);
    }
    // Trailing dots and blanks of a handheld's name do not count.
    if (!text.empty() && (text.back() == L'.' || text.back() == L' ')) standIn(text.back());
    return text;
}

std::wstring TextFromDisk(const std::string& bytes) {
    return Decode(bytes, [](uint8_t) { return kReplacement; });
}

}  // namespace platform::qt
