#include <gtest/gtest.h>

#include <cstring>

#include "ink/NoteFile.h"
#include "ink/NoteScanner.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::InkPage;
using sketch::Bytes;
using Lines = std::vector<std::string>;

constexpr ink::ColorRef kOwnBackground = 0x00F0F0F0;
constexpr ink::ColorRef kFileBackground = 0x00C0E0F0;

InkPage& Blank(InkPage& page, int32_t height) {
    page.bandHeight = height;
    page.background = kOwnBackground;
    return page;
}

const Lines kSameHeight = {"0: 0 123456 10..30 (10,10) (14,18) (20,30)", "0: 0 ffffff 60..60 (5,60)",
                           "1: 0 ff 250..290 (100,250) (104,270) (108,290)",
                           "2: 0 808080 300..320 (50,300) (60,320)",
                           "5: 0 ff00 800..810 (0,800) (239,810) (17,805) (18,806)"};

TEST(NoteFile, ReadsEveryVersionToTheSamePagePoints) {
    struct VersionCase {
        const char* name;
        bool converted;
        bool background;
    };
    for (const VersionCase& c : {VersionCase{"version-0", true, false},
                                 {"version-1", true, false},
                                 {"version-2", true, true},
                                 {"version-3", true, true},
                                 {"version-4", false, true},
                                 {"version-5", false, true},
                                 {"version-6", false, true},
                                 {"version-garbage", false, true}}) {
        SCOPED_TRACE(c.name);
        InkPage page;
        ASSERT_TRUE(sketch::Load(sketch::ReadFixture(c.name), Blank(page, 268)).Ok());
        EXPECT_EQ(page.background, c.background ? kFileBackground : kOwnBackground);
        EXPECT_FALSE(page.modified);
        EXPECT_EQ(page.SlotCount(), 6u);
        // Old notes get max(0, maxY + 1 - 268 / 2) as their offset; nothing else changes.
        Lines wanted = kSameHeight;
        if (c.converted) {
            wanted[2].replace(0, 4, "1: 157");
            wanted[3].replace(0, 4, "2: 187");
            wanted[4].replace(0, 4, "5: 677");
        }
        EXPECT_EQ(sketch::Describe(page), wanted);
    }
}

TEST(NoteFile, FilesRecordsAnewForAnotherBandHeight) {
    InkPage page;
    ASSERT_TRUE(sketch::Load(sketch::ReadFixture("version-5"), Blank(page, 240)).Ok());
    Lines wanted = kSameHeight;
    wanted[2][0] = '2';
    wanted[4][0] = '6';
    EXPECT_EQ(sketch::Describe(page), wanted);
    EXPECT_EQ(page.SlotCount(), 7u);
    EXPECT_EQ(page.Band(1), nullptr);

    InkPage low;
    ASSERT_TRUE(sketch::Load(sketch::ReadFixture("version-3"), Blank(low, 31)).Ok());
    // The offset follows from the page's band height, not the file's.
    EXPECT_EQ(sketch::Describe(low)[0], "0: 16 123456 10..30 (10,10) (14,18) (20,30)");
    EXPECT_EQ(low.SlotCount(), 800u / 31 + 810 / 31 + 1);
}

TEST(NoteFile, EmptyNotesLoad) {
    for (const char* name : {"no-bands", "negative-bands", "empty-bands"}) {
        InkPage page;
        Blank(page, 268).memo = L"old";
        sketch::Add(page, {{1, 1}});
        ASSERT_TRUE(sketch::Load(sketch::ReadFixture(name), page).Ok()) << name;
        EXPECT_FALSE(page.HasInk());
        EXPECT_TRUE(page.memo.empty());
        EXPECT_EQ(page.background, kFileBackground);
        EXPECT_EQ(page.SlotCount(), std::strcmp(name, "empty-bands") == 0 ? 4u : 0u);
    }
}

TEST(NoteFile, UnusualButWholeFilesLoad) {
    for (const std::string& name : sketch::FixtureNames("")) {
        if (name.rfind("damaged-", 0) == 0) continue;
        InkPage page;
        EXPECT_TRUE(sketch::Load(sketch::ReadFixture(name), Blank(page, 268)).Ok()) << name;
    }
    InkPage above;
    ASSERT_TRUE(sketch::Load(sketch::ReadFixture("above-page"), Blank(above, 240)).Ok());
    EXPECT_EQ(sketch::Describe(above), (Lines{"0: 0 808080 -700..-690 (3,-700) (4,-690)"}));
}

