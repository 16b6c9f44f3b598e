#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "platform/TextEncoding.h"
#include "platform/Utf16.h"
#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/KeyFile.h"

namespace platform::qt {

namespace {

constexpr struct {
    RegistryType type;
    const char* word;
} kTypes[] = {
    {RegistryType::Number, "number"}, {RegistryType::Text, "text"}, {RegistryType::Binary, "binary"}};

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        char code[8] = {c};
        const auto byte = static_cast<uint8_t>(c);
        if (c == '"' || c == '\\') std::snprintf(code, sizeof code, "\\%c", c);
        if (byte < 0x20) std::snprintf(code, sizeof code, "\\x%02X", byte);
        quoted += code;
    }
    return quoted + "\"";
}

// The text in quotes at `at`, which moves on behind it.
bool Unquote(const std::string& line, size_t& at, std::string& text) {
    text.clear();
    if (at >= line.size() || line[at] != '"') return false;
    for (++at; at < line.size() && line[at] != '"'; ++at) {
        char c = line[at];
        if (c == '\\') {
            if (++at == line.size()) return false;
            c = line[at];
            if (c == 'x') {
                c = static_cast<char>(std::strtoul(line.substr(at + 1, 2).c_str(), nullptr, 16));
                at += 2;
            }
        }
        text += c;
    }
    return at < line.size() && ++at > 0;
}

// Whether the data is a text with its terminator, and nothing else.
bool IsText(const ValueBytes& data, std::string& text) {
    std::u16string units = UnitsOf(data);
    if (data.empty() || data.size() % 2 != 0 || units.find(u'\0') + 1 != units.size()) return false;
    units.pop_back();
    return ToDisk(FromUtf16(units), text) && BytesOf(ToUtf16(FromUtf16(units)) + u'\0') == data;
}

std::string DataText(const KeyValue& value) {
    std::string text;
    if (value.type == RegistryType::Number && value.data.size() == 4)
        return std::to_string(NumberOf(value.data));
    if (value.type != RegistryType::Binary && IsText(value.data, text)) return Quoted(text);
    text = "bytes";
    for (const uint8_t byte : value.data) {
        char code[8];
        std::snprintf(code, sizeof code, " %02X", byte);
        text += code;
    }
    return text;
}

bool ReadBytes(const std::string& text, ValueBytes& data) {
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        char* end = nullptr;
        const unsigned long byte = std::strtoul(word.c_str(), &end, 16);
        if (*end != '\0' || byte > 0xFF) return false;
        data.push_back(static_cast<uint8_t>(byte));
    }
    return true;
}

bool ReadNumber(const std::string& text, ValueBytes& data) {
    char* end = nullptr;
    const unsigned long long number = std::strtoull(text.c_str(), &end, 10);
    if (text.empty() || text[0] == '-' || *end != '\0' || number > UINT32_MAX) return false;
    data = BytesOf(static_cast<uint32_t>(number));
    return true;
}

bool ReadData(const std::string& text, ValueBytes& data) {
    constexpr char kBytes[] = "bytes";
    std::string plain;
    size_t at = 0;
    if (text.compare(0, sizeof kBytes - 1, kBytes) == 0)
        return ReadBytes(text.substr(sizeof kBytes - 1), data);
    if (!Unquote(text, at, plain)) return ReadNumber(text, data);
    if (at != text.size()) return false;
    data = BytesOf(ToUtf16(TextFromDisk(plain)) + u'\0');
    return true;
}

bool ReadValue(const std::string& line, KeyValue& value) {
    std::string name;
    size_t at = 0;
    if (!Unquote(line, at, name) || line.compare(at, 3, " = ") != 0) return false;
    const std::string rest = line.substr(at + 3);
    const std::string word = rest.substr(0, rest.find(' '));
    for (const auto& each : kTypes) {
        if (word != each.word || rest.size() <= word.size()) continue;
        value.name = TextFromDisk(name);
        value.type = each.type;
        return ReadData(rest.substr(word.size() + 1), value.data);
    }
    return false;
}

const char* WordOf(RegistryType type) {
    for (const auto& each : kTypes) {
        if (each.type == type) return each.word;
    }
    return "binary";
}

