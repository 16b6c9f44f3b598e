#pragma once

#include <string>
#include <vector>

// Which handheld paths name a storage: a share of the network, a storage card, a drive. A storage is there or
// it is not; no program makes one, and nothing else may take the name of one that is missing.
namespace platform {

// "\\server\share..."
bool IsSharePath(const std::wstring& path);

// "Storage Card", "Storage Card2", ... : the names of index 0, 1, ...
std::wstring StorageCardName(int index);
// True for a name of that form, in whatever letter case: nothing but a card lies there.
bool IsStorageCardName(const std::wstring& name);
// True for a name that begins so: where one folder is the whole device, its folders of such names are the
// cards.
bool BeginsAsStorageCard(const std::wstring& name);

// Those cards: the names of such folders, in the order of their names.
std::vector<std::wstring> CardFoldersOfDevice();

// The leading part of a rooted path that names its storage ("\\server\share", "\Storage Card2", "\X:"), no
// trailing "\". Empty for everything that lies in the handheld's own memory.
std::wstring StorageOf(const std::wstring& path);

}  // namespace platform
