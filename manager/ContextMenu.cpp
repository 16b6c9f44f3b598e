#include "manager/ContextMenu.h"

#include "app/StorePaths.h"
#include "manager/NodeKind.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "res/resource.h"

namespace manager {

namespace {

struct Entry {
    int kind;
    int command;  // 0 = separator
    const wchar_t* text;
};

constexpr int kCopyEntries = -1;  // stands for the "Copy To" entries

constexpr Entry kEntries[] = {
    {kNotesTop, IDM_CREATE_FOLDER, L"Create Folder"},
    {kFolder, IDM_ADD_NOTE, L"New"},
    {kFolder, 0, nullptr},
    {kFolder, IDM_RENAME, L"Rename"},
    {kFolder, IDM_DELETE, L"Delete"},
    {kFolder, 0, nullptr},
    {kFolder, IDM_CREATE_FOLDER, L"Create Folder"},
    {kFolder, IDM_MOVE_FOLDER, L"Move Folder"},
    {kFolder, 0, nullptr},
    {kFolder, kCopyEntries, nullptr},
    {kNote, IDM_OPEN, L"Open"},
    {kNote, 0, nullptr},
    {kNote, IDM_RENAME, L"Rename"},
    {kNote, IDM_DELETE, L"Delete"},
    {kNote, 0, nullptr},
    {kNote, IDM_TEXT_MEMO, L"Text Memo..."},
    {kNote, IDM_SET_ALARM, L"Set Alarm..."},
    {kNote, 0, nullptr},
    {kNote, IDM_CHANGE_FOLDER, L"Change Folder..."},
    {kNote, IDM_MOVE_TO_REMINDERS, L"Move To Reminders..."},
    {kRemindersTop, IDM_CALENDAR, L"Add"},
    {kDay, IDM_ADD_NOTE, L"Add"},
    {kDay, IDM_CALENDAR, L"Show Calendar"},
    {kDay, 0, nullptr},
    {kDay, IDM_DELETE, L"Delete"},
    {kDay, 0, nullptr},
    {kDay, kCopyEntries, nullptr},
    {kReminder, IDM_OPEN, L"Open"},
    {kReminder, 0, nullptr},
    {kReminder, IDM_RENAME, L"Rename"},
    {kReminder, IDM_DELETE, L"Delete"},
    {kReminder, 0, nullptr},
    {kReminder, IDM_TEXT_MEMO, L"Text Memo..."},
    {kReminder, IDM_SET_ALARM, L"Set Alarm..."},
    {kReminder, 0, nullptr},
    {kReminder, IDM_CHANGE_DATE, L"Change Date..."},
    {kReminder, IDM_MOVE_TO_FOLDER, L"Move To Folder..."},
    {kAlarmsTop, IDM_REFRESH_ALARMS, L"Refresh"},
    {kAlarm, IDM_DELETE_ALARM, L"Delete"},
};

}  // namespace

bool MakeContextMenu(int kind, const std::function<bool(int command)>& isPossible,
                     platform::PopupMenu& menu) {
    const int plain = kind == kOpenFolder ? kFolder : kind == kOpenDay ? kDay : kind;
    const auto add = [&](int command, const std::wstring& text) {
        menu.Add(command, text, isPossible(command));
    };
    for (const Entry& entry : kEntries) {
        if (entry.kind != plain) continue;
        if (entry.command == kCopyEntries) {
            int command = IDM_COPY_TO;
            for (const std::wstring& storage : CopyTargets()) add(command++, L"Copy To " + storage);
        } else if (entry.command == 0) {
            menu.AddSeparator();
        } else {
            add(entry.command, entry.text);
        }
    }
    return !menu.Items().empty();
}

std::vector<std::wstring> CopyTargets() {
    std::vector<std::wstring> targets;
    const std::vector<std::wstring> cards = platform::StorageCards();
    if (cards.empty()) return targets;
    targets.push_back(platform::DocumentsFolder());
    for (const std::wstring& card : cards) targets.push_back(L"\\" + card);
    return targets;
}

bool IsOtherStorage(const std::wstring& rootPrefix, int index) {
    const std::vector<std::wstring> targets = CopyTargets();
    const std::wstring root = app::WithoutTrailingBackslashes(rootPrefix);
    const std::wstring current = root.substr(0, root.rfind(L'\\'));
    return index < static_cast<int>(targets.size()) &&
           !platform::EqualNoCase(targets[static_cast<size_t>(index)], current);
}

}  // namespace manager
