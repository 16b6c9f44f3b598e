#include "platform/host/HostResources.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

namespace platform::host {

namespace {

std::string ReadFile(const std::string& name) {
    std::ifstream file(std::string(INKWRIGHT_RES_DIR) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::map<std::string, int> ReadIds() {
    std::map<std::string, int> ids{{"IDOK", 1}, {"IDCANCEL", 2}};
    std::istringstream lines(ReadFile("resource.h"));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string define;
        std::string name;
        int value = 0;
        if (words >> define >> name >> value && define == "#define") ids[name] = value;
    }
    return ids;
}

struct Token {
    std::string text;
    bool quoted = false;
};

std::string ReadQuoted(const std::string& script, size_t& at) {
    std::string text;
    for (++at; at < script.size(); ++at) {
        if (script[at] == '"' && script[at + 1] != '"') break;
        if (script[at] == '"') ++at;
        const bool escape = script[at] == '\\';
        if (escape) ++at;
        text += escape && script[at] == 'n' ? '\n' : script[at];
    }
    ++at;
    return text;
}

std::vector<Token> Tokenize(const std::string& script) {
    std::vector<Token> tokens;
    for (size_t at = 0; at < script.size();) {
        const char c = script[at];
        if (c == '#') {
            at = std::min(script.find('\n', at), script.size());
        } else if (c == '"') {
            tokens.push_back({ReadQuoted(script, at), true});
        } else if (std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-') {
            const size_t end = std::min(script.find_first_of(" ,|\n\t\"", at), script.size());
            tokens.push_back({script.substr(at, end - at), false});
            at = end;
        } else {
            ++at;
        }
    }
    return tokens;
}

std::wstring Widen(const std::string& text) { return {text.begin(), text.end()}; }

class ScriptReader {
  public:
    ScriptReader() : ids_(ReadIds()), tokens_(Tokenize(ReadFile("inkwright.rc"))) {}

    // The position after "<id> <keyword>", 0 when the script lacks it.
    size_t Find(int id, const std::string& keyword) const {
        for (size_t i = 0; i + 1 < tokens_.size(); ++i) {
            if (tokens_[i + 1].text == keyword && !tokens_[i].quoted && Number(i) == id) return i + 2;
        }
        return 0;
    }
    const std::string& Text(size_t i) const { return tokens_[i].text; }
    bool IsQuoted(size_t i) const { return tokens_[i].quoted; }
    int Number(size_t i) const {
        const auto named = ids_.find(tokens_[i].text);
        return named != ids_.end() ? named->second : std::atoi(tokens_[i].text.c_str());
    }
    Rect PlaceAt(size_t i) const {
        const int left = Number(i);
        const int top = Number(i + 1);
        return {left, top, left + Number(i + 2), top + Number(i + 3)};
    }

  private:
    std::map<std::string, int> ids_;
    std::vector<Token> tokens_;
};

bool IsItemKeyword(const std::string& word) {
    constexpr const char* kWords[] = {"LTEXT",        "RTEXT",         "CTEXT",    "EDITTEXT", "PUSHBUTTON",
                                      "AUTOCHECKBOX", "DEFPUSHBUTTON", "COMBOBOX", "CONTROL",  "GROUPBOX"};
    for (const char* candidate : kWords) {
        if (word == candidate) return true;
    }
    return false;
}

TemplateItem ReadItem(const ScriptReader& script, size_t i) {
    TemplateItem item;
    item.kind = Widen(script.Text(i++));
    if (script.IsQuoted(i)) item.text = Widen(script.Text(i++));
    item.id = script.Number(i++);
    if (item.kind != L"CONTROL") {
        item.place = script.PlaceAt(i);
        return item;
    }
    item.kind = Widen(script.Text(i++));
    while (!std::isdigit(static_cast<unsigned char>(script.Text(i)[0]))) ++i;  // styles
    item.place = script.PlaceAt(i);
    return item;
}

}  // namespace

bool FindDialogTemplate(int id, DialogTemplate& found) {
    const ScriptReader script;
    size_t i = script.Find(id, "DIALOGEX");
    if (i == 0) return false;
    found = {};
    found.width = script.Number(i + 2);
    found.height = script.Number(i + 3);
    for (; script.Text(i) != "BEGIN"; ++i) {
        if (script.Text(i) == "CAPTION") found.caption = Widen(script.Text(i + 1));
    }
    for (; script.Text(i) != "END"; ++i) {
        if (!script.IsQuoted(i) && IsItemKeyword(script.Text(i))) found.items.push_back(ReadItem(script, i));
    }
    return true;
}

std::string FindBitmapFile(int id) {
    const ScriptReader script;
    const size_t i = script.Find(id, "BITMAP");
    return i == 0 ? std::string() : script.Text(i);
}

Image LoadBitmapFile(const std::string& name, ink::Scale scale) {
    const std::string bytes = ReadFile(name);
    constexpr size_t kHeaders = 54;
    if (bytes.size() < kHeaders || bytes[28] != 24) return {};
    int32_t size[2];
    std::memcpy(size, bytes.data() + 18, sizeof size);
    const ink::Point page = scale.ToView({size[0], size[1]});
    Image image = Image::Make(page.x, page.y, scale);
    const size_t stride = (static_cast<size_t>(size[0]) * 3 + 3) / 4 * 4;
    if (!image.IsValid() || bytes.size() < kHeaders + stride * static_cast<size_t>(size[1])) return {};
    const ink::PixelSurface surface = image.Surface();
    if (surface.width != size[0] || surface.height != size[1]) return {};
    for (int y = 0; y < size[1]; ++y) {
        const char* row = bytes.data() + kHeaders + stride * static_cast<size_t>(size[1] - 1 - y);
        for (int x = 0; x < size[0]; ++x) {
            uint32_t pixel = 0;
            std::memcpy(&pixel, row + x * 3, 3);
            surface.pixels[y * surface.stride + x] = pixel;
        }
    }
    return image;
}

}  // namespace platform::host
