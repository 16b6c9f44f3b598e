#include "search/MemoSearch.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::FileError;
using platform::host::FileCall;

class Memo : public testing_support::DeskTest {
  protected:
    bool Finds(const std::string& text, const std::string& memo) {
        device.files.Put(L"\\m.txt", memo);
        return search::MemoSearch(text).LookIn(L"\\m.txt", cancelled_) == search::MemoResult::Found;
    }
    std::atomic<bool> cancelled_{false};
};

TEST_F(Memo, CapitalsAndSmallLetters) {
    EXPECT_TRUE(Finds("abc", "xx ABC") && Finds("ABC", "xx abc") && Finds("1b", "a1B"));
    EXPECT_FALSE(Finds("abc", "axc abx xbc"));
    EXPECT_FALSE(Finds("abc", "ABC and later abd")) << "capitals count only where no small letter is left";
    EXPECT_TRUE(Finds("abc", "ABC" + std::string(1024, '.') + "abd")) << "in this window";
    EXPECT_TRUE(Finds("az", "x AZ") && Finds("za", "x ZA"));
    EXPECT_FALSE(Finds("\xE9t", "\xC9T")) << "only A to Z fold";
    EXPECT_TRUE(Finds("\xE9t", "\xE9T"));
}

// What stands before a short text begins like it.
TEST_F(Memo, EveryPlaceAroundTheEdgesOfReads) {
    for (const std::string& text : {std::string("r"), std::string("qqr"), std::string(1500, 'q') + "r"}) {
        for (const size_t at : {0, 1, 1020, 1021, 1022, 1023, 1024, 1025, 2047, 65533, 65534, 65536, 66560}) {
            const std::string before(at, text.size() < 1024 ? 'q' : '.');
            EXPECT_TRUE(Finds(text, before + text)) << at;
            EXPECT_TRUE(Finds(text, before + text + "..")) << at;
            EXPECT_FALSE(Finds(text, before + text.substr(0, text.size() - 1))) << at;
        }
    }
}

TEST_F(Memo, IsReadInLargePiecesAndHoldsNothingWhereItCannotBe) {
    int reads = 0;
    FileError outcome = FileError::None;
    device.files.fault = [&](FileCall call, const std::wstring&) {
        reads += call == FileCall::Read ? 1 : 0;
        return call == FileCall::Read ? outcome : FileError::None;
    };
    for (const auto& [size, wanted] : {std::pair{0u, 1}, {65535u, 1}, {65536u, 2}, {200000u, 4}}) {
        reads = 0;
        EXPECT_FALSE(Finds("a", std::string(size, '.')));
        EXPECT_EQ(reads, wanted) << size;
    }
    EXPECT_TRUE(Finds("a", "a"));
    EXPECT_FALSE(Finds("", "text"));
    EXPECT_NE(search::MemoSearch("a").LookIn(L"\\none.txt", cancelled_), search::MemoResult::Found);
    outcome = FileError::Other;
    EXPECT_FALSE(Finds("a", "a"));
    outcome = FileError::None;
    cancelled_ = true;
    EXPECT_FALSE(Finds("a", "a"));
}

}  // namespace
