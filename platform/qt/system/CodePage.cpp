#include "platform/qt/system/CodePage.h"

#include <iconv.h>

#include <QString>
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <new>

#include "platform/qt/system/UserFolders.h"
#include "platform/qt/system/UserLocale.h"

namespace platform::qt {

namespace {

constexpr int kUsual = 1252;
// What a page has no character for keeps its byte: in the columns of control characters as that, elsewhere at
// this distance in the private area.
constexpr uint32_t kPrivate = 0xF800;
constexpr int kSimplifiedChinese = 936;
constexpr unsigned char kItsEuro = 0x80;
constexpr wchar_t kEuro = 0x20AC;

// Languages by their codes; with "_" the country tells, which stands first.
constexpr struct {
    int page;
    const char* languages;
} kPages[] = {{950, " zh_TW zh_HK zh_MO "},
              {936, " zh "},
              {1250, " cs hr hu pl ro sk sl sq bs sr_ME "},
              {1251, " be bg kk ky mk mn ru sr tg tt uk "},
              {1253, " el "},
              {1254, " az tr uz "},
              {1255, " he iw yi "},
              {1256, " ar fa ug ur "},
              {1257, " et lt lv "},
              {932, " ja "},
              {949, " ko "},
              {874, " th "},
              {1258, " vi "}};

// What Windows puts for characters that a page lacks and that are made of no other.
constexpr struct {
    uint32_t first;
    uint32_t last;
    wchar_t substitute;
} kLookAlikes[] = {
    {0x2000, 0x200A, ' '},  {0x2010, 0x2011, '-'},  {0x2018, 0x2019, '\''}, {0x201C, 0x201D, '"'},
    {0x2022, 0x2022, '.'},  {0x2032, 0x2032, '\''}, {0x2035, 0x2035, '`'},  {0x2039, 0x2039, '<'},
    {0x203A, 0x203A, '>'},  {0x2044, 0x2044, '/'},  {0x2212, 0x2212, '-'},  {0x2215, 0x2215, '/'},
    {0x2216, 0x2216, '\\'}, {0x2217, 0x2217, '*'},  {0x2223, 0x2223, '|'},  {0x2236, 0x2236, ':'},
    {0x223C, 0x223C, '~'},  {0x02B9, 0x02BC, '\''}, {0x0110, 0x0110, 'D'},  {0x0111, 0x0111, 'd'},
    {0x0131, 0x0131, 'i'},  {0x0141, 0x0141, 'L'},  {0x0142, 0x0142, 'l'},  {0x00D8, 0x00D8, 'O'},
    {0x00F8, 0x00F8, 'o'}};

class Converter {
  public:
    Converter(const std::string& to, const std::string& from)
        : handle_(iconv_open(to.c_str(), from.c_str())) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (IsOpen()) iconv_close(handle_);
    }
    bool IsOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    // Goes on from `in` until it ends or something can't be converted; the output is appended.
    void Convert(const char*& in, size_t& left, std::string& out) {
        char piece[4096];
        size_t before = 0;
        do {
            before = left;
            char* to = piece;
            size_t room = sizeof piece;
            const size_t result = iconv(handle_, const_cast<char**>(&in), &left, &to, &room);
            out.append(piece, to);
            if (result != static_cast<size_t>(-1)) out.append(piece, Finish(piece));
        } while (left > 0 && left < before);
    }

  private:
    // What a page of several bytes holds back, as it may go together with what comes next.
    char* Finish(char* piece) {
        char* to = piece;
        size_t room = 64;
        iconv(handle_, nullptr, nullptr, &to, &room);
        return to;
    }

