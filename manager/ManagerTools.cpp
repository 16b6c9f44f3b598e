#include "manager/ManagerTools.h"

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

}  // namespace manager
