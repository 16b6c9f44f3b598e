#pragma once

#include <string>
#include <vector>

#include "app/store/DayFolder.h"

// What lies in the folders of the store. Reading changes nothing on disk; a folder that can't be read is
// empty. Paths of folders may end in "\".
namespace store {

struct ListedNote {
    std::wstring name;  // without extension
    bool hasMemo = false;
};

// What lies directly in one folder. Folders are in the system's order of names, notes in that of their code
// units.
struct StoreListing {
    std::vector<std::wstring> folders;
    std::vector<ListedNote> notes;
};

StoreListing ListStoreFolder(const std::wstring& folder);
// The folders of the root but those that the program reserves for itself.
std::vector<std::wstring> ListUserFolders(const std::wstring& root);

// The day folders in the folder of all reminders, by name.
struct ListedDays {
    std::vector<DayFolder> holding;  // a note at least
    std::vector<DayFolder> empty;
};
ListedDays ListDays(const std::wstring& reminders);

// True when at least one note lies directly in the folder.
bool HoldsNotes(const std::wstring& folder);

}  // namespace store
