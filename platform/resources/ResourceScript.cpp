#include "platform/resources/ResourceScript.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <map>
#include <sstream>

namespace platform::resources {

namespace {

using Ids = std::map<std::string, int>;

Ids ReadIds(const std::string& header) {
    Ids ids{{"IDOK", 1}, {"IDCANCEL", 2}};
    std::istringstream lines(header);
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

bool IsItemKeyword(const std::string& word) {
    constexpr const char* kWords[] = {"LTEXT",        "RTEXT",         "CTEXT",    "EDITTEXT", "PUSHBUTTON",
                                      "AUTOCHECKBOX", "DEFPUSHBUTTON", "COMBOBOX", "CONTROL",  "GROUPBOX"};
    return std::any_of(std::begin(kWords), std::end(kWords),
                       [&word](const char* candidate) { return word == candidate; });
}

class Reader {
  public:
    Reader(const std::string& script, const std::string& header)
        : ids_(ReadIds(header)), tokens_(Tokenize(script)) {}

    Script Read() {
        Script script;
        for (at_ = 1; at_ + 1 < tokens_.size(); ++at_) {
            if (tokens_[at_].quoted) continue;
            if (Text() == "ICON") script.icons.push_back({Number(at_ - 1), tokens_[at_ + 1].text});
            if (Text() == "BITMAP") script.bitmaps.push_back({Number(at_ - 1), tokens_[at_ + 1].text});
            if (Text() == "DIALOGEX") script.dialogs.push_back(ReadDialog());
        }
        return script;
    }

  private:
    const std::string& Text() const { return tokens_.at(at_).text; }
    int Number(size_t i) const {
        const auto named = ids_.find(tokens_.at(i).text);
        return named != ids_.end() ? named->second : std::atoi(tokens_[i].text.c_str());
    }
    bool IsPlain(const char* word) const { return !tokens_.at(at_).quoted && Text() == word; }
    bool IsDigit() const { return std::isdigit(static_cast<unsigned char>(Text().front())) != 0; }

    ScriptDialog ReadDialog() {
        ScriptDialog dialog;
        dialog.id = Number(at_ - 1);
        dialog.size[0] = Number(at_ + 3);
        dialog.size[1] = Number(at_ + 4);
        at_ += 5;
        while (!IsPlain("BEGIN")) {
            const bool isCaption = IsPlain("CAPTION");
            const bool isStyle = IsPlain("STYLE");
            ++at_;
            if (isCaption) dialog.caption = Text();
            if (isStyle) dialog.styles = ReadStyles();
        }
        while (!IsPlain("END")) {
            const bool isItem = !tokens_.at(at_).quoted && IsItemKeyword(Text());
            ++at_;
            if (isItem) dialog.items.push_back(ReadItem(tokens_[at_ - 1].text));
        }
        return dialog;
    }

    std::string ReadStyles() {
        std::string styles = " ";
        for (; !IsPlain("CAPTION") && !IsPlain("FONT"); ++at_) styles += Text() + " ";
        return styles;
    }

    ScriptItem ReadItem(const std::string& keyword) {
        ScriptItem item;
        item.kind = keyword;
        item.styles = " ";
        if (tokens_.at(at_).quoted) item.text = tokens_[at_++].text;
        item.id = Number(at_++);
        const bool isControl = keyword == "CONTROL";
        if (isControl) item.kind = tokens_.at(at_++).text;
        for (; isControl && !IsDigit(); ++at_) item.styles += Text() + " ";
        for (int& number : item.place) number = Number(at_++);
        while (!isControl && !tokens_.at(at_).quoted && !IsItemKeyword(Text()) && Text() != "END")
            item.styles += tokens_[at_++].text + " ";
        return item;
    }

    Ids ids_;
    std::vector<Token> tokens_;
    size_t at_ = 0;
};

}  // namespace

Script ReadScript(const std::string& script, const std::string& header) {
    return Reader(script, header).Read();
}

}  // namespace platform::resources
