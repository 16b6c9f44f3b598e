#include "export/Arguments.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace inkexport {

namespace {

using pictures::Format;
using pictures::Paper;

constexpr double kLeastScale = 0.25;
constexpr double kMostScale = 5;
constexpr double kLeastSize = 0.1;
constexpr double kMostSize = 25.5;
constexpr int32_t kLeastThumbnail = 16;
constexpr int32_t kMostThumbnail = 1024;

template <typename Value>
struct Named {
    const char* name;
    Value value;
};

constexpr Named<Format> kFormats[] = {{"png", Format::Png}, {"svg", Format::Svg}, {"pdf", Format::Pdf}};
constexpr Named<ink::PenStyle> kStyles[] = {{"smooth", ink::PenStyle::Smooth},
                                            {"classic", ink::PenStyle::Classic},
                                            {"simple", ink::PenStyle::Simple}};
constexpr Named<Paper> kPapers[] = {{"a4", pictures::kA4},
                                    {"a3", {841.89, 1190.551}},
                                    {"a5", {419.528, 595.276}},
                                    {"letter", pictures::kLetter},
                                    {"legal", {612, 1008}}};

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return Lower(c); });
    return text;
}

template <typename Value, size_t N>
bool Find(const Named<Value> (&table)[N], const std::string& name, Value& value) {
    for (const Named<Value>& row : table) {
        if (Lower(name) == row.name) {
            value = row.value;
            return true;
        }
    }
    return false;
}

// The whole text and nothing else, whatever the locale writes numbers like.
template <typename Number>
bool Read(const std::string& text, Number least, Number most, Number& number) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && number >= least && number <= most;
}

std::optional<Format> FormatOfName(const std::string& path) {
    const size_t dot = path.rfind('.');
    Format format{};
    if (dot == std::string::npos || !Find(kFormats, path.substr(dot + 1), format)) return std::nullopt;
    return format;
}

bool EndsAsNote(const std::string& path) {
    const std::string ending = ".ikw";
    return path.size() >= ending.size() && Lower(path.substr(path.size() - ending.size())) == ending;
}

std::string NotTaken(const std::string& option, const std::string& value, const std::string& wanted) {
    return option + " takes " + wanted + ", not \"" + value + "\"";
}

class Parser {
  public:
    explicit Parser(Arguments& arguments) : arguments_(arguments) {}

    bool Switch(const std::string& name) {
        const Named<bool Arguments::*> kSwitches[] = {{"--force", &Arguments::replaces},
                                                      {"--help", &Arguments::showsHelp},
                                                      {"-h", &Arguments::showsHelp},
                                                      {"--version", &Arguments::showsVersion}};
        for (const auto& row : kSwitches) {
            if (name == row.name) return arguments_.*row.value = true;
        }
        return false;
    }

    static bool TakesValue(const std::string& name) {
        const char* const kNames[] = {"-o",      "--output", "--format", "--scale",
                                      "--style", "--size",   "--paper",  "--thumbnail"};
        return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
    }

    // Empty, or what the value should have been.
    std::string Option(const std::string& name, const std::string& value) {
        Arguments& a = arguments_;
        if (name == "-o" || name == "--output") {
            a.output = value;
            return value.empty() ? "a file or a folder" : "";
        }
        if (name == "--format") {
            hasFormat_ = true;
            return Find(kFormats, value, a.format) ? "" : "png, svg or pdf";
        }
        if (name == "--style")
            return Find(kStyles, value, a.picture.style) ? "" : "smooth, classic or simple";
        if (name == "--paper")
            return Find(kPapers, value, a.picture.paper) ? "" : "a3, a4, a5, letter or legal";
        if (name == "--scale")
            return Read(value, kLeastScale, kMostScale, a.picture.scale) ? "" : "0.25 to 5";
        if (name == "--size") return Read(value, kLeastSize, kMostSize, a.picture.size) ? "" : "0.1 to 25.5";
        return Read(value, kLeastThumbnail, kMostThumbnail, a.thumbnail) ? "" : "16 to 1024";
    }

    std::string Whole() {
        Arguments& a = arguments_;
        // An -o whose file was forgotten would take the first note for it.
        if (EndsAsNote(a.output)) return a.output + " is named like a note, not like a picture";
        if (a.showsHelp || a.showsVersion) return "";
        if (a.notes.empty()) return "no note is named";
        const std::optional<Format> named = FormatOfName(a.output);
        if (!hasFormat_ && a.thumbnail == 0) a.format = named.value_or(Format::Png);
        if (a.thumbnail == 0) return "";
        if (a.format != Format::Png) return "a thumbnail is a PNG picture";
        // Desktops make an empty file first, for the thumbnail to take its place.
        a.replaces = true;
        return "";
    }

  private:
    Arguments& arguments_;
    bool hasFormat_ = false;
};

}  // namespace

bool ParseArguments(const std::vector<std::string>& words, Arguments& arguments, std::string& problem) {
    arguments = Arguments();
    Parser parser(arguments);
    bool optionsEnded = false;
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (optionsEnded || word.size() < 2 || word[0] != '-') {
            arguments.notes.push_back(word);
            continue;
        }
        if (word == "--") {
            optionsEnded = true;
            continue;
        }
        if (parser.Switch(word)) continue;
        const size_t equals = word.rfind("--", 0) == 0 ? word.find('=') : std::string::npos;
        const std::string name = word.substr(0, equals);
        if (!Parser::TakesValue(name)) {
            problem = "unknown option " + name;
            return false;
        }
        if (equals == std::string::npos && ++i == words.size()) {
            problem = name + " needs a value";
            return false;
        }
        const std::string value = equals == std::string::npos ? words[i] : word.substr(equals + 1);
        const std::string wanted = parser.Option(name, value);
        if (!wanted.empty()) {
            problem = NotTaken(name, value, wanted);
            return false;
        }
    }
    problem = parser.Whole();
    return problem.empty();
}

}  // namespace inkexport
