// Every file operation with each of its file calls failing in turn: what the user is told and what is left.
#include "app/store/NoteFiles.h"
#include "app/store/StorePaths.h"
#include "manager/StoreOperations.h"
#include "tests/manager/ManagerRig.h"

namespace {

using platform::FileError;
using platform::MessageAnswer;
using platform::host::FileCall;
using testing_support::kRoot;

const std::wstring kWork = kRoot + (L"Work\\");
const std::wstring kHome = kRoot + (L"Home\\");
const std::wstring kNote = kWork + L"a.ikw";

class Faults : public testing_support::ManagerTest {
  protected:
    // One line for each file call that the operation makes, when that call fails; the last one is for none.
    std::vector<std::wstring> Outcomes(const std::function<void()>& operation) {
        std::vector<std::wstring> outcomes;
        bool hasFailed = true;
        for (int nth = 0; hasFailed; ++nth) {
            Prepare();
            hasFailed = false;
            device.files.fault = [&hasFailed, nth, seen = 0](FileCall, const std::wstring&) mutable {
                hasFailed = hasFailed || seen == nth;
                return seen++ == nth ? FileError::Other : FileError::None;
            };
            operation();
            device.files.fault = nullptr;
            outcomes.push_back(Store() + Failures());
        }
        return outcomes;
    }

  private:
    void TearDown() override {}  // boxes are part of the outcomes
    std::wstring Failures() {
        std::wstring text;
        for (const auto& message : Desk().messages) {
            if (message.icon != platform::MessageIcon::Error) continue;
            EXPECT_EQ(message.caption, L" Error");
            text += L"| " + message.text;
        }
        return text;
    }
    void Prepare() {
        device.files.Nodes().clear();
        device.notifications.clear();
        Desk().messages.clear();
        Desk().answers.assign(4, MessageAnswer::Yes);
        PutWork();
        device.files.Put(kHome + L"a.txt", "of another note");
        device.files.PutFolder(kRoot + L"Reminders");
    }
};

TEST_F(Faults, OfEveryCallOfEveryOperation) {
    const std::wstring whole = L"HOME\\A.TXT WORK\\A.IKW WORK\\A.TXT | Work\\a.ikw";
    const std::wstring copied = L"HOME\\A.IKW " + whole;
    const std::wstring renaming =
        L"| Renaming failed! Please make sure the file/folder is not currently in use.\n\nNOTE. A "
        L"file/folder "
        L"name cannot contain any of the following characters:\n\\ / : * ? \" < > |";
    const auto copying = [](const wchar_t* below) {
        return L"| Copying '" + (kRoot + (below)) + L"' failed! Operation aborted!";
    };
    const std::wstring deleting = L"| Deleting 'Work' folder failed.";
    struct Case {
        const char* what;
        std::function<void()> operation;
        std::vector<std::wstring> outcomes;
    };
    const Case cases[] = {
        {"moving a note",
         [] {
             std::wstring to = kHome + L"a.ikw";
             manager::MoveNote(nullptr, kNote, to);
         },
         {whole + L"| Moving 'a.ikw' failed!",
          L"HOME\\A.IKW HOME\\A.TXT WORK\\A.TXT | Home\\a.ikw| Moving 'a.txt' failed!",
          L"HOME\\A.IKW WORK\\A.TXT | Home\\a.ikw| Moving 'a.txt' failed!",
          L"HOME\\A.IKW HOME\\A.TXT | Home\\a.ikw"}},
        {"renaming a note",
         [] {
             if (!store::MoveNoteFiles(kNote, kWork + L"b.ikw", store::MemoInTheWay::Keep).isMoved)
                 manager::ShowRenameFailure(nullptr);
         },
         {whole + renaming, L"HOME\\A.TXT WORK\\A.TXT WORK\\B.IKW | Work\\b.ikw",
          L"HOME\\A.TXT WORK\\B.IKW WORK\\B.TXT | Work\\b.ikw"}},
        {"renaming a folder",
         [] {
             if (!store::MoveNoteFolder(kRoot + (L"Work"), kRoot + (L"Attic")))
                 manager::ShowRenameFailure(nullptr);
         },
         {whole + renaming, L"ATTIC\\A.IKW ATTIC\\A.TXT HOME\\A.TXT | Work\\a.ikw",
          L"ATTIC\\A.IKW ATTIC\\A.TXT HOME\\A.TXT | Attic\\a.ikw"}},
        {"moving a folder",
         [] { manager::MoveFolder(nullptr, kRoot + (L"Work"), kHome + L"Work", kRoot); },
         {whole + L"| Moving from '" + kRoot + L"Work' to '" + kHome +
              L"Work' failed!\n\nThe source folder may be in use or the destination folder already exists.",
          L"HOME\\A.TXT HOME\\WORK\\A.IKW HOME\\WORK\\A.TXT | Work\\a.ikw",
          L"HOME\\A.TXT HOME\\WORK\\A.IKW HOME\\WORK\\A.TXT | Home\\Work\\a.ikw"}},
        {"deleting a note",
         [] { manager::DeleteNote(nullptr, kNote); },
         {whole + L"| Deleting 'a.ikw' failed.", L"HOME\\A.TXT WORK\\A.TXT ", L"HOME\\A.TXT "}},
        {"deleting a folder",
         [] { manager::DeleteFolder(nullptr, kWork, L"Work"); },
         {whole + deleting, whole + deleting, L"HOME\\A.TXT WORK\\A.TXT " + deleting,
          L"HOME\\A.TXT " + deleting, L"HOME\\A.TXT "}},
        {"copying a folder",
         [] { manager::CopyFolderTree(nullptr, kWork, kHome); },
         {whole + copying(L"Work\\"), whole + copying(L"Work\\a.ikw"), whole + copying(L"Work\\a.ikw"),
          copied + copying(L"Work\\a.ikw"), copied + copying(L"Work\\a.txt"),
          copied + copying(L"Work\\a.txt"), copied + copying(L"Work\\a.txt"), copied}},
        {"making a folder", [] { manager::CreateFolder(kRoot); }, {whole, whole}},
    };
    for (const Case& c : cases)
        EXPECT_THAT(Outcomes(c.operation), testing::ElementsAreArray(c.outcomes)) << c.what;
}

}  // namespace
