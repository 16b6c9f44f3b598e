#pragma once

#include <string>

#include "platform/PopupMenu.h"

namespace manager {

// The menu that belongs to a node of this kind; false when it has none. `canMoveToFolder`: the store has
// folders that a reminder could go to.
bool MakeContextMenu(int kind, bool canMoveToFolder, const std::wstring& rootPrefix,
                     platform::PopupMenu& menu);

// The storages that a folder can be copied to: the documents folder, then each card. Empty without cards.
std::vector<std::wstring> CopyTargets();

}  // namespace manager
