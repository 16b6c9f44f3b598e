// Reads any bytes as a journal; and, since hardly any have true checksums, packs what Form::Blocks describes into
// whole blocks and reads those, whole and cut off. It ends, with a page that can be saved.
#include <algorithm>
#include <cstring>
#include <tuple>

#include "app/store/JournalBlocks.h"
#include "app/store/JournalReader.h"
#include "fuzz/Target.h"
#include "ink/PageJournal.h"

namespace fuzz {

namespace {

constexpr size_t kManySlots = 5000;

store::JournalStory Read(const Bytes& bytes, size_t size) {
    store::JournalStory story;
    ink::MemorySource source(bytes.data(), size);
    Require(store::ReadJournal(source, story), "memory suffices");
    if (story.page != nullptr) RequireModest(*story.page, size);
    return story;
}

void Append(Bytes& journal, ink::BlockPacker& block) {
    const Bytes packed = block.Finish();
    journal.insert(journal.end(), packed.begin(), packed.end());
}

// The head and the blocks; `end` is where the last whole one before `cut` ends.
Bytes Pack(const Bytes& bytes, size_t cut, size_t& end) {
    Bytes journal;
    ink::BlockPacker head(store::kHeadBlock);
    head.Text(store::kJournalMark);
    head.Number(store::kJournalVersion);
    Append(journal, head);
    ink::BlockParser parser(bytes);
    while (parser.Left() >= 8) {
        if (journal.size() <= cut) end = journal.size();
        ink::BlockPacker block(parser.Number());
        const size_t size = std::min(uint64_t{parser.Number()} * 4, uint64_t{parser.Left()});
        block.Raw(parser.Raw(size), size);
        Append(journal, block);
    }
    if (journal.size() <= cut) end = journal.size();
    return journal;
}

// Whatever happened to it before, a page that is written down comes back.
void RequireSame(const ink::InkPage& page) {
    Bytes journal;
    uint32_t kind = 0;
    ink::InkPage copy;
    Require(ink::AppendPage(journal, page), "a page's block");
    ink::MemorySource source(journal.data(), journal.size());
    Bytes content;
    Require(ink::NextBlock(source, kind, content) && ink::Replay(kind, content, copy), "a page's replay");
    Require(Save(copy) == Save(page) && copy.memo == page.memo, "the same page");
}

auto Told(const store::JournalStory& story) {
    const bool isShort = story.page != nullptr && story.page->SlotCount() <= kManySlots;
    return std::tuple(story.state, story.device, story.notePath, story.proposedPath, story.savingPath,
                      story.hasMemo, story.memoPath, story.memo, isShort ? story.page->memo : L"",
                      isShort ? Save(*story.page) : Bytes());
}

}  // namespace

void TryJournal(const Bytes& bytes, Care care) {
    Read(bytes, bytes.size());
    const size_t cut = bytes.empty() ? 0 : bytes.back() * (bytes.size() + 60) / 256;
    size_t end = 0;
    const Bytes journal = Pack(bytes, cut, end);
    const store::JournalStory whole = Read(journal, journal.size());
    Require(Told(Read(journal, std::min(cut, journal.size()))) == Told(Read(journal, end)), "up to the last whole step");
    if (whole.page == nullptr || whole.page->SlotCount() > kManySlots) return;
    RequireWhole(*whole.page);
    if (whole.page->bandHeight > 0) RequireSame(*whole.page);
    PaintViews(*whole.page, care);
}

}  // namespace fuzz
