#include <algorithm>
#include <random>

#include "search/MemoSearch.h"
#include "tests/support/DeskTest.h"

namespace {

using search::MemoResult;

char Small(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte; }

class Memo : public testing_support::DeskTest {
  protected:
    MemoResult Find(const std::string& text, const std::string& memo) {
        device.files.Put(L"\\m.txt", memo);
        return search::MemoSearch(text).LookIn(L"\\m.txt", going_);
    }
    bool Finds(const std::string& text, const std::string& memo) {
        return Find(text, memo) == MemoResult::Found;
    }
    std::atomic<bool> going_{false};
};

bool NaiveFinds(const std::string& text, const std::string& memo) {
    const auto same = [](char a, char b) { return Small(a) == Small(b); };
    return std::search(memo.begin(), memo.end(), text.begin(), text.end(), same) != memo.end();
}

TEST_F(Memo, CapitalsAndSmallLetters) {
    EXPECT_TRUE(Finds("abc", "xx ABC"));
    EXPECT_TRUE(Finds("ABC", "xx abc"));
    EXPECT_FALSE(Finds("abc", "ABC and later abd")) << "capitals count only where no small letter is left";
    EXPECT_TRUE(Finds("abc", "ABC" + std::string(1024, '.') + "abd")) << "in this window";
    EXPECT_TRUE(Finds("1b", "a1B"));
    EXPECT_FALSE(Finds("\xE9t", "\xC9T")) << "only A to Z fold";
    EXPECT_TRUE(Finds("\xE9t", "\xE9T"));
}

TEST_F(Memo, EveryPlaceAroundTheEdgesOfReads) {
    for (const std::string& text : {std::string("q"), std::string("qrs"), std::string(1500, 'q') + "r"}) {
        for (size_t at : {size_t{0}, size_t{1020}, size_t{1021}, size_t{1022}, size_t{1023}, size_t{1024},
                          size_t{1025}, size_t{2047}, size_t{65534}, size_t{65536}, size_t{66560}}) {
            const std::string before(at, '.');
            EXPECT_TRUE(Finds(text, before + text)) << at;
            EXPECT_TRUE(Finds(text, before + text + "..")) << at;
            EXPECT_FALSE(Finds(text, before + text.substr(0, text.size() - 1))) << at;
        }
    }
}

// Texts of small letters and memos without capitals: there the rule about capitals says nothing.
TEST_F(Memo, AgreesWithANaiveSearch) {
    std::mt19937 random(7);
    const auto letters = [&random](size_t count) {
        std::string made(count, 'a');
        for (char& letter : made) letter = static_cast<char>('a' + random() % 3);
        return made;
    };
    int found = 0;
    for (int i = 0; i < 400; ++i) {
        const std::string memo = letters(random() % 3000);
        const std::string text = letters(1 + random() % 12);
        ASSERT_EQ(Finds(text, memo), NaiveFinds(text, memo)) << text << " in " << memo;
        found += NaiveFinds(text, memo) ? 1 : 0;
        // Where only capitals stand the rule is without effect too.
        std::string loud = memo;
        for (char& letter : loud) letter = static_cast<char>(letter - 32);
        ASSERT_EQ(Finds(text, loud), NaiveFinds(text, loud));
    }
    EXPECT_THAT(found, testing::AllOf(testing::Gt(50), testing::Lt(350)));
}

TEST_F(Memo, WhatCannotBeReadHoldsNothing) {
    EXPECT_FALSE(Finds("", "text"));
    EXPECT_FALSE(Finds("a", ""));
    EXPECT_EQ(search::MemoSearch("a").LookIn(L"\\none.txt", going_), MemoResult::NotFound);
    device.files.fault = [](platform::host::FileCall call, const std::wstring&) {
        return call == platform::host::FileCall::Read ? platform::FileError::Other
                                                      : platform::FileError::None;
    };
    EXPECT_FALSE(Finds("a", "a"));
    device.files.fault = nullptr;
    EXPECT_TRUE(Finds("a", "a"));
    going_ = true;
    EXPECT_FALSE(Finds("a", "a")) << "cancelled";
}

}  // namespace
