#include "manager/ManagerTools.h"

#include "manager/NodeKind.h"
#include "res/resource.h"

namespace manager {

const platform::ToolBarLayout& ManagerToolBarLayout() {
    static const platform::ToolBarLayout layout{IDB_MANAGER_TOOLS,
                                                12,
                                                14,
                                                {{IDM_ADD_NOTE, L"New Note"},
                                                 {},
                                                 {IDM_OPEN, L"Open"},
                                                 {IDM_DELETE, L"Delete"},
                                                 {},
                                                 {IDM_CALENDAR, L"Calendar"},
                                                 {IDM_PREVIOUS_MONTH, L"Previous Month"},
                                                 {IDM_CURRENT_MONTH, L"This Month"},
                                                 {IDM_NEXT_MONTH, L"Next Month"},
                                                 {},
                                                 {IDM_FIND, L"Find..."},
                                                 {IDM_MANAGER_TOOLS, L"Tools"}}};
    return layout;
}

void UpdateToolBar(platform::ToolBar& tools, const ToolSituation& situation) {
    const int kind = situation.calendarMode ? -1 : situation.kind;
    const bool isNote = IsNoteKind(kind);
    const bool isFolder = IsFolderKind(kind) || IsDayKind(kind);
    tools.SetEnabled(IDM_ADD_NOTE, isNote || isFolder || kind == kRemindersTop);
    tools.SetEnabled(IDM_OPEN, isNote);
    tools.SetEnabled(IDM_DELETE, isNote || isFolder || kind == kAlarm);
    tools.SetPressed(IDM_CALENDAR, situation.calendarMode);
    tools.SetEnabled(IDM_PREVIOUS_MONTH, situation.calendarMode);
    tools.SetEnabled(IDM_NEXT_MONTH, situation.calendarMode);
    tools.SetEnabled(IDM_CURRENT_MONTH, situation.calendarMode && !situation.showsCurrentMonth);
    tools.SetEnabled(IDM_FIND, !situation.calendarMode);
}

}  // namespace manager