TEST(NoteFile, WritesExactlyTheseBytes) {
    InkPage page;
    page.bandHeight = 16;
    page.background = 0x00ABCDEF;
    sketch::Add(page, {{1, 20}, {-2, 22}}, 0x00123456);
    ASSERT_TRUE(page.EnsureSlot(3));
    const Bytes wanted = {
        5,  0, 0, 0, 0xEF, 0xCD, 0xAB, 0, 4,    0,    0,    0,    16,   0, 0, 0,  // header
        0,  0, 0, 0, 0,    0,    0,    0, 1,    0,    0,    0,                    // counts of slots 0 to 2
        2,  0, 0, 0, 0,    0,    0,    0, 0x56, 0x34, 0,    0,    0x12, 0, 0, 0,
        20, 0, 0, 0, 22,   0,    0,    0,                                         // head
        1,  0, 0, 0, 20,   0,    0,    0, 0xFE, 0xFF, 0xFF, 0xFF, 22,   0, 0, 0,  // points
        0,  0, 0, 0,                                                              // slot 3
    };
    EXPECT_EQ(sketch::Save(page), wanted);
}

TEST(NoteFile, WritingWhatWasReadGivesTheFileBack) {
    for (const char* name :
         {"version-5", "offset", "no-points", "far-away", "empty-bands", "offset-overflow"}) {
        InkPage page;
        const Bytes bytes = sketch::ReadFixture(name);
        ASSERT_TRUE(sketch::Load(bytes, Blank(page, 268)).Ok());
        EXPECT_EQ(sketch::Save(page), bytes) << name;
    }
}

// Long enough for many chunks, with records of every size across their edges.
TEST(NoteFile, LargeNotesSurviveTheRoundTrip) {
    std::mt19937 random(5);
    InkPage page;
    page.bandHeight = 300;
    for (int i = 0; i < 6000; ++i) {
        const size_t count = i % 500 == 0 ? 40000 : 1 + random() % 126;
        sketch::Add(page, sketch::Wander(random, count, 9, {0, i, 240, i + 200}), random() & 0xFFFFFF);
    }
    const Bytes bytes = sketch::Save(page);
    InkPage same;
    ASSERT_TRUE(sketch::Load(bytes, Blank(same, 300)).Ok());
    EXPECT_EQ(sketch::Describe(same), sketch::Describe(page));
    EXPECT_EQ(sketch::Save(same), bytes);
    // What was loaded can be written on: the page's memory is not confused by its origin.
    sketch::Add(same, {{5, 5}, {6, 6}}, 77);
    sketch::Add(page, {{5, 5}, {6, 6}}, 77);
    EXPECT_EQ(sketch::Describe(same), sketch::Describe(page));
}

// Notes how much it is asked for.
class AskedSource : public ink::MemorySource {
  public:
    explicit AskedSource(const Bytes& bytes) : MemorySource(bytes.data(), bytes.size()) {}
    bool Read(void* buffer, size_t size, size_t& got) override {
        asked.push_back(size);
        return MemorySource::Read(buffer, size, got);
    }
    std::vector<size_t> asked;
};

TEST(NoteScanner, VisitsTheRecordsInFileOrderWithoutKeepingThem) {
    std::mt19937 random(6);
    InkPage page;
    page.bandHeight = 300;
    size_t longest = 0;
    for (int i = 0; i < 3000; ++i) {
        const size_t count = i == 1500 ? 30000 : 1 + random() % 126;
        longest = std::max(longest, count);
        sketch::Add(page, sketch::Wander(random, count, 9, {0, i, 240, i + 200}), static_cast<uint32_t>(i));
    }
    const Bytes bytes = sketch::Save(page);
    AskedSource source(bytes);
    ink::NoteFileHeader header;
    ASSERT_TRUE(ink::ReadNoteHeader(source, header));
    ink::StrokePool pool;
    ink::NoteScanner scanner(source, header, 300, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    std::vector<size_t> nextInBand(page.SlotCount());
    size_t count = 0;
    size_t mostMemory = 0;
    while (scanner.Next(record) == ink::ScanResult::Record) {
        const size_t slot = static_cast<size_t>(scanner.Block());
        const ink::StrokeRecord& wanted = page.Band(slot)->At(nextInBand[slot]++);
        ASSERT_EQ(record->Bytes(), wanted.Bytes());
        ASSERT_EQ(std::memcmp(record, &wanted, wanted.Bytes()), 0) << count;
        ++count;
        mostMemory = std::max(mostMemory, pool.Capacity());
    }
    EXPECT_EQ(count, 3000u);
    // Few bytes first, since most heads lie near the start of a short note; then many at once.
    ASSERT_GT(source.asked.size(), 2u);
    EXPECT_EQ(source.asked[1], ink::StrokePool::kFirstChunk);
    EXPECT_LE(source.asked.size(), 4 + bytes.size() / (ink::StrokePool::kLargeChunk / 2));
    EXPECT_LE(mostMemory, longest * 8 * 3 + ink::StrokePool::kLargeChunk);
}

}  // namespace
