#include <gtest/gtest.h>

#include "ink/NoteFile.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::InkPage;
using ink::LoadResult;
using sketch::Bytes;

// Gives out bytes in small pieces, and fails when asked for one it should not give.
class FailingSource : public ink::ByteSource {
  public:
    FailingSource(const Bytes& bytes, size_t failAt) : bytes_(bytes), failAt_(failAt) {}

    bool Read(void* buffer, size_t size, size_t& got) override {
        EXPECT_FALSE(ended_) << "asked again after the end";
        got = std::min(size, bytes_.size() - place_);
        if (place_ + got > failAt_) return false;
        if (got != 0)
            std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(place_), got,
                        static_cast<uint8_t*>(buffer));
        place_ += got;
        ended_ = got < size;
        return true;
    }

  private:
    const Bytes& bytes_;
    size_t failAt_;
    size_t place_ = 0;
    bool ended_ = false;
};

class FailingSink : public ink::ByteSink {
  public:
    explicit FailingSink(size_t room) : room_(room) {}
    bool Write(const void*, size_t size) override {
        EXPECT_FALSE(failed_) << "written after a failure";
        failed_ = size > room_;
        room_ -= failed_ ? 0 : size;
        return !failed_;
    }

  private:
    size_t room_;
    bool failed_ = false;
};

void FillWithOldInk(InkPage& page, int32_t height) {
    page.bandHeight = height;
    sketch::Add(page, {{1, 1}, {2, 2}});
}

TEST(NoteDamage, NothingOfADamagedFileIsKept) {
    const std::vector<std::string> names = sketch::FixtureNames("damaged-");
    ASSERT_GE(names.size(), 14u);
    for (const std::string& name : names) {
        for (const int32_t height : {268, 240}) {
            InkPage page;
            FillWithOldInk(page, height);
            const sketch::Loaded loaded = sketch::Load(sketch::ReadFixture(name), page);
            EXPECT_FALSE(loaded.Ok()) << name;
            if (!loaded.header) continue;
            EXPECT_EQ(loaded.result, LoadResult::Damaged) << name;
            EXPECT_EQ(page.SlotCount(), 0u) << name;
        }
    }
}

TEST(NoteDamage, EveryTruncationAndReadErrorIsFound) {
    const Bytes whole = sketch::ReadFixture("version-5");
    for (size_t size = 0; size < whole.size(); ++size) {
        for (const int32_t height : {268, 240}) {
            InkPage page;
            FillWithOldInk(page, height);
            const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
            FailingSource error(whole, size);
            EXPECT_FALSE(sketch::Load(error, page).Ok()) << size;
            FailingSource source(part, part.size());
            const sketch::Loaded loaded = sketch::Load(source, page);
            EXPECT_EQ(loaded.header, size >= 16) << size;
            EXPECT_FALSE(loaded.Ok()) << size;
            if (loaded.header) {
                EXPECT_EQ(page.SlotCount(), 0u) << size;
            }
        }
    }
}

TEST(NoteDamage, StrokesBeyondEveryPageAreRefused) {
    InkPage page;
    FillWithOldInk(page, 240);
    EXPECT_EQ(sketch::Load(sketch::ReadFixture("far-below"), page).result, LoadResult::Damaged);

    // One to one it is the block that counts: the first allowed and the first refused.
    for (const size_t block : {size_t{1000000}, size_t{1000001}}) {
        Bytes bytes = sketch::ReadFixture("empty-bands");
        bytes.resize(16 + 4 * block);
        bytes.insert(bytes.end(), {1, 0, 0, 0});
        bytes.resize(bytes.size() + 24);  // a record without points
        const uint32_t count = static_cast<uint32_t>(block) + 1;
        for (size_t i = 0; i < 4; ++i) bytes[8 + i] = static_cast<uint8_t>(count >> 8 * i);
        InkPage same;
        FillWithOldInk(same, 268);
        EXPECT_EQ(sketch::Load(bytes, same).Ok(), block == 1000000) << block;
    }
}

TEST(NoteDamage, WriteErrorsAreReportedAtOnce) {
    InkPage page;
    page.bandHeight = 300;
    std::mt19937 random(8);
    for (int i = 0; i < 400; ++i)
        sketch::Add(page, sketch::Wander(random, 100, 9, {0, i * 9, 240, i * 9 + 200}));
    const size_t size = sketch::Save(page).size();
    for (size_t room = 0; room < size; room += 9001) {
        FailingSink sink(room);
        EXPECT_FALSE(ink::WriteNote(sink, page)) << room;
    }
    FailingSink enough(size);
    EXPECT_TRUE(ink::WriteNote(enough, page));
}

}  // namespace
