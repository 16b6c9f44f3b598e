#include "platform/host/HostFileStore.h"

#include <algorithm>

#include "platform/StoragePaths.h"
#include "platform/host/HostDevice.h"

namespace platform::host {

wchar_t UpperCase(wchar_t unit) {
    const bool isAscii = unit >= L'a' && unit <= L'z';
    const bool isLatin = unit >= 0xE0 && unit <= 0xFE && unit != 0xF7;  // without the division sign
    return isAscii || isLatin ? unit - 32 : unit;
}

HostFileStore::HostFileStore() {
    nodes_[L""] = std::make_shared<FileNode>();
    nodes_[L""]->isFolder = true;
    PutFolder(L"\\My Documents");
}

void HostFileStore::Put(const std::wstring& path, const std::string& bytes) {
    PutFolder(path.substr(0, path.rfind(L'\\')));
    auto node = std::make_shared<FileNode>();
    node->name = path.substr(path.rfind(L'\\') + 1);
    node->bytes = bytes;
    node->onDisk = bytes.size();
    nodes_[KeyOf(path)] = node;
}

void HostFileStore::PutFolder(const std::wstring& path) {
    for (size_t end = path.find(L'\\', 1); !path.empty(); end = path.find(L'\\', end + 1)) {
        const std::wstring level = path.substr(0, end);
        NodePointer& node = nodes_[KeyOf(level)];
        if (node == nullptr) {
            node = std::make_shared<FileNode>();
            node->name = level.substr(level.rfind(L'\\') + 1);
            node->isFolder = true;
        }
        if (end == std::wstring::npos) return;
    }
}

std::string HostFileStore::Get(const std::wstring& path) const {
    const NodePointer node = Find(path);
    return node == nullptr ? std::string() : node->bytes;
}

std::vector<std::wstring> HostFileStore::NamesIn(const std::wstring& folder) const {
    const std::wstring prefix = KeyOf(folder) + L"\\";
    std::vector<std::wstring> names;
    for (const auto& [key, node] : nodes_) {
        const bool inside = key.size() > prefix.size() && key.compare(0, prefix.size(), prefix) == 0;
        if (inside && key.find(L'\\', prefix.size()) == std::wstring::npos) names.push_back(node->name);
    }
    return names;
}

std::wstring HostFileStore::KeyOf(const std::wstring& path) {
    std::wstring key(IsSharePath(path) ? 1 : 0, L'\\');
    for (size_t begin = 0; begin < path.size();) {
        const size_t end = std::min(path.find(L'\\', begin), path.size());
        if (end > begin) key += L'\\' + path.substr(begin, end - begin);
        begin = end + 1;
    }
    for (wchar_t& unit : key) unit = UpperCase(unit);
    return key;
}

bool HostFileStore::IsValidName(const std::wstring& path) {
    return !path.empty() && path.find_first_of(L"/:*?\"<>|") == std::wstring::npos;
}

HostFileStore::NodePointer HostFileStore::Find(const std::wstring& path) const {
    const std::wstring key = KeyOf(path);
    const auto found = nodes_.find(key);
    return found == nodes_.end() || !Answers(key) ? nullptr : found->second;
}

bool HostFileStore::ParentExists(const std::wstring& path) const {
    const std::wstring key = KeyOf(path);
    const auto parent = nodes_.find(key.substr(0, key.rfind(L'\\')));
    return !key.empty() && Answers(key) && parent != nodes_.end() && parent->second->isFolder;
}

bool HostFileStore::IsStorage(const std::wstring& key) { return !key.empty() && StorageOf(key) == key; }

bool HostFileStore::Answers(const std::wstring& key) const {
    const std::wstring gone = KeyOf(unreachable);
    return gone.empty() || (key + L"\\").compare(0, gone.size() + 1, gone + L"\\") != 0;
}

std::string HostFileStore::BytesOnDisk(const FileNode& node, std::mt19937* dice) {
    constexpr uint32_t kFlushedAfter = 1000;  // milliseconds, see LogFile
    constexpr size_t kPart = 32;              // bytes; a disk's are larger, and so are its files
    const uint32_t now = HostDevice::Current().ticks;
    size_t flushed = 0;
    while (flushed < node.later.size() && now - node.later[flushed] >= kFlushedAfter) ++flushed;
    flushed = std::max(flushed, node.onDisk);
    if (dice == nullptr) return node.bytes.substr(0, flushed);
    std::string bytes = node.bytes.substr(0, flushed + (*dice)() % (node.bytes.size() - flushed + 1));
    for (size_t part = flushed; part < bytes.size(); part += kPart) {
        const size_t end = std::min(part + kPart, bytes.size());
        if ((*dice)() % 2 == 0) std::fill(bytes.begin() + part, bytes.begin() + end, '\0');
    }
    return bytes;
}

uint64_t HostFileStore::UsedBytes() const {
    uint64_t used = 0;
    for (const auto& entry : nodes_) used += entry.second->bytes.size();
    return used;
}

FileError HostFileStore::Fault(FileCall call, const std::wstring& path) const {
    return fault ? fault(call, path) : FileError::None;
}

}  // namespace platform::host
