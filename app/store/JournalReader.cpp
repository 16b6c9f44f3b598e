#include "app/store/JournalReader.h"

#include <exception>

#include "app/store/JournalBlocks.h"
#include "app/store/StorePaths.h"
#include "ink/PageJournal.h"
#include "platform/FileSystem.h"

namespace store {

namespace {

FileStamp StampIn(ink::BlockParser& block) {
    FileStamp stamp;
    stamp.exists = block.Number() != 0;
    stamp.size = block.LongNumber();
    platform::DateTime& time = stamp.lastWrite;
    for (int* part :
         {&time.year, &time.month, &time.day, &time.hour, &time.minute, &time.second, &time.milliseconds})
        *part = static_cast<int>(block.Number());
    return stamp;
}

bool IsOurHead(ink::BlockParser& head) {
    return head.Text() == kJournalMark && head.Number() == kJournalVersion;
}

// False where the journal can't be followed any further.
bool Follow(uint32_t kind, const ink::BlockBytes& content, JournalStory& story) {
    ink::BlockParser block(content);
    switch (kind) {
        case kHeadBlock:
            if (IsOurHead(block)) return true;
            story.state = JournalStory::State::OtherVersion;
            return false;
        case kOwnerBlock:
            story.device = block.Text();
            story.notePath = block.Text();
            story.noteStamp = StampIn(block);
            story.proposedPath = block.Text();
            if (block.IsGood()) story.state = JournalStory::State::Whole;
            return block.IsGood();
        case ink::kPageBlock:
            if (story.page == nullptr) story.page = std::make_unique<ink::InkPage>();
            return ink::Replay(kind, content, *story.page);
        case ink::kStepBlock:
            return story.page != nullptr && ink::Replay(kind, content, *story.page);
        case kSavingBlock:
            story.savingPath = block.Text();
            if (!block.IsGood()) return false;
            story.savingHeight = static_cast<int32_t>(block.Number());  // not told by earlier releases
            return true;
        case kMemoBlock:
            story.memoPath = block.Text();
            story.memoStamp = StampIn(block);
            story.memo = block.Text();
            story.hasMemo = block.IsGood();
            return story.hasMemo;
        case kMemoClosedBlock:
            story.hasMemo = false;
            return true;
        case kEndBlock:
            story.state = JournalStory::State::Empty;
            return false;
        default:
            return false;
    }
}

}  // namespace

bool ReadJournal(ink::ByteSource& source, JournalStory& story) {
    try {
        uint32_t before = 0;
        uint32_t kind = 0;
        ink::BlockBytes content;
        for (; ink::NextBlock(source, kind, content); before = kind) {
            const bool isBeginning = kind == kHeadBlock || (kind == kOwnerBlock && before == kHeadBlock);
            if (!isBeginning && story.state != JournalStory::State::Whole) break;
            if (!Follow(kind, content, story)) break;
        }
        // A memo of a new note belongs to its page.
        if (story.hasMemo && story.memoPath.empty() && story.page != nullptr) {
            story.page->memo = story.memo;
            story.hasMemo = false;
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

std::vector<std::wstring> JournalFiles() {
    std::vector<platform::FolderEntry> entries;
    const std::wstring folder = TemporaryFolder();
    platform::ListFolder(WithoutTrailingBackslashes(folder), std::wstring(L"*") + kJournalExtension, entries);
    std::vector<std::wstring> paths;
    for (const platform::FolderEntry& entry : entries) {
        if (!entry.isFolder) paths.push_back(folder + entry.name);
    }
    return paths;
}

}  // namespace store
