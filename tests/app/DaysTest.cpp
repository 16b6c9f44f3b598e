// Days of use, each with trouble at every one of its calls: after the next start, with every question
// answered by its default, whatever stood on a page when the pen was lifted last is in a whole note.
//
// By default every INKWRIGHT_FAULT_STEP-th fault point is tried (1: all of them, see tools/sweep_faults).
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/app/Life.h"

namespace {

using namespace testing_support;

constexpr Trouble kTroubles[] = {Trouble::Kill,    Trouble::PowerCut, Trouble::Scattered,
                                 Trouble::OneCall, Trouble::AllCalls, Trouble::NoRoom};
constexpr const char* kNames[] = {
    "kill", "power cut", "power cut, any parts kept", "a call failed", "every call failed from", "no room"};

int FaultStep() {
    const char* step = std::getenv("INKWRIGHT_FAULT_STEP");
    return step == nullptr ? 40 : std::max(1, std::atoi(step));
}

class Days : public testing::TestWithParam<std::string> {
  protected:
    Days() {
        std::ifstream file(INKWRIGHT_DAYS "/" + GetParam() + ".day");
        script_ = {std::istreambuf_iterator<char>(file), {}};
    }

    // In Work a note "a" with a memo and an alarm, in Home a note "b", and a card. Strokes 30 to 33.
    void Live(Life& life, int nth) {
        for (const auto& [name, k] : {std::pair{L"Work\\a", 30}, {L"Home\\b", 31}, {L"Home\\Old\\c", 32}})
            life.device.files.Put(kStore + name + L".ikw", NoteWith(k));
        life.device.files.Put(kStore + L"Work\\a.txt", "jam");
        life.device.files.PutFolder(L"\\Storage Card");
        life.Live(L"", life.Lines("alarm Notes\\Work\\a"));
        life.kept = {30, 31, 32};
        life.memos = {"jam"};
        if (nth > 0) life.MeetTrouble(nth);
        life.Live(L"", life.Lines(script_));
    }

    // How many troubles of the kind a day can meet.
    int Points(Trouble trouble) {
        Life life(trouble == Trouble::NoRoom ? Trouble::OneCall : trouble);
        Live(life, 1 << 30);
        EXPECT_FALSE(testing::Test::HasFailure()) << "a day without trouble";
        return trouble == Trouble::NoRoom ? 4000 : life.calls;
    }

    void Check(Life& life, Trouble trouble) {
        Life next(life);
        next.Live(L"", {});
        std::multiset<int> strokes;
        std::set<std::string> memos;
        next.TakeStock(strokes, memos);
        // What could not be erased may be there twice.
        const size_t most = trouble <= Trouble::Scattered ? 1 : 2;
        for (const int k : life.kept)
            EXPECT_TRUE(strokes.count(k) >= 1 && strokes.count(k) <= most)
                << "stroke " << k << " is there " << strokes.count(k) << " times";
        for (const std::string& memo : life.memos) EXPECT_EQ(memos.count(memo), 1u) << "memo " << memo;
    }

  private:
    std::string script_;
};

TEST_P(Days, LoseNothing) {
    int tried = 0;
    for (size_t i = 0; i < std::size(kTroubles); ++i) {
        const Trouble trouble = kTroubles[i];
        const int points = Points(trouble);
        for (int nth = 1 + static_cast<int>(i) * 7 % FaultStep(); nth <= points && !HasFailure();
             nth += FaultStep()) {
            SCOPED_TRACE(testing::Message() << kNames[i] << " at " << nth);
            Life life(trouble);
            Live(life, nth);
            Check(life, trouble);
            ++tried;
        }
    }
    std::printf("fault points: %d, losses: %d\n", tried, HasFailure() ? 1 : 0);
}

std::vector<std::string> AllDays() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(INKWRIGHT_DAYS))
        names.push_back(entry.path().stem());
    return names;
}

INSTANTIATE_TEST_SUITE_P(All, Days, testing::ValuesIn(AllDays()), [](const auto& day) { return day.param; });

}  // namespace
