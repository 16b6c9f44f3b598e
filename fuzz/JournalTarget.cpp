// Reads any bytes as a journal; and, since few have true checksums, makes whole blocks of what stands between
// marks (a kind and its content) and reads those, whole and cut off. It ends, with a page that can be saved.
#include <algorithm>
#include <tuple>

#include "app/store/JournalBlocks.h"
#include "app/store/JournalReader.h"
#include "fuzz/Target.h"
#include "ink/PageJournal.h"

namespace fuzz {

namespace {

constexpr uint8_t kMark[] = {'B', 'l', 'k', ':'};

store::JournalStory Read(const Bytes& bytes, size_t size, Care care) {
    store::JournalStory story;
    ink::MemorySource source(bytes.data(), size);
    Require(store::ReadJournal(source, story), "memory suffices");
    if (story.page != nullptr) RequireWhole(*story.page, size, care);
    return story;
}

auto Told(const store::JournalStory& story) {
    const bool isPage = story.page != nullptr && story.page->SlotCount() < 500;
    return std::tuple(story.state, story.device, story.notePath, story.proposedPath, story.savingPath,
                      story.hasMemo, story.memoPath, story.memo, isPage ? story.page->memo : L"",
                      isPage ? Save(*story.page) : Bytes());
}

}  // namespace

void TryJournal(const Bytes& bytes, Care care) {
    Read(bytes, bytes.size(), care);
    ink::BlockPacker head(store::kHeadBlock);
    head.Text(store::kJournalMark);
    head.Number(store::kJournalVersion);
    Bytes journal = head.Finish();
    // Where to cut it off, and where the last whole block before that ends.
    const size_t cut = journal.size() + (bytes.empty() ? 0 : bytes.back() * bytes.size() / 256);
    size_t end = journal.size();
    for (auto at = bytes.begin(); at != bytes.end();) {
        const auto next = std::search(at + 1, bytes.end(), std::begin(kMark), std::end(kMark));
        ink::BlockPacker block(*at);
        block.Raw(&*at + 1, static_cast<size_t>(next - at - 1));
        const Bytes packed = block.Finish();
        journal.insert(journal.end(), packed.begin(), packed.end());
        if (journal.size() <= cut) end = journal.size();
        at = next + std::min<std::ptrdiff_t>(4, bytes.end() - next);
    }
    Read(journal, journal.size(), care);
    if (care == Care::Quick && (bytes.size() % 4 != 0 || journal.size() == end)) return;
    const auto whole = Told(Read(journal, end, care));
    Require(Told(Read(journal, std::min(cut, journal.size()), care)) == whole, "up to the last whole step");
}

}  // namespace fuzz