    iconv_t handle_;
};

std::string NameOfPage(int codePage) { return "CP" + std::to_string(codePage); }

bool IsCombining(const QChar& c) {
    return c.category() == QChar::Mark_NonSpacing || c.category() == QChar::Mark_SpacingCombining;
}

// The one byte that a character of no place stands for all the same; 0 for none.
char OwnByte(int codePage, uint32_t point) {
    if (codePage == kSimplifiedChinese && point == kEuro) return static_cast<char>(kItsEuro);
    const bool isKept =
        (point >= 0x80 && point < 0xA0) || (point >= kPrivate + 0xA0 && point <= kPrivate + 0xFF);
    return isKept ? static_cast<char>(point & 0xFF) : '\0';
}

// Letters lose their marks, forms of letters are the letters. Empty where nothing comes near.
std::wstring BestFit(uint32_t point) {
    for (const auto& each : kLookAlikes) {
        if (point >= each.first && point <= each.last) return std::wstring(1, each.substitute);
    }
    const char32_t character = point;
    const QString parts = QString::fromUcs4(&character, 1).normalized(QString::NormalizationForm_KD);
    const bool isOne =
        std::all_of(parts.begin() + std::min<qsizetype>(1, parts.size()), parts.end(), IsCombining);
    if (!isOne || parts.isEmpty() || parts[0].isSurrogate() || parts[0].unicode() == point) return {};
    return std::wstring(1, static_cast<wchar_t>(parts[0].unicode()));
}

// A character that the page has no place for. Windows counts one beyond its plane as two.
void AppendSubstitute(Converter& converter, int codePage, uint32_t point, std::string& bytes) {
    const char own = OwnByte(codePage, point);
    const std::wstring fit = own == '\0' ? BestFit(point) : std::wstring();
    const auto* in = reinterpret_cast<const char*>(fit.data());
    size_t left = fit.size() * sizeof(wchar_t);
    const size_t before = bytes.size();
    if (own != '\0') bytes += own;
    if (!fit.empty()) converter.Convert(in, left, bytes);
    if (bytes.size() == before) bytes += point > 0xFFFF ? "??" : "?";
}

wchar_t KeptByte(int codePage, unsigned char byte) {
    if (codePage == kSimplifiedChinese && byte == kItsEuro) return kEuro;
    return static_cast<wchar_t>(byte < 0xA0 ? byte : kPrivate + byte);
}

void AppendWide(const std::string& out, std::wstring& text) {
    const auto* const units = reinterpret_cast<const wchar_t*>(out.data());
    text.append(units, out.size() / sizeof(wchar_t));
}

}  // namespace

int CodePageOf(const std::string& locale) {
    const std::string place = locale.substr(0, locale.find_first_of(".@"));
    for (const std::string& wanted : {place, place.substr(0, place.find('_'))}) {
        for (const auto& each : kPages) {
            if (!wanted.empty() && std::string(each.languages).find(" " + wanted + " ") != std::string::npos)
                return each.page;
        }
    }
    return kUsual;
}

int UserCodePage() {
    const int told = std::atoi(Environment("INKWRIGHT_CODEPAGE").c_str());
    return told > 0 ? told : CodePageOf(LocaleName("LC_CTYPE"));
}

bool ToCodePage(int codePage, const std::wstring& text, std::string& bytes) {
    bytes.clear();
    try {
        Converter converter(NameOfPage(codePage), "WCHAR_T");
        if (!converter.IsOpen()) return false;
        const auto* in = reinterpret_cast<const char*>(text.data());
        size_t left = text.size() * sizeof(wchar_t);
        while (left > 0) {
            converter.Convert(in, left, bytes);
            if (left == 0) break;
            const wchar_t odd = text[text.size() - left / sizeof(wchar_t)];
            AppendSubstitute(converter, codePage, static_cast<uint32_t>(odd), bytes);
            in += sizeof(wchar_t);
            left -= sizeof(wchar_t);
        }
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool FromCodePage(int codePage, const std::string& bytes, std::wstring& text) {
    text.clear();
    try {
        Converter converter("WCHAR_T", NameOfPage(codePage));
        if (!converter.IsOpen()) return false;
        const char* in = bytes.data();
        size_t left = bytes.size();
        while (left > 0) {
            std::string out;
            converter.Convert(in, left, out);
            AppendWide(out, text);
            if (left == 0) break;
            text += KeptByte(codePage, static_cast<unsigned char>(*in++));
            --left;
        }
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace platform::qt
