#include "platform/mail/MailMessage.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <new>

#include "platform/TextEncoding.h"

namespace platform::windows {

namespace {

// Not to be found in base64, and no line of our text begins with two dashes.
constexpr char kBoundary[] = "=_Inkwright_page_=";
constexpr char kText[] = "A note written with Inkwright is attached.\r\n";

constexpr size_t kBase64LineBytes = 57;   // makes lines of 76 characters
constexpr size_t kSubjectWordBytes = 36;  // encoded, the word and "Subject: " fit into one line
constexpr size_t kPlainLimit = 60;        // longest text that is written as it is
constexpr size_t kSegmentLimit = 52;      // characters of a parameter's value in one line

uint32_t JoinSurrogates(uint32_t high, uint32_t low) {
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

bool IsHighSurrogate(uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void AppendUtf8(uint32_t point, std::string& bytes) {
    const auto trail = [&](int shift) { bytes += static_cast<char>(0x80 | (point >> shift & 0x3F)); };
    if (point < 0x80) {
        bytes += static_cast<char>(point);
    } else if (point < 0x800) {
        bytes += static_cast<char>(0xC0 | point >> 6);
        trail(0);
    } else if (point < 0x10000) {
        bytes += static_cast<char>(0xE0 | point >> 12);
        trail(6);
        trail(0);
    } else {
        bytes += static_cast<char>(0xF0 | point >> 18);
        trail(12);
        trail(6);
        trail(0);
    }
}

// File names may hold halves of surrogate pairs, which UTF-8 can't: U+FFFD stands for them.
std::string ToUtf8(const std::wstring& text) {
    constexpr uint32_t kReplacement = 0xFFFD;
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<uint32_t>(text[i]);
        const uint32_t next = i + 1 < text.size() ? static_cast<uint32_t>(text[i + 1]) : 0;
        if (IsHighSurrogate(unit) && IsLowSurrogate(next)) {
            AppendUtf8(JoinSurrogates(unit, next), bytes);
            ++i;
        } else {
            AppendUtf8(IsHighSurrogate(unit) || IsLowSurrogate(unit) ? kReplacement : unit, bytes);
        }
    }
    return bytes;
}

void AppendBase64(const char* bytes, size_t count, std::string& text) {
    static constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (size_t i = 0; i < count; i += 3) {
        uint32_t group = 0;
        for (size_t k = 0; k < 3; ++k) {
            group = group << 8 | (i + k < count ? static_cast<uint8_t>(bytes[i + k]) : 0u);
        }
        for (size_t k = 0; k < 4; ++k) text += i + k <= count ? kDigits[group >> (18 - 6 * k) & 0x3F] : '=';
    }
}

// For the further bytes of a character in UTF-8.
bool ContinuesCharacter(char c) { return (static_cast<uint8_t>(c) & 0xC0) == 0x80; }

// Can stand in a header as it is, and in quotes.
bool IsPlain(const std::string& text) {
    const auto isPlain = [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; };
    return !text.empty() && text.size() <= kPlainLimit && text.front() != ' ' && text.back() != ' ' &&
           std::all_of(text.begin(), text.end(), isPlain);
}

// The text as a header's value; anything unusual in encoded words (RFC 2047), each of whole characters.
std::string HeaderText(const std::string& text) {
    if (text.empty() || IsPlain(text)) return text;
    std::string words;
    for (size_t begin = 0; begin < text.size();) {
        size_t end = std::min(begin + kSubjectWordBytes, text.size());
        while (end < text.size() && ContinuesCharacter(text[end])) --end;
        words += begin == 0 ? "=?UTF-8?B?" : "\r\n =?UTF-8?B?";
        AppendBase64(text.data() + begin, end - begin, words);
        words += "?=";
        begin = end;
    }
    return words;
}

// The character that begins at `at`, which moves on behind it.
std::string PercentEncoded(const std::string& text, size_t& at) {
    std::string encoded;
    do {
        const char c = text[at++];
        const bool isSimple = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                              c == '.' || c == '-' || c == '_';
        char code[4];
        std::snprintf(code, sizeof code, isSimple ? "%c" : "%%%02X", static_cast<uint8_t>(c));
        encoded += code;
    } while (at < text.size() && ContinuesCharacter(text[at]));
    return encoded;
}

// A further parameter of a header, on lines of its own; anything unusual in segments (RFC 2231), of whole
// characters, since readers decode each by itself.
void AppendParameter(const std::string& name, const std::string& value, std::string& header) {
    if (IsPlain(value)) {
        header += ";\r\n " + name + "=\"" + value + "\"";
        return;
    }
    std::string line = "UTF-8''";
    int number = 0;
    const auto finishLine = [&](bool isOnly) {
        header += ";\r\n " + name + (isOnly ? "" : "*" + std::to_string(number++)) + "*=" + line;
        line.clear();
    };
    for (size_t at = 0; at < value.size();) {
        const std::string code = PercentEncoded(value, at);
        if (line.size() + code.size() > kSegmentLimit) finishLine(false);
        line += code;
    }
    finishLine(number == 0);
}

std::string DateText(const DateTime& universal) {
    static constexpr char kDays[] = "SunMonTueWedThuFriSat";
    static constexpr char kMonths[] = "JanFebMarAprMayJunJulAugSepOctNovDec";
    const int day = DayOfWeek(universal.year, universal.month, universal.day);
    char text[40];
    std::snprintf(text, sizeof text, "%.3s, %02d %.3s %04d %02d:%02d:%02d +0000", kDays + 3 * day,
                  universal.day, kMonths + 3 * (universal.month - 1), universal.year, universal.hour,
                  universal.minute, universal.second);
    return text;
}

std::string ContentType(const std::wstring& name) {
    const bool isBitmap = name.size() > 4 && EqualNoCase(name.substr(name.size() - 4), L".bmp");
    return isBitmap ? "image/bmp" : "application/octet-stream";
}

void AppendTextPart(std::string& message) {
    message += std::string("--") + kBoundary + "\r\nContent-Type: text/plain; charset=us-ascii\r\n";
    message += std::string("Content-Transfer-Encoding: 7bit\r\n\r\n") + kText + "\r\n";
}

void AppendAttachment(const MailAttachment& attachment, std::string& message) {
    const std::string name = ToUtf8(attachment.name);
    message += std::string("--") + kBoundary + "\r\nContent-Type: " + ContentType(attachment.name);
    AppendParameter("name", name, message);
    message += "\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment";
    AppendParameter("filename", name, message);
    message += "\r\n\r\n";
    const std::string& bytes = attachment.bytes;
    for (size_t begin = 0; begin < bytes.size(); begin += kBase64LineBytes) {
        AppendBase64(bytes.data() + begin, std::min(kBase64LineBytes, bytes.size() - begin), message);
        message += "\r\n";
    }
    message += std::string("--") + kBoundary + "--\r\n";
}

void Build(const MailAttachment& attachment, const DateTime& universal, std::string& message) {
    message.reserve(4096 + attachment.bytes.size() / kBase64LineBytes * 78);
    message += kMailHead;
    message += "Date: " + DateText(universal) + "\r\n";
    message +=
        "Subject: " + HeaderText(ToUtf8(attachment.name.substr(0, attachment.name.rfind(L'.')))) + "\r\n";
    message += "MIME-Version: 1.0\r\n";
    message += std::string("Content-Type: multipart/mixed; boundary=\"") + kBoundary + "\"\r\n\r\n";
    AppendTextPart(message);
    AppendAttachment(attachment, message);
}

}  // namespace

bool BuildMailMessage(const MailAttachment& attachment, const DateTime& universal, std::string& message) {
    message.clear();
    try {
        Build(attachment, universal, message);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace platform::windows
