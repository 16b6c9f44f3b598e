// What the manager's commands do.
#include "alarms/AlarmTimeDialog.h"
#include "alarms/NoteAlarm.h"
#include "app/Settings.h"
#include "app/StorePaths.h"
#include "manager/ContextMenu.h"
#include "manager/DatePickerDialog.h"
#include "manager/DayNames.h"
#include "manager/FolderPicker.h"
#include "manager/ManagerWindow.h"
#include "manager/NodeKind.h"
#include "manager/StoreOperations.h"
#include "options/COptPageDlg.h"
#include "options/TextMemoDialog.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/MessageBox.h"
#include "platform/Notifications.h"
#include "res/resource.h"
#include "search/FindDialog.h"

namespace manager {

namespace {

using platform::MessageButtons;
using platform::MessageIcon;
using platform::TreeItem;

constexpr int kMenuInset = 20;  // pixels from the screen's bottom right corner

}  // namespace

struct ManagerWindow::Command {
    int id;
    void (ManagerWindow::*handle)();
};

const ManagerWindow::Command ManagerWindow::kCommands[] = {
    {platform::kIdOk, &ManagerWindow::Close},
    {IDM_ADD_NOTE, &ManagerWindow::AddNote},
    {IDM_OPEN, &ManagerWindow::OpenNote},
    {IDM_DELETE, &ManagerWindow::Delete},
    {IDM_FIND, &ManagerWindow::Find},
    {IDM_MANAGER_TOOLS, &ManagerWindow::ShowToolsMenu},
    {IDM_CALENDAR, &ManagerWindow::ToggleCalendar},
    {IDM_PREVIOUS_MONTH, &ManagerWindow::ShowPreviousMonth},
    {IDM_CURRENT_MONTH, &ManagerWindow::ShowCurrentMonth},
    {IDM_NEXT_MONTH, &ManagerWindow::ShowNextMonth},
    {IDM_CREATE_FOLDER, &ManagerWindow::CreateNewFolder},
    {IDM_MOVE_FOLDER, &ManagerWindow::MoveSelectedFolder},
    {IDM_RENAME, &ManagerWindow::RenameSelected},
    {IDM_CHANGE_FOLDER, &ManagerWindow::MoveToFolder},
    {IDM_MOVE_TO_FOLDER, &ManagerWindow::MoveToFolder},
    {IDM_CHANGE_DATE, &ManagerWindow::MoveToDay},
    {IDM_MOVE_TO_REMINDERS, &ManagerWindow::MoveToDay},
    {IDM_TEXT_MEMO, &ManagerWindow::EditTextMemo},
    {IDM_SET_ALARM, &ManagerWindow::SetAlarm},
    {IDM_REFRESH_ALARMS, &ManagerWindow::RefreshAlarms},
    {IDM_DELETE_ALARM, &ManagerWindow::DeleteAlarm},
    {IDM_OPTIONS, &ManagerWindow::ShowOptions},
    {IDM_ABOUT, &ManagerWindow::ShowAbout},
    {IDM_OTHER_FOLDER, &ManagerWindow::ChooseOtherFolder},
};

void ManagerWindow::OnCommand(int id) {
    for (const Command& command : kCommands) {
        if (command.id == id) return (this->*command.handle)();
    }
    if (id >= IDM_COPY_TO) return CopySelectedTo(id - IDM_COPY_TO);
    if (id >= IDM_STORAGE) UseStorage(id - IDM_STORAGE);
}

void ManagerWindow::OnTreeHold(TreeItem item, platform::Point place) {
    if (item == 0) return;
    tree_.Select(item);
    platform::PopupMenu menu;
    const bool canMoveToFolder = tree_.FirstChild(folders_.NotesTop()) != 0;
    if (!MakeContextMenu(tree_.Image(item), canMoveToFolder, folders_.RootPrefix(), menu)) return;
    menuPlace_ = place;
    const int command = menu.Choose(*this, place);
    if (command != 0) PostCommand(command);
}

// Notes.

void ManagerWindow::Edit(const editor::InkCanvas::Opening& opening) {
    editor::InkCanvas canvas(pen_, opening);
    canvas.RunModal(this);
    ShowStore(canvas.NotePath());
}

void ManagerWindow::AddNote() {
    const TreeItem container = folders_.Container(tree_.Selection());
    const int kind = tree_.Image(container);
    std::wstring day = folders_.FolderName(container);
    if (IsFolderKind(kind)) {
        editor::InkCanvas::Opening opening;
        opening.notePath = folders_.FolderPath(container);
        return Edit(opening);
    }
    if (kind == kRemindersTop && !AskForDay(day)) return;
    if (kind == kRemindersTop || IsDayKind(kind)) AddReminder(day);
}

void ManagerWindow::AddReminder(const std::wstring& dayFolderName) {
    editor::InkCanvas::Opening opening;
    opening.notePath = folders_.RootPrefix() + app::kRemindersFolder + L"\\" + dayFolderName + L"\\";
    opening.titleOverride = WeekdayText(dayFolderName);
    app::EnsureFolders(opening.notePath);
    Edit(opening);
}

bool ManagerWindow::AskForDay(std::wstring& dayFolderName) {
    DatePickerDialog picker(firstDayOfWeek_);
    if (picker.RunModal(this) != platform::kIdOk) return false;
    dayFolderName = app::DateFolderName(picker.Day());
    return true;
}

void ManagerWindow::OpenNote() {
    if (folders_.SelectedNote().empty()) return;
    editor::InkCanvas::Opening opening;
    opening.notePath = folders_.SelectedNotePath();
    Edit(opening);
}

void ManagerWindow::EditTextMemo() {
    using options::TextMemoDialog;
    const TreeItem item = tree_.Selection();
    const std::wstring note = folders_.SelectedNotePath();
    if (note.empty()) return;
    TextMemoDialog(TextMemoDialog::Mode::File, app::MemoPath(note)).Edit(*this);
    folders_.ShowMemoMark(item);
    RedrawStrip();
}

void ManagerWindow::MoveToFolder() {
    const std::wstring source = folders_.SelectedNotePath();
    if (source.empty()) return;
    const std::wstring folder = FolderPicker(folders_.RootPrefix(), L"").Pick(*this, menuPlace_);
    if (folder.empty()) return;
    std::wstring destination = folder + app::NameOf(source);
    if (MoveNote(this, source, destination)) ShowStore(destination);
}

void ManagerWindow::MoveToDay() {
    const std::wstring source = folders_.SelectedNotePath();
    std::wstring day;
    if (source.empty() || !AskForDay(day)) return;
    const std::wstring folder = folders_.RootPrefix() + app::kRemindersFolder + L"\\" + day;
    app::EnsureFolders(folder);
    if (!app::IsFolder(folder)) {
        platform::ShowMessage(this, L"Creating reminder folder failed!", L" Error", MessageButtons::Ok,
                              MessageIcon::Error);
        return;
    }
    std::wstring destination = folder + L"\\" + app::NameOf(source);
    if (MoveNote(this, source, destination)) ShowStore(destination);
}

// Deleting.

void ManagerWindow::Delete() {
    const TreeItem item = tree_.Selection();
    const int kind = tree_.Image(item);
    if (kind == kAlarm) return DeleteAlarm();
    if (kind == kOpenFolder || kind == kOpenDay) return DeleteSelectedFolder(item);
    if (!IsNoteKind(kind) || !DeleteNote(this, folders_.SelectedNotePath())) return;
    const TreeItem parent = tree_.Parent(item);
    tree_.Remove(item);
    AfterNoteDeleted(parent);
}

void ManagerWindow::AfterNoteDeleted(TreeItem parent) {
    const bool isEmptyDay = IsDayKind(tree_.Image(parent)) && folders_.CountNotes(parent) == 0;
    if (!isEmptyDay) return folders_.ShowCount(parent);
    platform::DropFolder(app::WithoutTrailingBackslashes(folders_.FolderPath(parent)));
    tree_.Remove(parent);
}

void ManagerWindow::DeleteSelectedFolder(TreeItem item) {
    const std::wstring name = folders_.FolderName(item);
    const std::wstring shown = IsDayKind(tree_.Image(item)) ? LongDayText(name) : name;
    const FolderDeletion result = DeleteFolder(this, folders_.FolderPath(item), shown);
    if (result == FolderDeletion::Done) tree_.Remove(item);
    if (result == FolderDeletion::Failed) folders_.Fill(item, L"");
}

// Folders.

void ManagerWindow::CreateNewFolder() {
    const TreeItem selected = tree_.Selection();
    const TreeItem parent = selected == 0 ? folders_.NotesTop() : folders_.Container(selected);
    const int kind = tree_.Image(parent);
    if (kind != kNotesTop && !IsFolderKind(kind)) return;
    const std::wstring name = CreateFolder(folders_.FolderPath(parent));
    if (name.empty()) return;
    const TreeItem item = folders_.InsertFolder(parent, kFolder, name);
    folders_.Sort(parent);
    tree_.Expand(parent);
    tree_.Select(item);
    tree_.EditLabel(item);
}

void ManagerWindow::RenameSelected() { tree_.EditLabel(tree_.Selection()); }

bool ManagerWindow::OnTreeEditBegins(TreeItem item, std::wstring& text) {
    const int kind = tree_.Image(item);
    text = kind == kOpenFolder ? folders_.FolderName(item) : tree_.Text(item);
    return kind == kOpenFolder || IsNoteKind(kind);
}

void ManagerWindow::OnTreeEditEnds(TreeItem item, const std::wstring& text) {
    const int kind = tree_.Image(item);
    if (kind != kOpenFolder && !IsNoteKind(kind)) return;
    const std::wstring name = kind == kOpenFolder ? folders_.FolderName(item) : tree_.Text(item);
    if (text == name) return;
    if (text.empty() || text.find(L'\\') != std::wstring::npos) return ShowRenameFailure(this);
    RenameItem(item, text, kind);
}

void ManagerWindow::RenameItem(TreeItem item, const std::wstring& name, int kind) {
    const bool isTopFolder = kind == kOpenFolder && tree_.Parent(item) == folders_.NotesTop();
    if (isTopFolder && RefuseReservedName(this, name)) return;
    const std::wstring old = app::WithoutTrailingBackslashes(folders_.FolderPath(item));
    const std::wstring renamed = app::FolderOf(old) + name;
    const std::wstring extension = kind == kOpenFolder ? L"" : app::kNoteExtension;
    const bool isDone =
        kind == kOpenFolder ? RenameFolder(old, renamed) : RenameNote(old + extension, renamed + extension);
    if (!isDone) return ShowRenameFailure(this);
    if (kind == kOpenFolder) {
        folders_.RenameFolder(item, name);
    } else {
        folders_.RenameNote(item, name);
    }
    RedrawStrip();
}

void ManagerWindow::MoveSelectedFolder() {
    const TreeItem item = tree_.Selection();
    if (!IsFolderKind(tree_.Image(item))) return;
    const std::wstring source = app::WithoutTrailingBackslashes(folders_.FolderPath(item));
    const std::wstring folder = FolderPicker(folders_.RootPrefix(), source).Pick(*this, menuPlace_);
    if (folder.empty()) return;
    const std::wstring destination = folder + app::NameOf(source);
    if (MoveFolder(this, source, destination, folders_.RootPrefix())) ShowStore(destination + L"\\");
}

void ManagerWindow::CopySelectedTo(int index) {
    const std::vector<std::wstring> targets = CopyTargets();
    const TreeItem item = tree_.Selection();
    const bool isFolder = IsFolderKind(tree_.Image(item)) || IsDayKind(tree_.Image(item));
    if (index >= static_cast<int>(targets.size()) || !isFolder) return;
    const std::wstring destination = targets[static_cast<size_t>(index)] + L"\\" + app::kProductFolder +
                                     L"\\" + folders_.RelativePath(item);
    CopyResult result = CopyResult::Failed;
    {
        const platform::WaitCursor wait;
        app::EnsureFolders(destination);
        result = CopyFolderTree(this, folders_.FolderPath(item), destination);
    }
    if (result != CopyResult::Done) return;
    platform::ShowMessage(this, L"Done!", L" File Copy", MessageButtons::Ok, MessageIcon::Information);
}

// Alarms.

void ManagerWindow::SetAlarm() {
    const std::wstring note = folders_.SelectedNotePath();
    alarms::AlarmTimeDialog dialog(menuPlace_);
    if (note.empty() || dialog.RunModal(this) != platform::kIdOk) return;
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
    if (tree_.Image(item) != kAlarm) return;
    platform::ClearNotification(static_cast<platform::NotificationHandle>(tree_.Data(item)));
    tree_.Remove(item);
}

// What is found is shown in the tree, so there is nothing to find while the calendar hides it.
void ManagerWindow::Find() {
    if (calendarMode_) return;
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
    menu.Add(IDM_OPTIONS, L"Options...");
    menu.AddSubmenu(L"Storage", storage);
    menu.AddSeparator();
    menu.Add(IDM_ABOUT, L"About Inkwright");
    const platform::ScreenSize screen = platform::HandheldScreen();
    OnCommand(menu.Choose(*this, {screen.width - kMenuInset, screen.height - kMenuInset}));
}

void ManagerWindow::ShowOptions() {
    if (!options::COptPageDlg().RunModal(*this)) return;
    app::LoadPen(pen_);
    ReadFirstDayOfWeek();
    RedrawStrip();
    if (calendarMode_) ShowMonth(month_.Grid().Year(), month_.Grid().Month());
}

void ManagerWindow::ShowAbout() {
    platform::ShowMessage(this, L"Inkwright 1.0\nA notebook for handwriting.\n\nLarkspur Works",
                          L" About Inkwright", MessageButtons::Ok, MessageIcon::Information);
}

void ManagerWindow::UseStorage(int index) {
    const std::vector<std::wstring> cards = platform::StorageCards();
    if (index > static_cast<int>(cards.size())) return;
    const std::wstring storage =
        index == 0 ? platform::DocumentsFolder() : L"\\" + cards[static_cast<size_t>(index - 1)];
    const std::wstring root = storage + L"\\" + app::kProductFolder;
    app::Settings().Write(app::SettingId::RootDirPath, root);
    SetRootFolder(root);
}

void ManagerWindow::ChooseOtherFolder() {
    std::wstring folder;
    const std::wstring start = app::WithoutTrailingBackslashes(folders_.RootPrefix());
    if (!platform::ChooseFolder(this, L"Choose the folder that holds your notes.", start, folder)) return;
    folder = app::WithoutTrailingBackslashes(folder);
    app::Settings().Write(app::SettingId::RootDirPath, folder);
    SetRootFolder(folder);
}

}  // namespace manager
