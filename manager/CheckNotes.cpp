#include "manager/CheckNotes.h"

#include <utility>
#include <vector>

#include "app/store/FileStreams.h"
#include "app/store/SafeFile.h"
#include "app/store/StoreListing.h"
#include "app/store/StorePaths.h"
#include "ink/NoteSalvage.h"
#include "platform/Dialog.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/TextEncoding.h"
#include "res/resource.h"

namespace manager {

namespace {

constexpr int kTimer = 1;
constexpr uint32_t kTimerMilliseconds = 10;
constexpr int kStepsAtATime = 5;  // few enough for Cancel to answer at once, from a slow card too

bool IsWhole(const std::wstring& path) {
    platform::File file = platform::File::OpenForReading(path, platform::File::Share::Read);
    store::FileSource source(file);
    ink::NoteFileHeader header;
    if (!file.IsOpen() || !ink::ReadNoteHeader(source, header)) return false;
    ink::InkPage page;
    page.bandHeight = header.bandHeight;
    return ink::ReadNoteBody(source, header, page) == ink::LoadResult::Loaded;
}

// The strokes that are whole, as a note file; empty when there are none.
std::vector<uint8_t> SalvagedNote(const std::wstring& path) {
    platform::File file = platform::File::OpenForReading(path, platform::File::Share::Read);
    store::FileSource source(file);
    ink::InkPage page;
    ink::MemorySink sink;
    const bool isSalvaged = file.IsOpen() && ink::SalvageNote(source, page) && ink::WriteNote(sink, page);
    return isSalvaged ? sink.Bytes() : std::vector<uint8_t>();
}

// Goes through the store in small steps: one folder is listed, or one note read, at a time.
class StoreCheck {
  public:
    explicit StoreCheck(const std::wstring& rootPrefix)
        : rootPrefix_(rootPrefix), folder_(rootPrefix), folders_{rootPrefix} {}

    bool IsDone() const { return folders_.empty() && notes_.empty(); }
    void Step() { notes_.empty() ? ListNextFolder() : ReadNextNote(); }

    std::wstring Progress() const { return Count() + L"\n" + Shown(folder_); }
    std::wstring Count() const { return L"Notes checked: " + std::to_wstring(count_); }
    // What is wrong, as lines for the user.
    const std::vector<std::wstring>& Findings() const { return findings_; }
    bool HasMadeNotes() const { return hasMadeNotes_; }

  private:
    void ListNextFolder();
    void ReadNextNote();
    void Salvage(const std::wstring& path);
    std::wstring Shown(const std::wstring& path) const { return path.substr(rootPrefix_.size()); }
    std::wstring ShownNote(const std::wstring& path) const {
        return Shown(store::FolderOf(path)) + store::NoteName(path);
    }

    const std::wstring rootPrefix_;
    std::wstring folder_;                // whose notes are read
    std::vector<std::wstring> folders_;  // that are still to be listed, the next one last
    std::vector<std::wstring> notes_;    // of the folder that are still to be read, the next one last
    size_t count_ = 0;
    std::vector<std::wstring> findings_;
    bool hasMadeNotes_ = false;
};

void StoreCheck::ListNextFolder() {
    folder_ = std::move(folders_.back());
    folders_.pop_back();
    // A listing can't tell a folder that can't be read from an empty one.
    std::vector<platform::FolderEntry> entries;
    if (!platform::ListFolder(store::WithoutTrailingBackslashes(folder_), L"*.ikw", entries))
        findings_.push_back(L"Reading '" + folder_ + L"' failed!");
    const store::StoreListing listing = store::ListStoreFolder(folder_);
    for (auto note = listing.notes.rbegin(); note != listing.notes.rend(); ++note)
        notes_.push_back(folder_ + note->name + store::kNoteExtension);
    for (auto name = listing.folders.rbegin(); name != listing.folders.rend(); ++name) {
        const bool isTemporary = folder_ == rootPrefix_ && store::IsReservedName(*name) &&
                                 !platform::EqualNoCase(*name, store::kRemindersFolder);
        if (!isTemporary) folders_.push_back(folder_ + *name + L"\\");
    }
}

// Named before anything is tried with it, so that it is told of even where memory gives out.
void StoreCheck::ReadNextNote() {
    const std::wstring path = std::move(notes_.back());
    notes_.pop_back();
    ++count_;
    if (IsWhole(path)) return;
    findings_.push_back(ShownNote(path));
    Salvage(path);
}

void StoreCheck::Salvage(const std::wstring& path) {
    const std::vector<uint8_t> bytes = SalvagedNote(path);
    if (bytes.empty()) return;
    const std::wstring wanted = store::NotePathWith(path, L" (salvaged)");
    bool isThere = false;
    std::wstring place = store::PlaceFor(wanted, bytes, isThere);
    if (!isThere) {
        store::SafeFile file = store::SafeFile::At(place);
        if (!file.IsOpen() || !file.Write(bytes.data(), bytes.size()) || !file.CommitToFreePlace()) {
            findings_.push_back(L"    Writing '" + ShownNote(place) + L"' failed!");
            return;
        }
        place = file.Path();
        hasMadeNotes_ = true;
    }
    findings_.push_back(L"    whole strokes: " + ShownNote(place));
    const std::wstring memo = store::MemoPath(path);
    const std::wstring copy = store::MemoPath(place);
    if (store::IsFile(memo) && !store::IsFile(copy) && !store::CopySafely(memo, copy))
        findings_.push_back(L"    Writing '" + Shown(copy) + L"' failed!");
}

// How the dialog ends.
constexpr int kTell = platform::kIdOk;       // the user is to hear of what was found, after Cancel as well
constexpr int kQuiet = platform::kIdCancel;  // another copy wants the place, or the session ends

class CheckDialog : public platform::Dialog {
  public:
    explicit CheckDialog(StoreCheck& check) : Dialog(IDD_CHECK_NOTES), check_(check) {}

    bool OnCreate() override {
        SetItemText(IDC_PROGRESS, check_.Progress());
        if (StartTimer(kTimer, kTimerMilliseconds)) return true;
        platform::ShowOutOfMemory(this);
        EndModal(kQuiet);
        return false;
    }
    void OnTimer(int) override {
        for (int i = 0; i < kStepsAtATime && !check_.IsDone(); ++i) check_.Step();
        SetItemText(IDC_PROGRESS, check_.Progress());
        if (check_.IsDone()) EndModal(kTell);
    }
    void OnCommand(int id) override {
        if (id == platform::kIdCancel) EndModal(kTell);
        if (id == platform::kIdOk) OnTakeOver();
    }
    void OnTakeOver() override { EndModal(kQuiet); }

  private:
    StoreCheck& check_;
};

}  // namespace

bool CheckNotes(platform::Window& owner, const std::wstring& rootPrefix) {
    using platform::MessageIcon;
    StoreCheck check(rootPrefix);
    const bool isTold = CheckDialog(check).RunModal(&owner) == kTell;
    const bool isFine = check.Findings().empty();
    if (isTold && (!isFine || check.IsDone())) {
        const std::wstring text =
            isFine ? L"All notes can be read."
                   : L"These notes can't be read whole:" + platform::MessageLines(check.Findings()) + L"\n";
        platform::ShowMessage(&owner, text + L"\n" + check.Count(), L" Check Notes",
                              platform::MessageButtons::Ok,
                              isFine ? MessageIcon::Information : MessageIcon::Error);
    }
    return check.HasMadeNotes();
}

}  // namespace manager
