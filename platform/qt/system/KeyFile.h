#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/RegistryKey.h"

// Typed values by key and name in one text file that people can read and change:
//
//     [Software\Larkspur Works\Inkwright]
//     "PenInfo" = number 131082
//     "RootDirPath" = text "\\My Documents\\Inkwright"
//     "TextMemoWordWrap" = binary 01 00 00 00
//
// Names count without regard to case. Lines that are none of these are kept.
namespace platform::qt {

using ValueBytes = std::vector<uint8_t>;

// Numbers and UTF-16 as bytes, lowest first.
ValueBytes BytesOf(uint32_t number);
ValueBytes BytesOf(const std::u16string& units);
uint32_t NumberOf(const ValueBytes& data);
std::u16string UnitsOf(const ValueBytes& data);

struct KeyValue {
    std::wstring name;
    RegistryType type = RegistryType::Binary;
    ValueBytes data;
};

// What the file says, by itself.
class KeyTable {
  public:
    static KeyTable Parse(const std::string& text);
    std::string Text() const;

    bool HasKey(const std::wstring& key) const;
    const KeyValue* Find(const std::wstring& key, const std::wstring& name) const;
    std::vector<KeyValue> Values(const std::wstring& key) const;
    void Set(const std::wstring& key, KeyValue value);
    bool Remove(const std::wstring& key, const std::wstring& name);

  private:
    struct Section {
        std::wstring key;
        std::vector<KeyValue> values;
        std::vector<std::string> others;
    };
    Section* FindSection(const std::wstring& key);
    const Section* FindSection(const std::wstring& key) const;

    std::vector<Section> sections_;
};

// The file. Changes of several programs are made one after another, each of them whole: whoever is ended in
// the middle leaves the file as it was.
class KeyFile {
  public:
    explicit KeyFile(std::string path) : path_(std::move(path)) {}

    // What it says now; null when it is there and can't be read.
    const KeyTable* Current();

    // Makes `change`, which tells whether there is anything to write. True when all is as it wanted.
    bool Change(const std::function<bool(KeyTable& table)>& change);

  private:
    bool Refresh();
    bool Replace(const std::string& text);

    std::string path_;
    KeyTable table_;
    std::string text_;  // that the table was made of
};

}  // namespace platform::qt
