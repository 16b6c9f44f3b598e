#include "platform/qt/EditText.h"

#include <QTextDocument>

#include "platform/qt/Text.h"

namespace platform::qt {

namespace {

// The last plane for private use, where nobody's characters are.
constexpr wchar_t kPrivate = 0x100000;

bool IsSpecial(wchar_t character) {
    constexpr wchar_t kSpecial[] = {L'\r', L'\n', 0x2028, 0x2029, 0xFDD0, 0xFDD1, 0xFFFC};
    for (const wchar_t special : kSpecial) {
        if (character == special) return true;
    }
    return false;
}

}  // namespace

QString Shown(const std::wstring& text) {
    std::wstring shown;
    shown.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') {
            shown += L'\n';
            ++i;
        } else {
            shown += IsSpecial(text[i]) ? kPrivate + text[i] : text[i];
        }
    }
    return ToQt(shown);
}

// Within a line a break without an end of it may come from other programs.
std::wstring TextOf(const QTextDocument& document) {
    std::wstring text;
    for (const wchar_t character : FromQt(document.toRawText())) {
        const bool isEnd = character == 0x2029 || character == 0x2028 || character == L'\n';
        const bool isPrivate = character >= kPrivate && IsSpecial(character - kPrivate);
        if (isEnd) text += L'\r';
        text += isEnd ? L'\n' : isPrivate ? character - kPrivate : character;
    }
    return text;
}

}  // namespace platform::qt
