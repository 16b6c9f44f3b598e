#include "manager/ContextMenu.h"

#include "app/store/NodeKind.h"
#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "res/resource.h"

namespace manager {

namespace {

using store::NodeKind;

struct Entry {
    NodeKind kind;
    int command;  // 0 = separator
    const wchar_t* text;
};

constexpr int kCopyEntries = -1;  // stands for the "Copy To" entries

constexpr Entry kEntries[] = {
    {NodeKind::NotesTop, IDM_CREATE_FOLDER, L"Create Folder"},
    {NodeKind::Folder, IDM_ADD_NOTE, L"New"},
    {NodeKind::Folder, 0, nullptr},
    {NodeKind::Folder, IDM_RENAME, L"Rename"},
    {NodeKind::Folder, IDM_DELETE, L"Delete"},
    {NodeKind::Folder, 0, nullptr},
    {NodeKind::Folder, IDM_CREATE_FOLDER, L"Create Folder"},
    {NodeKind::Folder, IDM_MOVE_FOLDER, L"Move Folder"},
    {NodeKind::Folder, 0, nullptr},
    {NodeKind::Folder, kCopyEntries, nullptr},
    {NodeKind::Note, IDM_OPEN, L"Open"},
    {NodeKind::Note, 0, nullptr},
    {NodeKind::Note, IDM_RENAME, L"Rename"},
    {NodeKind::Note, IDM_DELETE, L"Delete"},
    {NodeKind::Note, 0, nullptr},
    {NodeKind::Note, IDM_TEXT_MEMO, L"Text Memo..."},
    {NodeKind::Note, IDM_SET_ALARM, L"Set Alarm..."},
    {NodeKind::Note, 0, nullptr},
    {NodeKind::Note, IDM_CHANGE_FOLDER, L"Change Folder..."},
    {NodeKind::Note, IDM_MOVE_TO_REMINDERS, L"Move To Reminders..."},
    {NodeKind::RemindersTop, IDM_CALENDAR, L"Add"},
    {NodeKind::Day, IDM_ADD_NOTE, L"Add"},
    {NodeKind::Day, IDM_CALENDAR, L"Show Calendar"},
    {NodeKind::Day, 0, nullptr},
    {NodeKind::Day, IDM_DELETE, L"Delete"},
    {NodeKind::Day, 0, nullptr},
    {NodeKind::Day, kCopyEntries, nullptr},
    {NodeKind::Reminder, IDM_OPEN, L"Open"},
    {NodeKind::Reminder, 0, nullptr},
    {NodeKind::Reminder, IDM_RENAME, L"Rename"},
    {NodeKind::Reminder, IDM_DELETE, L"Delete"},
    {NodeKind::Reminder, 0, nullptr},
    {NodeKind::Reminder, IDM_TEXT_MEMO, L"Text Memo..."},
    {NodeKind::Reminder, IDM_SET_ALARM, L"Set Alarm..."},
    {NodeKind::Reminder, 0, nullptr},
    {NodeKind::Reminder, IDM_CHANGE_DATE, L"Change Date..."},
    {NodeKind::Reminder, IDM_MOVE_TO_FOLDER, L"Move To Folder..."},
    {NodeKind::AlarmsTop, IDM_REFRESH_ALARMS, L"Refresh"},
    {NodeKind::Alarm, IDM_DELETE_ALARM, L"Delete"},
};

}  // namespace

bool MakeContextMenu(NodeKind kind, const std::function<bool(int command)>& isPossible,
                     platform::PopupMenu& menu) {
    const NodeKind plain = kind == NodeKind::OpenFolder ? NodeKind::Folder
                           : kind == NodeKind::OpenDay  ? NodeKind::Day
                                                        : kind;
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
    const std::wstring root = store::WithoutTrailingBackslashes(rootPrefix);
    const std::wstring current = root.substr(0, root.rfind(L'\\'));
    return index < static_cast<int>(targets.size()) &&
           !platform::EqualNoCase(targets[static_cast<size_t>(index)], current);
}

}  // namespace manager
