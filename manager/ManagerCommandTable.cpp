// The manager's commands: how each is reached, and when.
#include "manager/ContextMenu.h"
#include "manager/ManagerWindow.h"
#include "res/resource.h"

namespace manager {

using platform::Key;

// The one rule of each command holds for the tool bar, the menus, the keys and whatever else may post it.
struct ManagerWindow::Command {
    int id = 0;
    void (ManagerWindow::*handle)() = nullptr;
    bool (*isPossible)(const Situation&) = nullptr;  // null: always
    wchar_t letter = 0;                              // with Ctrl; a small one with Shift too
    Key key = Key::Other;
};

const ManagerWindow::Command ManagerWindow::kCommands[] = {
    {platform::kIdOk, &ManagerWindow::Close, nullptr, L'W'},
    {IDM_ADD_NOTE, &ManagerWindow::AddNote, CanAddNote, L'N'},
    {IDM_OPEN, &ManagerWindow::OpenNote, OnNote},
    {IDM_DELETE, &ManagerWindow::Delete, CanDelete, 0, Key::Delete},
    {IDM_FIND, &ManagerWindow::Find, InTree, L'F'},  // what is found is shown in the tree
    {IDM_MANAGER_TOOLS, &ManagerWindow::ShowToolsMenu},
    {IDM_CALENDAR, &ManagerWindow::ToggleCalendar},
    {IDM_PREVIOUS_MONTH, &ManagerWindow::ShowPreviousMonth, InCalendar, 0, Key::PageUp},
    {IDM_CURRENT_MONTH, &ManagerWindow::ShowCurrentMonth, InOtherMonth},
    {IDM_NEXT_MONTH, &ManagerWindow::ShowNextMonth, InCalendar, 0, Key::PageDown},
    {IDM_CREATE_FOLDER, &ManagerWindow::CreateNewFolder, CanCreateFolder, L'n'},
    {IDM_MOVE_FOLDER, &ManagerWindow::MoveSelectedFolder, OnFolder},
    {IDM_RENAME, &ManagerWindow::RenameSelected, CanRename, 0, Key::F2},
    {IDM_CHANGE_FOLDER, &ManagerWindow::MoveToFolder, OnFolderNote},
    {IDM_MOVE_TO_FOLDER, &ManagerWindow::MoveToFolder, CanMoveToFolder},
    {IDM_CHANGE_DATE, &ManagerWindow::MoveToDay, OnReminder},
    {IDM_MOVE_TO_REMINDERS, &ManagerWindow::MoveToDay, OnFolderNote},
    {IDM_TEXT_MEMO, &ManagerWindow::EditTextMemo, OnNote},
    {IDM_SET_ALARM, &ManagerWindow::SetAlarm, OnNote},
    {IDM_REFRESH_ALARMS, &ManagerWindow::RefreshAlarms, OnAlarms},
    {IDM_DELETE_ALARM, &ManagerWindow::DeleteAlarm, OnAlarm},
    {IDM_OPTIONS, &ManagerWindow::ShowOptions},
    {IDM_CHECK_NOTES, &ManagerWindow::CheckAllNotes},
    {IDM_USER_GUIDE, &ManagerWindow::ShowUserGuide, nullptr, 0, Key::F1},
    {IDM_FULL_SCREEN, &ManagerWindow::ToggleFullScreen, nullptr, 0, Key::F11},
    {IDM_ABOUT, &ManagerWindow::ShowAbout},
    {IDM_OTHER_FOLDER, &ManagerWindow::ChooseOtherFolder},
};

Situation ManagerWindow::Now() const {
    Situation now;
    now.calendarMode = calendar_.IsUp();
    now.showsCurrentMonth = calendar_.IsUp() && calendar_.ShowsCurrentMonth();
    now.kind = calendar_.IsUp() ? NodeKind::None : folders_.SelectedKind();
    now.hasFolders = tree_.FirstChild(folders_.NotesTop()) != 0;
    return now;
}

bool ManagerWindow::IsPossible(int id) const {
    for (const Command& command : kCommands) {
        if (command.id == id) return command.isPossible == nullptr || command.isPossible(Now());
    }
    if (id < IDM_COPY_TO) return true;
    return OnAnyFolder(Now()) && IsOtherStorage(folders_.RootPrefix(), id - IDM_COPY_TO);
}

void ManagerWindow::OnCommand(int id) {
    if (id == 0 || !IsPossible(id)) return;
    Perform(id);
    ShowFreeSpace();
}

void ManagerWindow::Perform(int id) {
    for (const Command& command : kCommands) {
        if (command.id == id) return (this->*command.handle)();
    }
    if (id >= IDM_COPY_TO) return CopySelectedTo(id - IDM_COPY_TO);
    if (id >= IDM_STORAGE) UseStorage(id - IDM_STORAGE);
}

void ManagerWindow::UpdateTools() {
    const Situation now = Now();
    for (const Command& command : kCommands) {
        if (command.isPossible != nullptr) Tools().SetEnabled(command.id, command.isPossible(now));
    }
    Tools().SetPressed(IDM_CALENDAR, calendar_.IsUp());
}

bool ManagerWindow::OnShortcut(wchar_t letter) {
    for (const Command& command : kCommands) {
        if (command.letter != letter) continue;
        PostCommand(command.id);
        return true;
    }
    return false;
}

// False when the key means nothing here, so that the tree may take it.
bool ManagerWindow::PressKey(Key key) {
    for (const Command& command : kCommands) {
        if (key == Key::Other || command.key != key || !IsPossible(command.id)) continue;
        OnCommand(command.id);
        return true;
    }
    return false;
}

// The menus.

void ManagerWindow::OnTreeHold(platform::TreeItem item, platform::Point place) {
    if (item == 0) return;
    tree_.Select(item);
    platform::PopupMenu menu;
    if (!MakeContextMenu(
            folders_.KindOf(item), [this](int id) { return IsPossible(id); }, menu))
        return;
    menuPlace_ = place;
    const int command = menu.Choose(*this, place);
    if (command != 0) PostCommand(command);
}

}  // namespace manager
