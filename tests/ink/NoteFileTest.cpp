#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "ink/NoteSalvage.h"
#include "ink/NoteScanner.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::InkPage;
using ink::LoadResult;
using ink::StrokePool;
using sketch::Bytes;
using sketch::Lines;
using testing_support::Fault;

// What each fixture holds: its name, the height of the page's bands, whether it is written as the same bytes
// again, then slots and strokes. Offsets of old notes are max(0, maxY + 1 - half the height of the page's
// bands).
TEST(NoteFile, ReadsEveryVersionAndWhateverElseAFileMayHold) {
    std::ifstream cases(FIXTURES "/notes.txt");
    int32_t height = 0;
    size_t slots = 0;
    size_t strokes = 0;
    std::string again;
    int read = 0;
    for (std::string fixture; cases >> fixture >> height >> again >> slots >> strokes; ++read) {
        SCOPED_TRACE(testing::Message() << fixture << " at " << height);
        Lines expected(strokes);
        cases.ignore();
        for (std::string& line : expected) std::getline(cases, line);
        const Bytes bytes = sketch::ReadFixture(fixture);
        InkPage page;
        page.bandHeight = height;
        page.memo = L"old";
        sketch::Add(page, {{1, 1}, {2, 2}});
        ASSERT_EQ(sketch::Load(bytes, page), LoadResult::Loaded);
        EXPECT_EQ(sketch::Describe(page), expected);
        EXPECT_EQ(page.SlotCount(), slots);
        EXPECT_EQ(page.background == 0xC0E0F0, fixture != "version-0" && fixture != "version-1");
        EXPECT_EQ(page.memo, L"");
        EXPECT_FALSE(page.modified);
        EXPECT_EQ(sketch::Save(page) == bytes, again == "same");
    }
    EXPECT_EQ(read, 18);
}

struct CheckedSource : ink::MemorySource {
    CheckedSource(const Bytes& bytes, size_t size, Fault& f) : MemorySource(bytes.data(), size), fault(f) {}
    bool Read(void* buffer, size_t size, size_t& got) override {
        EXPECT_FALSE(ended) << "asked again after the end";
        asked.push_back(size);
        ended = fault.Strikes() || !MemorySource::Read(buffer, size, got) || got < size;
        return !fault.HasStruck();
    }
    Fault& fault;
    std::vector<size_t> asked;
    bool ended = false;
};

void FillWithMuchInk(InkPage& page, int32_t strokes) {
    sketch::Dice dice(5);
    page.bandHeight = 300;
    for (int32_t i = 0; i < strokes; ++i) {
        const int32_t count = i == 70 ? 150000 : dice(1, 126);
        sketch::Add(page, dice.Line(count, 9, {0, i, 240, i + 200}), static_cast<ink::ColorRef>(i));
    }
}