std::string Utf8(const std::wstring& text) {
    std::string bytes;
    ToDisk(text, bytes);
    return bytes;
}

auto IsNamed(const std::wstring& name) {
    return [&name](const KeyValue& value) { return EqualNoCase(value.name, name); };
}

}  // namespace

ValueBytes BytesOf(uint32_t number) {
    ValueBytes data;
    for (int shift = 0; shift < 32; shift += 8) data.push_back(static_cast<uint8_t>(number >> shift));
    return data;
}

ValueBytes BytesOf(const std::u16string& units) {
    ValueBytes data;
    for (const char16_t unit : units) {
        data.push_back(static_cast<uint8_t>(unit & 0xFF));
        data.push_back(static_cast<uint8_t>(unit >> 8));
    }
    return data;
}

uint32_t NumberOf(const ValueBytes& data) {
    uint32_t number = 0;
    for (size_t i = data.size(); i-- > 0;) number = number << 8 | data[i];
    return number;
}

std::u16string UnitsOf(const ValueBytes& data) {
    std::u16string units;
    for (size_t i = 0; i + 1 < data.size(); i += 2)
        units += static_cast<char16_t>(data[i] | data[i + 1] << 8);
    return units;
}

KeyTable KeyTable::Parse(const std::string& text) {
    KeyTable table;
    table.sections_.emplace_back();  // what stands above the first key
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        Section& section = table.sections_.back();
        KeyValue value;
        if (line.size() > 2 && line.front() == '[' && line.back() == ']') {
            table.sections_.push_back({TextFromDisk(line.substr(1, line.size() - 2)), {}, {}});
        } else if (ReadValue(line, value)) {
            section.values.push_back(std::move(value));
        } else if (!line.empty()) {
            section.others.push_back(line);
        }
    }
    return table;
}

std::string KeyTable::Text() const {
    std::string text;
    for (const Section& section : sections_) {
        if (!section.key.empty()) text += (text.empty() ? "[" : "\n[") + Utf8(section.key) + "]\n";
        for (const std::string& line : section.others) text += line + "\n";
        for (const KeyValue& value : section.values)
            text += Quoted(Utf8(value.name)) + " = " + WordOf(value.type) + " " + DataText(value) + "\n";
    }
    return text;
}

KeyTable::Section* KeyTable::FindSection(const std::wstring& key) {
    const auto found = std::find_if(sections_.begin(), sections_.end(),
                                    [&key](const Section& each) { return EqualNoCase(each.key, key); });
    return found == sections_.end() ? nullptr : &*found;
}

const KeyTable::Section* KeyTable::FindSection(const std::wstring& key) const {
    return const_cast<KeyTable*>(this)->FindSection(key);
}

bool KeyTable::HasKey(const std::wstring& key) const { return FindSection(key) != nullptr; }

const KeyValue* KeyTable::Find(const std::wstring& key, const std::wstring& name) const {
    const Section* const section = FindSection(key);
    if (!section) return nullptr;
    const auto found = std::find_if(section->values.begin(), section->values.end(), IsNamed(name));
    return found == section->values.end() ? nullptr : &*found;
}

std::vector<KeyValue> KeyTable::Values(const std::wstring& key) const {
    const Section* const section = FindSection(key);
    return section ? section->values : std::vector<KeyValue>();
}

void KeyTable::Set(const std::wstring& key, KeyValue value) {
    if (!HasKey(key)) sections_.push_back({key, {}, {}});
    std::vector<KeyValue>& values = FindSection(key)->values;
    const auto found = std::find_if(values.begin(), values.end(), IsNamed(value.name));
    if (found != values.end()) {
        *found = std::move(value);
    } else {
        values.push_back(std::move(value));
    }
}

bool KeyTable::Remove(const std::wstring& key, const std::wstring& name) {
    Section* const section = FindSection(key);
    if (!section) return false;
    const auto found = std::find_if(section->values.begin(), section->values.end(), IsNamed(name));
    if (found == section->values.end()) return false;
    section->values.erase(found);
    return true;
}

}  // namespace platform::qt
