// Every file operation with each of its file calls failing in turn: what the user is told and what is left.
#include "app/store/NoteFiles.h"
#include "manager/StoreOperations.h"
#include "tests/manager/ManagerRig.h"

namespace {

using namespace testing_support;

const std::wstring kWork = kRoot + L"Work\\";
const std::wstring kHome = kRoot + L"Home\\";

// All but making folders: the documents folder is made, in vain, whenever somebody asks where it is.
const std::vector<FileCall> kCalls{FileCall::Open,       FileCall::Create, FileCall::Read,   FileCall::Write,
                                   FileCall::Flush,      FileCall::List,   FileCall::Erase,  FileCall::Move,
                                   FileCall::DropFolder, FileCall::Copy,   FileCall::Replace};

class Faults : public ManagerTest {
  protected:
    // For each file call that the operation makes, what its failure leaves and tells; the last is for none.
    Texts Outcomes(const std::function<void()>& operation) {
        Texts outcomes;
        SweepFiles(kCalls, [&](Fault&) {
            const auto fault = std::exchange(device.files.fault, nullptr);
            device.files.Nodes().clear();
            device.files.PutFolder(kRoot + L"Temp");
            device.notifications.clear();
            PutWork();
            device.files.Put(kHome + L"a.txt", "of another note");
            Desk().answers.assign(4, platform::MessageAnswer::Yes);
            device.files.fault = fault;
            operation();
            std::wstring outcome = Store();
            for (const auto& box : Desk().messages)
                outcome += box.caption == L" Error" ? L"| " + box.text : L"";
            outcomes.push_back(outcome);
            Desk().messages.clear();
        });
        return outcomes;
    }
};

TEST_F(Faults, OfEveryCallOfEveryOperation) {
    const std::wstring whole = L"HOME\\A.TXT WORK\\A.IKW WORK\\A.TXT | Work\\a.ikw";
    const std::wstring copied = L"HOME\\A.IKW " + whole;
    const auto copying = [](const wchar_t* below) {
        return L"| Copying '" + kWork + below + L"' failed! Operation aborted!";
    };
    const std::wstring deleting = L"| Deleting 'Work' folder failed.";
    const std::wstring moved = L"HOME\\A.TXT HOME\\WORK\\A.IKW HOME\\WORK\\A.TXT ";
    const struct {
        std::function<void()> operation;
        Texts outcomes;
    } kCases[] = {
        {[] {
             std::wstring to = kHome + L"a.ikw";
             manager::MoveNote(nullptr, kWork + L"a.ikw", to);
         },
         {whole + L"| Moving 'a.ikw' failed!",
          L"HOME\\A.IKW HOME\\A.TXT WORK\\A.TXT | Home\\a.ikw| Moving 'a.txt' failed!",
          L"HOME\\A.IKW WORK\\A.TXT | Home\\a.ikw| Moving 'a.txt' failed!",
          L"HOME\\A.IKW HOME\\A.TXT | Home\\a.ikw"}},
        {[] { manager::MoveFolder(nullptr, kRoot + L"Work", kHome + L"Work", kRoot); },
         {whole + L"| Moving from '" + kRoot + L"Work' to '" + kHome +
              L"Work' failed!\n\nThe source folder may be in use or the destination folder already exists.",
          moved + L"| Work\\a.ikw", moved + L"| Home\\Work\\a.ikw"}},
        {[] { manager::DeleteNote(nullptr, kWork + L"a.ikw"); },
         {whole + L"| Deleting 'a.ikw' failed.", L"HOME\\A.TXT WORK\\A.TXT ", L"HOME\\A.TXT "}},
        {[] { manager::DeleteFolder(nullptr, kWork, L"Work"); },
         {whole + deleting, whole + deleting, L"HOME\\A.TXT WORK\\A.TXT " + deleting,
          L"HOME\\A.TXT " + deleting, L"HOME\\A.TXT "}},
        {[] { manager::CopyFolderTree(nullptr, kWork, kHome); },
         {whole + copying(L""), whole + copying(L"a.ikw"), whole + copying(L"a.ikw"),
          whole + copying(L"a.ikw"), whole + copying(L"a.ikw"), copied + copying(L"a.txt"),
          copied + copying(L"a.txt"), copied + copying(L"a.txt"), copied + copying(L"a.txt"),
          copied + copying(L"a.txt"), copied}}};
    for (const auto& each : kCases) EXPECT_EQ(Outcomes(each.operation), each.outcomes);
}

}  // namespace
