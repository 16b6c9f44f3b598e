#include <random>

#include "search/MemoSearch.h"
#include "tests/support/DeskTest.h"

namespace {

using search::MemoResult;

class Memo : public testing_support::DeskTest {
  protected:
    bool Finds(const std::string& text, const std::string& memo) {
        device.files.Put(L"\\m.txt", memo);
        return search::MemoSearch(text).LookIn(L"\\m.txt", cancelled_) == MemoResult::Found;
    }
    std::atomic<bool> cancelled_{false};
};

TEST_F(Memo, CapitalsAndSmallLetters) {
    EXPECT_TRUE(Finds("abc", "xx ABC"));
    EXPECT_TRUE(Finds("ABC", "xx abc"));
    EXPECT_FALSE(Finds("abc", "ABC and later abd")) << "capitals count only where no small letter is left";
    EXPECT_TRUE(Finds("abc", "ABC" + std::string(1024, '.') + "abd")) << "in this window";
    EXPECT_TRUE(Finds("1b", "a1B"));
    EXPECT_TRUE(Finds("az", "x AZ") && Finds("za", "x ZA"));
    EXPECT_FALSE(Finds("\xE9t", "\xC9T")) << "only A to Z fold";
    EXPECT_TRUE(Finds("\xE9t", "\xE9T"));
}

TEST_F(Memo, EveryPlaceAroundTheEdgesOfReads) {
    for (const std::string& text : {std::string("q"), std::string("qrs"), std::string(1500, 'q') + "r"}) {
        for (const size_t at : {0, 1020, 1021, 1022, 1023, 1024, 1025, 2047, 65533, 65534, 65536, 66560}) {
            const std::string before(at, '.');
            EXPECT_TRUE(Finds(text, before + text)) << at;
            EXPECT_TRUE(Finds(text, before + text + "..")) << at;
            EXPECT_FALSE(Finds(text, before + text.substr(0, text.size() - 1))) << at;
        }
    }
}

// Texts of small letters, and memos of small ones or of capitals: there the rule about capitals says nothing.
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
        std::string loud = memo;
        for (char& letter : loud) letter = static_cast<char>(letter - 32);
        const bool isThere = memo.find(text) != std::string::npos;
        ASSERT_EQ(Finds(text, memo), isThere) << text << " in " << memo;
        ASSERT_EQ(Finds(text, loud), isThere) << text << " in " << loud;
        found += isThere ? 1 : 0;
    }
    EXPECT_THAT(found, testing::AllOf(testing::Gt(50), testing::Lt(350)));
}

TEST_F(Memo, IsReadInLargePiecesAndHoldsNothingWhereItCannotBe) {
    using platform::FileError;
    using platform::host::FileCall;
    int reads = 0;
    FileError outcome = FileError::None;
    device.files.fault = [&](FileCall call, const std::wstring&) {
        if (call != FileCall::Read) return FileError::None;
        ++reads;
        return outcome;
    };
    for (const auto& [size, wanted] :
         {std::pair<size_t, int>{0, 1}, {100, 1}, {65535, 1}, {65536, 2}, {200000, 4}}) {
        reads = 0;
        EXPECT_FALSE(Finds("a", std::string(size, '.')));
        EXPECT_EQ(reads, wanted) << size;
    }
    EXPECT_FALSE(Finds("", "text"));
    EXPECT_EQ(search::MemoSearch("a").LookIn(L"\\none.txt", cancelled_), MemoResult::NotFound);
    EXPECT_TRUE(Finds("a", "a"));
    cancelled_ = true;
    EXPECT_FALSE(Finds("a", "a"));
    cancelled_ = false;
    outcome = FileError::Other;
    EXPECT_FALSE(Finds("a", "a"));
}

}  // namespace
