#include <QChar>
#include <QCollator>
#include <QLocale>

#include "platform/TextEncoding.h"
#include "platform/qt/system/CodePage.h"
#include "platform/qt/system/UserLocale.h"

namespace platform {

namespace {

// One by one, and only where the way back is the same: so compares the system whose names these are.
wchar_t Upper(wchar_t c) {
    const auto point = static_cast<char32_t>(c);
    if (point > 0xFFFF) return c;
    constexpr wchar_t kFinalSigma = 0x3C2;
    constexpr wchar_t kCapitalSigma = 0x3A3;
    if (c == kFinalSigma) return kCapitalSigma;
    const char32_t upper = QChar::toUpper(point);
    return upper != point && QChar::toLower(upper) == point ? static_cast<wchar_t>(upper) : c;
}

wchar_t Small(wchar_t c) {
    const auto point = static_cast<char32_t>(c);
    if (point > 0xFFFF) return c;
    const char32_t lower = QChar::toLower(point);
    return lower != point && QChar::toUpper(lower) == point ? static_cast<wchar_t>(lower) : c;
}

}  // namespace

bool ToAnsi(const std::wstring& text, std::string& bytes) {
    return qt::ToCodePage(qt::UserCodePage(), text, bytes);
}

bool FromAnsi(const std::string& bytes, std::wstring& text) {
    return qt::FromCodePage(qt::UserCodePage(), bytes, text);
}

bool EqualNoCase(const std::wstring& a, const std::wstring& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && Upper(a[i]) != Upper(b[i])) return false;
    }
    return true;
}

// By way of upper case, which is what EqualNoCase compares: some letters share only that.
std::wstring LowerCase(std::wstring text) {
    for (wchar_t& c : text) c = Small(Upper(c));
    return text;
}

std::wstring SmallLetters(std::wstring text) {
    for (wchar_t& c : text) c = Small(c);
    return text;
}

// The order of file managers, but for digits, which count one by one as on the handheld.
int CompareNames(const std::wstring& a, const std::wstring& b) {
    static const QCollator order(qt::UserLocale("LC_COLLATE"));  // dear to make
    const int result = order.compare(QString::fromStdWString(a), QString::fromStdWString(b));
    return result != 0 ? result : a.compare(b);
}

}  // namespace platform
