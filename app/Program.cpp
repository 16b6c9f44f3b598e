#include <vector>

#include "app/CommandLine.h"
#include "app/OtherCopies.h"
#include "app/Recovery.h"
#include "app/TodayScreen.h"
#include "app/store/NoteIntent.h"
#include "app/store/PenSettings.h"
#include "app/store/StorePaths.h"
#include "editor/InkCanvas.h"
#include "manager/ManagerWindow.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/ProgramEntry.h"
#include "platform/TextEncoding.h"

namespace app {

namespace {

void DropMissingTarget(StartRequest& request) {
    if (request.manageMode || !store::NamesFile(request.target)) return;
    if (platform::FindEntry(request.target) != platform::EntryKind::Missing) return;
    platform::ShowMessage(nullptr, request.target + L"\n\nFile Not Found!",
                          request.alarmMode ? L" Alarm Error :: Inkwright" : L" Error :: Inkwright",
                          platform::MessageButtons::Ok, platform::MessageIcon::Error);
    request.target.clear();
}

// What is written for a folder whose storage is away could not be saved. The manager tells of the store's
// own.
void DropTargetOutOfReach(StartRequest& request) {
    if (request.manageMode || !store::EndsInBackslash(request.target)) return;
    const std::wstring folder = store::WithoutTrailingBackslashes(request.target);
    if (platform::FindEntry(folder) != platform::EntryKind::Missing || platform::IsGone(folder)) return;
    const std::wstring root = store::RootPrefix();
    if (!platform::EqualNoCase(request.target.substr(0, root.size()), root)) {
        platform::ShowMessage(nullptr, L"Reading '" + folder + L"' failed!", L" Error",
                              platform::MessageButtons::Ok, platform::MessageIcon::Error);
    }
    request.target.clear();
}

// Pictures made for e-mail stay until the next start: the mail program may still be reading them.
void RemoveStalePictures() {
    const std::wstring folder = store::TemporaryFolder();
    std::vector<platform::FolderEntry> pictures;
    platform::ListFolder(store::WithoutTrailingBackslashes(folder), L"*.bmp", pictures);
    for (const platform::FolderEntry& picture : pictures) {
        if (!picture.isFolder) platform::EraseFile(folder + picture.name);
    }
}

int ShowManager(store::PenSettings& pen, const StartRequest& request) {
    manager::ManagerWindow window(pen, request.target);
    return window.RunModal(nullptr);
}

int ShowEditor(store::PenSettings& pen, const StartRequest& request) {
    editor::InkCanvas::Opening opening;
    opening.notePath = request.target;
    opening.titleOverride = request.caption;
    opening.alarmStamp = request.alarmTimeCode;
    opening.openedByAlarm = request.alarmMode;
    editor::InkCanvas canvas(pen, opening);
    return canvas.RunModal(nullptr);
}

}  // namespace

}  // namespace app

int platform::RunProgram(const std::wstring& commandLine) {
    app::StartRequest request = app::ParseCommandLine(commandLine);
    app::MakeRoom(request);
    store::PenSettings pen = store::LoadPenSettings();
    app::DropMissingTarget(request);
    app::DropTargetOutOfReach(request);
    app::RemoveStalePictures();
    store::FinishIntents();
    // Who is called by an alarm is not to be held up.
    if (!request.alarmMode) app::RestoreUnsavedNotes();
    const bool showsManager = request.manageMode || request.target.empty();
    const int result = showsManager ? app::ShowManager(pen, request) : app::ShowEditor(pen, request);
    store::SaveColors(pen);
    app::RefreshTodayScreen();
    return result == -1 ? 1 : 0;  // the user was told why there is no window
}
