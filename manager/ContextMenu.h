#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/store/NodeKind.h"
#include "platform/PopupMenu.h"

namespace manager {

// The menu that belongs to a node of this kind; false when it has none. What `isPossible` denies is greyed.
bool MakeContextMenu(store::NodeKind kind, const std::function<bool(int command)>& isPossible,
                     platform::PopupMenu& menu);

// The storages that a folder can be copied to: the documents folder, then each card. Empty without cards.
std::vector<std::wstring> CopyTargets();
// True for the index of one of them that does not hold the store.
bool IsOtherStorage(const std::wstring& rootPrefix, int index);

}  // namespace manager
