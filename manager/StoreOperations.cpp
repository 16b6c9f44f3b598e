#include "manager/StoreOperations.h"

#include <vector>

#include "alarms/AlarmDatabase.h"
#include "alarms/NoteAlarm.h"
#include "app/StorePaths.h"
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

void MoveMemo(platform::Window* owner, const std::wstring& source, const std::wstring& destination) {
    const std::wstring from = app::MemoPath(source);
    const std::wstring to = app::MemoPath(destination);
    if (!app::IsFile(from)) return;
    if (app::IsFile(to)) platform::EraseFile(to);
    if (!platform::MoveEntry(from, to)) ShowError(owner, L"Moving '" + app::NameOf(from) + L"' failed!");
}

// Alarm texts of all notes in a folder and below, as they were under its old name and as they are now.
void CollectAlarmTexts(const std::wstring& oldFolder, const std::wstring& newFolder,
                       std::vector<std::wstring>& oldTexts, std::vector<std::wstring>& newTexts) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(newFolder, L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring oldPath = oldFolder + L"\\" + entry.name;
        const std::wstring newPath = newFolder + L"\\" + entry.name;
        if (entry.isFolder) {
            CollectAlarmTexts(oldPath, newPath, oldTexts, newTexts);
        } else if (app::EndsWithNoCase(entry.name, app::kNoteExtension)) {
            oldTexts.push_back(platform::LowerCase(alarms::AlarmArguments(oldPath)));
            newTexts.push_back(alarms::AlarmArguments(newPath));
        }
    }
}

void MoveFolderAlarms(const std::wstring& oldFolder, const std::wstring& newFolder) {
    const platform::WaitCursor wait;
    std::vector<std::wstring> oldTexts;
    std::vector<std::wstring> newTexts;
    CollectAlarmTexts(oldFolder, newFolder, oldTexts, newTexts);
    if (!oldTexts.empty()) alarms::MoveAlarms(oldTexts, newTexts);
}

bool DeleteFolderTree(const std::wstring& folder) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(app::WithoutTrailingBackslashes(folder), L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring path = folder + entry.name;
        const bool gone = entry.isFolder ? DeleteFolderTree(path + L"\\") : platform::EraseFile(path);
        if (!gone) return false;
    }
    return platform::DropFolder(app::WithoutTrailingBackslashes(folder));
}

void ShowCopyFailure(platform::Window* owner, const std::wstring& source) {
    ShowError(owner, L"Copying '" + source + L"' failed! Operation aborted!");
}

CopyResult CopyFile(platform::Window* owner, const std::wstring& source, const std::wstring& destination) {
    if (app::IsFile(destination)) {
        const MessageAnswer answer = platform::ShowMessage(
            owner, L"'" + destination + L"' will be overwritten. Overwrite?", L" Confirm File Overwrite",
            MessageButtons::YesNoCancel, MessageIcon::Question);
        if (answer == MessageAnswer::No) return CopyResult::Done;
        if (answer != MessageAnswer::Yes) return CopyResult::Cancelled;
    }
    if (platform::CopyFileTo(source, destination)) return CopyResult::Done;
    ShowCopyFailure(owner, source);
    return CopyResult::Failed;
}

}  // namespace

bool MoveNote(platform::Window* owner, const std::wstring& source, std::wstring& destination) {
    if (destination.empty() || platform::EqualNoCase(source, destination)) return false;
    if (app::IsFile(destination)) {
        const MessageAnswer answer = platform::ShowMessage(
            owner, L"Destination folder already contains a file with the same name. Overwrite?",
            L" Confirm Overwrite", MessageButtons::YesNoCancel, MessageIcon::Question, DefaultButton::Second);
        if (answer == MessageAnswer::Yes) {
            platform::EraseFile(destination);
        } else if (answer == MessageAnswer::No) {
            destination = app::FreeNotePath(destination);
        } else {
            return false;
        }
    }
    if (!platform::MoveEntry(source, destination)) {
        ShowError(owner, L"Moving '" + app::NameOf(source) + L"' failed!");
        return false;
    }
    alarms::MoveNoteAlarms(source, destination);
    MoveMemo(owner, source, destination);
    return true;
}

bool RenameNote(const std::wstring& oldPath, const std::wstring& newPath) {
    if (!platform::MoveEntry(oldPath, newPath)) return false;
    alarms::MoveNoteAlarms(oldPath, newPath);
    platform::MoveEntry(app::MemoPath(oldPath), app::MemoPath(newPath));
    return true;
}

bool RenameFolder(const std::wstring& oldFolder, const std::wstring& newFolder) {
    if (!platform::MoveEntry(oldFolder, newFolder)) return false;
    MoveFolderAlarms(oldFolder, newFolder);
    return true;
}

bool DeleteNote(platform::Window* owner, const std::wstring& path) {
    const std::wstring name = app::NameOf(path);
    const MessageAnswer answer =
        platform::ShowMessage(owner, L"'" + name + L"' will be permanently deleted. Continue?",
                              L" Confirm File Delete", MessageButtons::YesNo, MessageIcon::Question);
    if (answer != MessageAnswer::Yes) return false;
    if (!platform::EraseFile(path)) {
        ShowError(owner, L"Deleting '" + name + L"' failed.");
        return false;
    }
    alarms::ClearNoteAlarms(path);
    platform::EraseFile(app::MemoPath(path));
    return true;
}

FolderDeletion DeleteFolder(platform::Window* owner, const std::wstring& folder,
                            const std::wstring& shownName) {
    const MessageAnswer answer = platform::ShowMessage(
        owner, L"'" + shownName + L"' folder and all its contents will be permanently deleted! Continue?",
        L" Confirm Folder Delete", MessageButtons::YesNo, MessageIcon::Question);
    if (answer != MessageAnswer::Yes) return FolderDeletion::NotWanted;
    bool isGone = false;
    {
        const platform::WaitCursor wait;
        isGone = DeleteFolderTree(folder);
        alarms::RemoveOrphanAlarms();
    }
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
    std::vector<platform::FolderEntry> entries;
    if (!platform::ListFolder(app::WithoutTrailingBackslashes(source), L"*.*", entries)) {
        ShowCopyFailure(owner, source);
        return CopyResult::Failed;
    }
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring from = source + entry.name;
        const std::wstring to = destination + entry.name;
        CopyResult result = CopyResult::Done;
        if (entry.isFolder) {
            platform::MakeFolder(to);
            result = CopyFolderTree(owner, from + L"\\", to + L"\\");
        } else {
            result = CopyFile(owner, from, to);
        }
        if (result != CopyResult::Done) return result;
    }
    return CopyResult::Done;
}

bool MoveFolder(platform::Window* owner, const std::wstring& source, const std::wstring& destination,
                const std::wstring& rootPrefix) {
    if (platform::EqualNoCase(source, destination)) return false;
    const bool isReserved = platform::EqualNoCase(app::FolderOf(destination), rootPrefix) &&
                            app::IsReservedName(app::NameOf(destination));
    if (!isReserved && platform::MoveEntry(source, destination)) {
        MoveFolderAlarms(source, destination);
        return true;
    }
    ShowError(owner,
              L"Moving from '" + source + L"' to '" + destination +
                  L"' failed!\n\nThe source folder may be in use or the destination folder already exists.");
    return false;
}

bool RefuseReservedName(platform::Window* owner, const std::wstring& name) {
    if (!app::IsReservedName(name)) return false;
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
