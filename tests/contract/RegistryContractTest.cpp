#include <gtest/gtest.h>

#include <string>

#include "platform/RegistryKey.h"
#include "tests/contract/Driver.h"

namespace platform {

namespace {

class RegistryContract : public testing::Test {
  protected:
    contract::Driver driver_;
    RegistryKey key_ = RegistryKey::OpenUser(contract::kTestKey);
};

TEST_F(RegistryContract, AnEmptyKeyHoldsNothing) {
    ASSERT_TRUE(key_.IsOpen());
    uint32_t number = 77;
    std::wstring text = L"before";
    size_t bytes = 77;
    EXPECT_FALSE(key_.QueryNumber(L"Value", number));
    EXPECT_FALSE(key_.QueryText(L"Value", 100, text));
    EXPECT_FALSE(key_.QuerySize(L"Value", bytes));
    EXPECT_FALSE(key_.Remove(L"Value"));
    EXPECT_EQ(number, 77u) << "a failed query leaves the value alone";
}

TEST_F(RegistryContract, NumbersUnderAnyType) {
    for (const RegistryType type : {RegistryType::Number, RegistryType::Binary, RegistryType::Text}) {
        ASSERT_TRUE(key_.SetNumber(L"Value", type, 0xFFEE0102));
        uint32_t number = 0;
        size_t bytes = 0;
        EXPECT_TRUE(key_.QueryNumber(L"Value", number));
        EXPECT_EQ(number, 0xFFEE0102);
        EXPECT_TRUE(key_.QuerySize(L"Value", bytes));
        EXPECT_EQ(bytes, 4u);
    }
}

TEST_F(RegistryContract, TextsUnderAnyType) {
    for (const RegistryType type : {RegistryType::Text, RegistryType::Number, RegistryType::Binary}) {
        ASSERT_TRUE(key_.SetText(L"Value", type, L"%FN \u00FC"));
        std::wstring text;
        size_t bytes = 0;
        EXPECT_TRUE(key_.QuerySize(L"Value", bytes));
        EXPECT_EQ(bytes, 12u) << "the terminator is written too";
        EXPECT_TRUE(key_.QueryText(L"Value", 6, text));
        EXPECT_EQ(text, L"%FN \u00FC");
        EXPECT_FALSE(key_.QueryText(L"Value", 5, text)) << "the terminator counts";
    }
}

TEST_F(RegistryContract, ShortTextsAreNumbersToo) {
    uint32_t number = 0;
    ASSERT_TRUE(key_.SetText(L"Value", RegistryType::Number, L"A"));
    EXPECT_TRUE(key_.QueryNumber(L"Value", number));
    EXPECT_EQ(number, 0x41u);
    ASSERT_TRUE(key_.SetText(L"Value", RegistryType::Number, L""));
    EXPECT_TRUE(key_.QueryNumber(L"Value", number));
    EXPECT_EQ(number, 0u) << "two bytes leave the others zero";
    ASSERT_TRUE(key_.SetText(L"Value", RegistryType::Number, L"AB"));
    EXPECT_FALSE(key_.QueryNumber(L"Value", number)) << "six bytes";
}

TEST_F(RegistryContract, NumbersReadAsTexts) {
    std::wstring text;
    ASSERT_TRUE(key_.SetNumber(L"Value", RegistryType::Number, 0x00420041));
    EXPECT_TRUE(key_.QueryText(L"Value", 260, text));
    EXPECT_EQ(text, L"AB") << "no terminator in the data";
    ASSERT_TRUE(key_.SetNumber(L"Value", RegistryType::Number, 0x00000041));
    EXPECT_TRUE(key_.QueryText(L"Value", 260, text));
    EXPECT_EQ(text, L"A");
}

TEST_F(RegistryContract, ValuesOutliveTheKeyObject) {
    ASSERT_TRUE(key_.SetNumber(L"Value", RegistryType::Number, 1));
    ASSERT_TRUE(key_.SetNumber(L"Value", RegistryType::Number, 2));
    key_ = RegistryKey::OpenUser(contract::kTestKey);
    uint32_t number = 0;
    EXPECT_TRUE(key_.QueryNumber(L"Value", number));
    EXPECT_EQ(number, 2u);
    EXPECT_TRUE(key_.Remove(L"Value"));
    EXPECT_FALSE(key_.QueryNumber(L"Value", number));
}

TEST_F(RegistryContract, AClosedKeyFailsQuietly) {
    RegistryKey none;
    uint32_t number = 0;
    EXPECT_FALSE(none.IsOpen());
    EXPECT_FALSE(none.QueryNumber(L"Value", number));
    EXPECT_FALSE(none.SetNumber(L"Value", RegistryType::Number, 1));
    EXPECT_FALSE(none.Remove(L"Value"));
}

TEST_F(RegistryContract, MachineKeysAreNotMade) {
    EXPECT_FALSE(RegistryKey::OpenMachine(contract::kMachineKey).IsOpen());
    driver_.SetMachineNumber(contract::kMachineKey, L"Enabled", 1);
    const RegistryKey machine = RegistryKey::OpenMachine(contract::kMachineKey);
    uint32_t number = 0;
    EXPECT_TRUE(machine.QueryNumber(L"Enabled", number));
    EXPECT_EQ(number, 1u);
}

}  // namespace

}  // namespace platform
