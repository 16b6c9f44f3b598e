#include "platform/RegistryKey.h"
#include "tests/contract/Recording.h"

namespace contract {

namespace {

using platform::RegistryKey;
using platform::RegistryType;

class RegistryContract : public Contract {
  protected:
    RegistryKey key_ = RegistryKey::OpenUser(kTestKey);
};

// What is stored, by whatever type, and how it reads as a number and as a text with room for 260 characters.
TEST_F(RegistryContract, ValuesReadAsNumbersAndTexts) {
    const struct {
        std::optional<std::wstring> text;  // else the number
        uint32_t number;
        bool isNumber;
        std::wstring readText;
    } kCases[] = {{{}, 0x00420041, true, L"AB"},  // no terminator in the data
                  {{}, 0x41, true, L"A"},
                  {L"A", 0x41, true, L"A"},
                  {L"", 0, true, L""},  // two bytes leave the others zero
                  {L"%FN \u00FC", 0, false, L"%FN \u00FC"}};
    for (const RegistryType type : {RegistryType::Number, RegistryType::Binary, RegistryType::Text}) {
        for (const auto& each : kCases) {
            if (!each.text && type == RegistryType::Text) continue;  // a system may add a terminator
            ASSERT_TRUE(each.text ? key_.SetText(L"Value", type, *each.text)
                                  : key_.SetNumber(L"Value", type, each.number));
            const RegistryKey again = RegistryKey::OpenUser(kTestKey);
            uint32_t number = 0;
            std::wstring text;
            EXPECT_EQ(again.QueryNumber(L"Value", number), each.isNumber);
            EXPECT_EQ(number, each.number);
            EXPECT_TRUE(again.QueryText(L"Value", 260, text));
            EXPECT_EQ(text, each.readText);
            if (each.text && !each.text->empty()) {
                EXPECT_FALSE(again.QueryText(L"Value", each.text->size(), text)) << "the terminator counts";
            }
        }
    }
    EXPECT_TRUE(key_.Remove(L"Value"));
}

TEST_F(RegistryContract, WhatIsNotThereFailsQuietly) {
    uint32_t number = 77;
    std::wstring text;
    RegistryKey closed;
    for (RegistryKey* key : {&key_, &closed}) {
        EXPECT_EQ(key->IsOpen(), key == &key_);
        EXPECT_FALSE(key->QueryNumber(L"Value", number) || key->QueryText(L"Value", 100, text) ||
                     key->Remove(L"Value"));
    }
    EXPECT_EQ(number, 77u) << "a failed query leaves the value alone";
    EXPECT_FALSE(closed.SetNumber(L"Value", RegistryType::Number, 1));
    EXPECT_FALSE(RegistryKey::OpenMachine(kTestKey).IsOpen()) << "machine keys are not made";
}

}  // namespace

}  // namespace contract
