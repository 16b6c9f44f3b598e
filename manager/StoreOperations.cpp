#include "manager/StoreOperations.h"

#include <vector>

#include "app/store/NoteFiles.h"
#include "app/store/NoteIntent.h"
#include "app/store/SafeFile.h"
#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/TextEncoding.h"

namespace manager {

namespace {

using platform::DefaultButton;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

constexpr wchar_t kErrorCaption[] = L" Error";

void ShowError(platform::Window* owner, const std::wstring& text) {
    platform::ShowMessage(owner, text, kErrorCaption, MessageButtons::Ok, MessageIcon::Error);
}

void ShowCopyFailure(platform::Window* owner, const std::wstring& source) {
    ShowError(owner, L"Copying '" + source + L"' failed! Operation aborted!");
}

CopyResult CopyFile(platform::Window* owner, const std::wstring& source, const std::wstring& destination) {
    if (store::IsFile(destination)) {
        const MessageAnswer answer = platform::ShowMessage(
            owner, L"'" + destination + L"' will be overwritten. Overwrite?", L" Confirm File Overwrite",
            MessageButtons::YesNoCancel, MessageIcon::Question);
        if (answer == MessageAnswer::No) return CopyResult::Done;
        if (answer != MessageAnswer::Yes) return CopyResult::Cancelled;
    }
    if (store::CopySafely(source, destination)) return CopyResult::Done;
    ShowCopyFailure(owner, source);
    return CopyResult::Failed;
}

CopyResult CopyTree(platform::Window* owner, const std::wstring& source, const std::wstring& destination) {
    std::vector<platform::FolderEntry> entries;
    if (!platform::ListFolder(store::WithoutTrailingBackslashes(source), L"*.*", entries)) {
        ShowCopyFailure(owner, source);
        return CopyResult::Failed;
    }
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring from = source + entry.name;
        const std::wstring to = destination + entry.name;
        CopyResult result = CopyResult::Done;
        if (entry.isFolder) {
            platform::MakeFolder(to);
            result = CopyTree(owner, from + L"\\", to + L"\\");
        } else {
            result = CopyFile(owner, from, to);
        }
        if (result != CopyResult::Done) return result;
    }
    return CopyResult::Done;
}

}  // namespace

bool MoveNote(platform::Window* owner, const std::wstring& source, std::wstring& destination) {
    if (destination.empty() || platform::EqualNoCase(source, destination)) return false;
    if (store::IsFile(destination)) {
        const MessageAnswer answer = platform::ShowMessage(
            owner, L"Destination folder already contains a file with the same name. Overwrite?",
            L" Confirm Overwrite", MessageButtons::YesNoCancel, MessageIcon::Question, DefaultButton::Second);
        if (answer == MessageAnswer::Cancel) return false;
        if (answer == MessageAnswer::No) destination = store::FreeNotePath(destination);
    }
    const store::NoteMove move = store::MoveNoteFiles(source, destination, store::MemoInTheWay::Replace);
    const std::wstring stayed = !move.isMoved ? source : move.memoStayed ? store::MemoPath(source) : L"";
    if (!stayed.empty()) ShowError(owner, L"Moving '" + store::NameOf(stayed) + L"' failed!");
    return move.isMoved;
}

bool DeleteNote(platform::Window* owner, const std::wstring& path) {
    const std::wstring name = store::NameOf(path);
    const MessageAnswer answer =
        platform::ShowMessage(owner, L"'" + name + L"' will be permanently deleted. Continue?",
                              L" Confirm File Delete", MessageButtons::YesNo, MessageIcon::Question);
    if (answer != MessageAnswer::Yes) return false;
    if (store::DeleteNoteFiles(path)) return true;
    ShowError(owner, L"Deleting '" + name + L"' failed.");
    return false;
}

FolderDeletion DeleteFolder(platform::Window* owner, const std::wstring& folder,
                            const std::wstring& shownName) {
    const MessageAnswer answer = platform::ShowMessage(
        owner, L"'" + shownName + L"' folder and all its contents will be permanently deleted! Continue?",
        L" Confirm Folder Delete", MessageButtons::YesNo, MessageIcon::Question);
    if (answer != MessageAnswer::Yes) return FolderDeletion::NotWanted;
    const bool isGone = store::DeleteNoteFolder(store::WithoutTrailingBackslashes(folder));
    if (!isGone) ShowError(owner, L"Deleting '" + shownName + L"' folder failed.");
    return isGone ? FolderDeletion::Done : FolderDeletion::Failed;
}

std::wstring CreateFolder(const std::wstring& folder) {
    const std::wstring base = L"New Folder";
    std::wstring name = base;
    for (int n = 1; platform::Exists(folder + name); ++n) name = base + L" (" + std::to_wstring(n) + L")";
    return platform::MakeFolder(folder + name) ? name : std::wstring();
}

CopyResult CopyFolderTree(platform::Window* owner, const std::wstring& source,
                          const std::wstring& destination) {
    const store::NoteIntent intent(store::NoteIntent::Kind::CopyFolder, source, destination);
    return CopyTree(owner, source, destination);
}

bool MoveFolder(platform::Window* owner, const std::wstring& source, const std::wstring& destination,
                const std::wstring& rootPrefix) {
    if (platform::EqualNoCase(source, destination)) return false;
    const bool isReserved = platform::EqualNoCase(store::FolderOf(destination), rootPrefix) &&
                            store::IsReservedName(store::NameOf(destination));
    if (!isReserved && store::MoveNoteFolder(source, destination)) return true;
    ShowError(owner,
              L"Moving from '" + source + L"' to '" + destination +
                  L"' failed!\n\nThe source folder may be in use or the destination folder already exists.");
    return false;
}

bool RefuseReservedName(platform::Window* owner, const std::wstring& name) {
    if (!store::IsReservedName(name)) return false;
    ShowError(owner, L"The folder name '" + name +
                         L"' is reserved for internal use. Please enter a different name.");
    return true;
}

void ShowRenameFailure(platform::Window* owner) {
    ShowError(
        owner,
        L"Renaming failed! Please make sure the file/folder is not currently in use.\n\nNOTE. A file/folder "
        L"name cannot contain any of the following characters:\n\\ / : * ? \" < > |");
}

}  // namespace manager
