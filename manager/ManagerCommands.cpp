// What the manager's commands do.
#include "alarms/AlarmTimeDialog.h"
#include "alarms/NoteAlarm.h"
#include "app/store/NoteFiles.h"
#include "app/store/Settings.h"
#include "app/store/StorePaths.h"
#include "manager/CheckNotes.h"
#include "manager/ContextMenu.h"
#include "manager/DatePickerDialog.h"
#include "manager/FolderPicker.h"
#include "manager/ManagerWindow.h"
#include "manager/StoreOperations.h"
#include "options/memo/TextMemoDialog.h"
#include "options/sheet/COptPageDlg.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/MessageBox.h"
#include "platform/Notifications.h"
#include "platform/Shell.h"
#include "platform/TextEncoding.h"
#include "res/resource.h"
#include "res/version.h"
#include "search/FindDialog.h"

namespace manager {

namespace {

using platform::MessageButtons;
using platform::MessageIcon;
using platform::TreeItem;
using store::NodeKind;

constexpr int kMenuInset = 20;  // pixels from the screen's bottom right corner

}  // namespace

// Notes.

void ManagerWindow::Edit(const editor::InkCanvas::Opening& opening) {
    editor::InkCanvas canvas(pen_, opening);
    canvas.RunModal(this);
    const std::wstring& path = canvas.NotePath();
    const bool isNew =
        store::NamesFile(path) && store::IsFile(path) && !platform::EqualNoCase(path, opening.notePath);
    const bool isGone = store::NamesFile(opening.notePath) && !store::IsFile(opening.notePath);
    if (canvas.StoreChanged() || isNew || isGone) ReadFolderAgain(path);
    folders_.ShowMemoMark(tree_.Selection());
    RedrawStrip();
    calendar_.Refresh(SelectedDay());
}

// What the editor did to the store shows in the folder of its note; other branches stay as they are.
void ManagerWindow::ReadFolderAgain(const std::wstring& path) {
    folders_.ReadAgain(path);
    CountAgain(folders_.Container(tree_.Selection()));
}

void ManagerWindow::AddNote() {
    const TreeItem container = folders_.Container(tree_.Selection());
    const NodeKind kind = folders_.KindOf(container);
    if (IsFolderKind(kind)) {
        editor::InkCanvas::Opening opening;
        opening.notePath = folders_.FolderPath(container);
        return Edit(opening);
    }
    const std::optional<store::DayFolder> day =
        kind == NodeKind::RemindersTop ? AskForDay() : folders_.DayOf(container);
    if (day) AddReminder(*day);
}

void ManagerWindow::AddReminder(const store::DayFolder& day) {
    editor::InkCanvas::Opening opening;
    opening.notePath = folders_.PathOf(day);
    opening.titleOverride = day.TitleText();
    store::EnsureFolders(opening.notePath);
    Edit(opening);
    platform::DropFolder(store::WithoutTrailingBackslashes(opening.notePath));  // stays unless it is empty
}

std::optional<store::DayFolder> ManagerWindow::AskForDay() {
    DatePickerDialog picker(calendar_.FirstDayOfWeek());
    if (picker.RunModal(this) != platform::kIdOk) return std::nullopt;
    return store::DayFolder(picker.Day());
}

void ManagerWindow::OpenNote() {
    editor::InkCanvas::Opening opening;
    opening.notePath = folders_.SelectedNotePath();
    Edit(opening);
}

void ManagerWindow::EditTextMemo() {
    using options::TextMemoDialog;
    const TreeItem item = tree_.Selection();
    const std::wstring memo = store::MemoPath(folders_.SelectedNotePath());
    store::NoteJournal journal;
    TextMemoDialog(TextMemoDialog::Mode::File, memo, journal).Edit(*this);
    journal.MemoClosed();
    folders_.ShowMemoMark(item);
    RedrawStrip();
}

void ManagerWindow::MoveToFolder() {
    const std::wstring source = folders_.SelectedNotePath();
    const std::wstring folder = FolderPicker(folders_.RootPrefix(), L"").Pick(*this, menuPlace_);
    if (folder.empty()) return;
    std::wstring destination = folder + store::NameOf(source);
    if (MoveNote(this, source, destination)) ShowStore(destination);
}

void ManagerWindow::MoveToDay() {
    const std::wstring source = folders_.SelectedNotePath();
    const std::optional<store::DayFolder> day = AskForDay();
    if (!day) return;
    const std::wstring folder = folders_.PathOf(*day);
    store::EnsureFolders(folder);
    if (!store::IsFolder(store::WithoutTrailingBackslashes(folder))) {
        platform::ShowMessage(this, L"Creating reminder folder failed!", L" Error", MessageButtons::Ok,
                              MessageIcon::Error);
        return;
    }
    std::wstring destination = folder + store::NameOf(source);
    if (MoveNote(this, source, destination)) ShowStore(destination);
}

// Deleting.

void ManagerWindow::Delete() {
    const TreeItem item = tree_.Selection();
    const NodeKind kind = folders_.KindOf(item);
    if (kind == NodeKind::Alarm) return DeleteAlarm();
    if (kind == NodeKind::OpenFolder || kind == NodeKind::OpenDay) return DeleteSelectedFolder(item);
    if (!IsNoteKind(kind) || !DeleteNote(this, folders_.SelectedNotePath())) return;
    const TreeItem parent = tree_.Parent(item);
    tree_.Remove(item);
    CountAgain(parent);
}

// Notes of a container came or went. A day goes with its last one; a folder that is plain again is not what
// is selected any more, since the selection went on to a folder in it.
void ManagerWindow::CountAgain(TreeItem container) {
    const NodeKind kind = folders_.KindOf(container);
    if (kind != NodeKind::OpenDay && kind != NodeKind::OpenFolder) return;
    if (kind == NodeKind::OpenFolder || folders_.CountNotes(container) > 0)
        return folders_.ShowCount(container);
    platform::DropFolder(store::WithoutTrailingBackslashes(folders_.FolderPath(container)));
    tree_.Remove(container);
}

void ManagerWindow::DeleteSelectedFolder(TreeItem item) {
    const FolderDeletion result = DeleteFolder(this, folders_.FolderPath(item), folders_.ShownName(item));
    if (result == FolderDeletion::Done) tree_.Remove(item);
    if (result == FolderDeletion::Failed) folders_.Fill(item, L"");
}

// Folders.

void ManagerWindow::CreateNewFolder() {
    if (tree_.Selection() == 0) tree_.Select(folders_.NotesTop());
    const TreeItem parent = folders_.Container(tree_.Selection());
    const std::wstring name = CreateFolder(folders_.FolderPath(parent));
    if (name.empty()) return;
    const TreeItem item = folders_.InsertFolder(parent, NodeKind::Folder, name);
    folders_.Sort(parent);
    tree_.Expand(parent);
    tree_.Select(item);
    tree_.EditLabel(item);
}

void ManagerWindow::RenameSelected() { tree_.EditLabel(tree_.Selection()); }

bool ManagerWindow::OnTreeEditBegins(TreeItem item, std::wstring& text) {
    const NodeKind kind = folders_.KindOf(item);
    text = kind == NodeKind::OpenFolder ? folders_.FolderName(item) : tree_.Text(item);
    return kind == NodeKind::OpenFolder || IsNoteKind(kind);
}

void ManagerWindow::OnTreeEditEnds(TreeItem item, const std::wstring& text) {
    const NodeKind kind = folders_.KindOf(item);
    if (kind != NodeKind::OpenFolder && !IsNoteKind(kind)) return;
    const std::wstring name = kind == NodeKind::OpenFolder ? folders_.FolderName(item) : tree_.Text(item);
    if (text == name) return;
    if (text.empty() || text.find(L'\\') != std::wstring::npos) return ShowRenameFailure(this);
    RenameItem(item, text, kind);
}

void ManagerWindow::RenameItem(TreeItem item, const std::wstring& name, NodeKind kind) {
    const bool isTopFolder = kind == NodeKind::OpenFolder && tree_.Parent(item) == folders_.NotesTop();
    if (isTopFolder && RefuseReservedName(this, name)) return;
    const std::wstring old = store::WithoutTrailingBackslashes(folders_.FolderPath(item));
    const std::wstring renamed = store::FolderOf(old) + name;
    if (kind == NodeKind::OpenFolder) {
        if (!store::MoveNoteFolder(old, renamed)) return ShowRenameFailure(this);
        folders_.RenameFolder(item, name);
    } else {
        const std::wstring extension = store::kNoteExtension;
        const store::NoteMove move =
            store::MoveNoteFiles(old + extension, renamed + extension, store::MemoInTheWay::Keep);
        if (!move.isMoved) return ShowRenameFailure(this);
        folders_.RenameNote(item, name);
    }
    RedrawStrip();
}

void ManagerWindow::MoveSelectedFolder() {
    const TreeItem item = tree_.Selection();
    const std::wstring source = store::WithoutTrailingBackslashes(folders_.FolderPath(item));
    const std::wstring folder = FolderPicker(folders_.RootPrefix(), source).Pick(*this, menuPlace_);
    if (folder.empty()) return;
    const std::wstring destination = folder + store::NameOf(source);
    if (MoveFolder(this, source, destination, folders_.RootPrefix())) ShowStore(destination + L"\\");
}

void ManagerWindow::CopySelectedTo(int index) {
    const std::vector<std::wstring> targets = CopyTargets();
    const TreeItem item = tree_.Selection();
    if (index >= static_cast<int>(targets.size())) return;
    const std::wstring destination =
        store::StoreOn(targets[static_cast<size_t>(index)]) + L"\\" + folders_.RelativePath(item);
    CopyResult result = CopyResult::Failed;
    {
        const platform::WaitCursor wait;
        store::EnsureFolders(destination);
        result = CopyFolderTree(this, folders_.FolderPath(item), destination);
    }
    if (result != CopyResult::Done) return;
    platform::ShowMessage(this, L"Done!", L" File Copy", MessageButtons::Ok, MessageIcon::Information);
}

// Alarms.

void ManagerWindow::SetAlarm() {
    const std::wstring note = folders_.SelectedNotePath();
    alarms::AlarmTimeDialog dialog(menuPlace_);
    if (dialog.RunModal(this) != platform::kIdOk) return;
    if (alarms::SetNoteAlarm(note, dialog.Moment())) {
        platform::ShowMessage(this, L"Alarm is successfully set!",
                              L" " + platform::DateAndTime(dialog.Moment()), MessageButtons::Ok,
                              MessageIcon::Information);
        return;
    }
    // The caption of the failure shows the day alone.
    platform::DateTime day = dialog.Moment();
    day.hour = day.minute = day.second = 0;
    platform::ShowMessage(this, L"Setting alarm failed!", L" " + platform::DateAndTime(day),
                          MessageButtons::Ok, MessageIcon::Error);
}

void ManagerWindow::RefreshAlarms() { folders_.ListAlarms(); }

void ManagerWindow::DeleteAlarm() {
    const TreeItem item = tree_.Selection();
    platform::ClearNotification(static_cast<platform::NotificationHandle>(tree_.Data(item)));
    tree_.Remove(item);
}

void ManagerWindow::Find() {
    const auto relativePath = [this](TreeItem item, std::wstring& path) {
        path = folders_.RelativePath(item);
        return !path.empty();
    };
    search::FindDialog({folders_.RootPrefix(), tree_, folders_.NotesTop(), relativePath}).RunModal(this);
}

// The tools menu.

void ManagerWindow::ShowToolsMenu() {
    platform::PopupMenu storage;
    storage.Add(IDM_STORAGE, L"Main Memory");
    int command = IDM_STORAGE + 1;
    for (const std::wstring& card : platform::StorageCards()) storage.Add(command++, card);
    storage.AddSeparator();
    storage.Add(IDM_OTHER_FOLDER, L"Other Folder...");
    platform::PopupMenu menu;
    menu.Add(IDM_ADD_NOTE, L"New Note", IsPossible(IDM_ADD_NOTE));
    menu.Add(IDM_CREATE_FOLDER, L"New Folder", IsPossible(IDM_CREATE_FOLDER));
    menu.AddSeparator();
    menu.Add(IDM_OPTIONS, L"Options...");
    menu.AddSubmenu(L"Storage", storage);
    menu.Add(IDM_CHECK_NOTES, L"Check Notes\u2026");
    menu.AddSeparator();
    menu.Add(IDM_ABOUT, L"About Inkwright");
    const platform::ScreenSize screen = platform::HandheldScreen(*this);
    OnCommand(menu.Choose(*this, {screen.width - kMenuInset, screen.height - kMenuInset}));
}

void ManagerWindow::ShowOptions() {
    if (!options::COptPageDlg().RunModal(*this)) return;
    store::LoadPen(pen_);
    calendar_.ReadFirstDayOfWeek();
    RedrawStrip();
    calendar_.Refresh(SelectedDay());
}

// Notes that were made show at once; what is selected stays so.
void ManagerWindow::CheckAllNotes() {
    if (!CheckNotes(*this, folders_.RootPrefix())) return;
    const std::wstring note = folders_.SelectedNotePath();
    ShowStore(note.empty() ? folders_.FolderPath(tree_.Selection()) : note);
}

void ManagerWindow::ShowUserGuide() { platform::OpenUserGuide(*this); }

void ManagerWindow::ShowAbout() {
    platform::ShowMessage(this,
                          L"Inkwright " INKWRIGHT_VERSION L"\nA notebook for handwriting.\n\nLarkspur Works",
                          L" About Inkwright", MessageButtons::Ok, MessageIcon::Information);
}

void ManagerWindow::UseStorage(int index) {
    const std::vector<std::wstring> cards = platform::StorageCards();
    if (index > static_cast<int>(cards.size())) return;
    const std::wstring storage =
        index == 0 ? platform::DocumentsFolder() : L"\\" + cards[static_cast<size_t>(index - 1)];
    UseRoot(store::StoreOn(storage));
}

void ManagerWindow::ChooseOtherFolder() {
    std::wstring folder;
    const std::wstring start = store::WithoutTrailingBackslashes(folders_.RootPrefix());
    if (!platform::ChooseFolder(this, L"Choose the folder that holds your notes.", start, folder)) return;
    const std::wstring root = store::WithoutTrailingBackslashes(folder);
    // The setting has no room for longer ones, and the handheld's root stands for the default.
    if (!root.empty() && root.size() < store::InfoOf(store::SettingId::RootDirPath).capacity)
        return UseRoot(root);
    platform::ShowMessage(this, L"'" + folder + L"' cannot hold your notes. Please choose another folder.",
                          L" Error", MessageButtons::Ok, MessageIcon::Error);
}

// A place that can't be read leaves the store and the setting as they are.
void ManagerWindow::UseRoot(const std::wstring& root) {
    if (!IsReadable(root)) return;
    store::Settings().Write(store::SettingId::RootDirPath, root);
    SetRootFolder(root);
}

}  // namespace manager