TEST(NoteFile, LargeNotesAreReadInAFewPieces) {
    InkPage page, same;
    FillWithMuchInk(page, 3000);
    sketch::File(page, {0, 7, 1, {{5, 1000}}, 1000, 1000});
    const Bytes bytes = sketch::Save(page);
    sketch::Strokes wanted = sketch::StrokesOf(page);
    same.bandHeight = page.bandHeight;
    ASSERT_EQ(sketch::Load(bytes, same), LoadResult::Loaded);
    EXPECT_LE(same.Pool().Capacity(), bytes.size() * 11 / 10);
    // What was loaded can be written on: the page's memory is not confused by its origin.
    for (InkPage* each : {&same, &page}) sketch::Add(*each, {{5, 5}, {6, 6}}, 77);
    EXPECT_EQ(sketch::Describe(same), sketch::Describe(page));
    EXPECT_EQ(sketch::Save(same), sketch::Save(page));

    // A look at one record after another does not keep them. Offsets mean nothing in an old note.
    Fault none;
    CheckedSource source(bytes, bytes.size(), none);
    ink::NoteFileHeader header;
    ASSERT_TRUE(ink::ReadNoteHeader(source, header));
    header.formatVersion = 3;
    for (sketch::Stroke& stroke : wanted) stroke.points[0].y -= std::exchange(stroke.offset, 0);
    StrokePool pool;
    ink::NoteScanner scanner(source, header, 300, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    sketch::Strokes seen;
    while (scanner.Next(record) == ink::ScanResult::Record) {
        seen.push_back(sketch::StrokeOf(scanner.Block(), *record));
        ASSERT_LE(pool.Capacity(), 150000 * 8 * 2 + StrokePool::kLargeChunk);
    }
    EXPECT_EQ(sketch::Describe(seen), sketch::Describe(wanted));
    // Few bytes first, since most heads lie near the start of a short note; then many at once.
    EXPECT_EQ(source.asked[1], StrokePool::kFirstChunk);
    EXPECT_LE(source.asked.size(), 4 + bytes.size() / (StrokePool::kLargeChunk / 2));
}

// Only a whole file is loaded, and what a page held before is gone once anything of another has been read.
void TryToLoad(const Bytes& bytes, size_t size, Fault& fault, bool isWhole) {
    SCOPED_TRACE(size);
    InkPage page;
    sketch::Add(page, {{1, 1}, {2, 2}});
    CheckedSource source(bytes, size, fault);
    const auto result = sketch::Load(source, page);
    const bool isLoaded = isWhole && !fault.HasStruck();
    EXPECT_EQ(result.has_value(), source.asked.size() > 1) << "no more is read without a header";
    EXPECT_EQ(result.value_or(LoadResult::Damaged), isLoaded ? LoadResult::Loaded : LoadResult::Damaged);
    EXPECT_EQ(page.SlotCount() > 0, isLoaded || !result);
}

TEST(NoteFile, NothingOfADamagedFileIsKept) {
    Fault none;
    for (const auto& entry : std::filesystem::directory_iterator(FIXTURES)) {
        const std::string name = entry.path().stem().string();
        if (name.rfind("damaged-", 0) != 0) continue;
        const Bytes bytes = sketch::ReadFixture(name);
        TryToLoad(bytes, bytes.size(), none, false);
        InkPage page;
        ink::MemorySource source(bytes.data(), bytes.size());
        const bool hasStroke = bytes.size() == 52;  // a header, one count and one stroke of one point
        EXPECT_EQ(ink::SalvageNote(source, page), hasStroke) << name;
        EXPECT_EQ(sketch::Describe(page), hasStroke ? Lines{"0: 0 808080 2..2 (1,2)"} : Lines()) << name;
    }
    InkPage large;
    FillWithMuchInk(large, 100);
    for (const Bytes& whole : {sketch::ReadFixture("version-5"), sketch::Save(large)}) {
        for (size_t size = 0; size < whole.size(); size += whole.size() / 500 + 1)
            TryToLoad(whole, size, none, false);
        testing_support::SweepFaults([&](Fault& fault) { TryToLoad(whole, whole.size(), fault, true); });
    }
}

std::vector<size_t> StrokeEnds(const InkPage& page) {
    std::vector<size_t> ends;
    size_t place = 16;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        place += 4;
        for (size_t i = 0; page.Band(slot) != nullptr && i < page.Band(slot)->Count(); ++i)
            ends.push_back(place += page.Band(slot)->At(i).Bytes());
    }
    return ends;
}

TEST(NoteFile, SalvageKeepsExactlyTheStrokesThatAreWhole) {
    InkPage large;
    FillWithMuchInk(large, 60);
    for (const Bytes& note :
         {sketch::ReadFixture("version-3"), sketch::ReadFixture("offset"), sketch::Save(large)}) {
        InkPage whole;
        std::memcpy(&whole.bandHeight, &note[12], sizeof whole.bandHeight);
        ASSERT_EQ(sketch::Load(note, whole), LoadResult::Loaded);
        const Lines strokes = sketch::Describe(whole);
        const std::vector<size_t> ends = StrokeEnds(whole);
        ASSERT_EQ(ends.size(), strokes.size());
        for (size_t cut = 0; cut <= note.size(); cut += note.size() / 500 + 1) {
            SCOPED_TRACE(cut);
            Fault none;
            CheckedSource source(note, cut, none);
            InkPage page;
            sketch::Add(page, {{1, 1}, {2, 2}});
            const auto kept = std::upper_bound(ends.begin(), ends.end(), cut) - ends.begin();
            EXPECT_EQ(ink::SalvageNote(source, page), kept > 0);
            EXPECT_EQ(sketch::Describe(page), Lines(strokes.begin(), strokes.begin() + kept));
            EXPECT_TRUE(kept == 0 ||
                        (page.background == whole.background && page.bandHeight == whole.bandHeight));
        }
    }
}

}  // namespace
