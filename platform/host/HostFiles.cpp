#include <algorithm>
#include <cwctype>
#include <new>

#include "platform/File.h"
#include "platform/FileSystem.h"
#include "platform/LogFile.h"
#include "platform/StoragePaths.h"
#include "platform/host/HostDevice.h"

namespace platform {

using host::FileCall;
using host::HostDevice;
using host::HostFileStore;

namespace {

constexpr wchar_t kDocuments[] = L"\\My Documents";

HostFileStore& Store() { return HostDevice::Current().files; }

FileError FaultAt(FileCall call, const std::wstring& path) { return Store().Fault(call, path); }

bool IsOpenSomewhere(const HostFileStore::NodePointer& node) { return node->writer || node->readers > 0; }

bool IsBelow(const std::wstring& key, const std::wstring& folderKey) {
    return key.size() > folderKey.size() && key.compare(0, folderKey.size(), folderKey) == 0 &&
           key[folderKey.size()] == L'\\';
}

bool MatchesPattern(const std::wstring& name, const std::wstring& pattern) {
    if (pattern == L"*.*" || pattern == L"*") return true;
    const std::wstring ending = HostFileStore::KeyOf(pattern.substr(1)).substr(1);
    const std::wstring upper = HostFileStore::KeyOf(name).substr(1);
    return upper.size() >= ending.size() &&
           upper.compare(upper.size() - ending.size(), ending.size(), ending) == 0;
}

}  // namespace

struct File::Impl {
    std::wstring path;
    HostFileStore::NodePointer node;
    bool writing = false;
    size_t position = 0;
    FileError error = FileError::None;

    ~Impl() {
        if (node == nullptr) return;
        if (writing) node->writer = false;
        if (!writing) --node->readers;
    }
};

File::File() = default;
File::File(File&&) noexcept = default;
File& File::operator=(File&&) noexcept = default;
File::~File() = default;

File File::OpenForReading(const std::wstring& path, Share share) {
    File file;
    const HostFileStore::NodePointer node = Store().Find(path);
    file.openError_ = FaultAt(FileCall::Open, path);
    if (file.openError_ != FileError::None) return file;
    file.openError_ = node == nullptr ? FileError::NotFound : FileError::AccessDenied;
    if (node == nullptr || node->isFolder || path.back() == L'\\') return file;
    file.openError_ = FileError::Other;  // a sharing violation
    const bool shared = share == Share::Read && node->sharedReaders;
    if (node->writer || (node->readers > 0 && !shared)) return file;
    file.openError_ = FileError::None;
    file.impl_ = std::make_unique<Impl>();
    file.impl_->path = path;
    file.impl_->node = node;
    ++node->readers;
    node->sharedReaders = share == Share::Read;
    return file;
}

File File::Create(const std::wstring& path) {
    File file;
    HostFileStore& store = Store();
    file.openError_ = FaultAt(FileCall::Create, path);
    if (file.openError_ != FileError::None) return file;
    HostFileStore::NodePointer node = store.Find(path);
    file.openError_ = store.ParentExists(path) ? FileError::Other : FileError::NotFound;
    if (!HostFileStore::IsValidName(path) || path.back() == L'\\' || !store.ParentExists(path)) return file;
    if (HostFileStore::IsStorage(HostFileStore::KeyOf(path))) return file;
    if (node != nullptr && (node->isFolder || IsOpenSomewhere(node))) return file;
    if (node == nullptr) {
        store.Put(path, "");
        node = store.Find(path);
    }
    node->bytes.clear();
    node->onDisk = 0;
    node->lastWrite = HostDevice::Current().now;
    node->writer = true;
    file.openError_ = FileError::None;
    file.impl_ = std::make_unique<Impl>();
    file.impl_->path = path;
    file.impl_->node = node;
    file.impl_->writing = true;
    return file;
}

struct LogFile::Impl {
    File file;
    HostFileStore::NodePointer node;
};

LogFile::LogFile() = default;
LogFile::LogFile(LogFile&&) noexcept = default;
LogFile& LogFile::operator=(LogFile&&) noexcept = default;
LogFile::~LogFile() = default;

LogFile LogFile::Create(const std::wstring& path) {
    LogFile log;
    File file = Exists(path) ? File() : File::Create(path);
    if (file.IsOpen()) log.impl_ = std::make_unique<Impl>(Impl{std::move(file), Store().Find(path)});
    return log;
}
bool LogFile::Append(const void* bytes, size_t size) {
    if (impl_ == nullptr || !impl_->file.Write(bytes, size)) return false;
    impl_->node->later.insert(impl_->node->later.end(), size, HostDevice::Current().ticks);
    return true;
}
bool LogFile::Flush() { return impl_ != nullptr && impl_->file.Flush(); }
void LogFile::Close() { impl_.reset(); }

bool File::IsOpen() const { return impl_ != nullptr; }

bool File::Read(void* buffer, size_t size, size_t& got) {
    got = 0;
    if (impl_ == nullptr || impl_->writing) return false;
    impl_->error = FaultAt(FileCall::Read, impl_->path);
    if (impl_->error != FileError::None) return false;
    got = impl_->node->bytes.copy(static_cast<char*>(buffer), size, impl_->position);
    impl_->position += got;
    return true;
}

bool File::Write(const void* bytes, size_t size) {
    if (impl_ == nullptr || !impl_->writing) return false;
    impl_->error = FaultAt(FileCall::Write, impl_->path);
    const uint64_t room = Store().capacity - std::min(Store().capacity, Store().UsedBytes());
    const size_t written = impl_->error != FileError::None ? size / 2 : std::min<uint64_t>(size, room);
    impl_->node->bytes.append(static_cast<const char*>(bytes), written);
    if (written < size && impl_->error == FileError::None) impl_->error = FileError::Other;
    return impl_->error == FileError::None;
}

bool File::Size(uint64_t& bytes) {
    if (impl_ == nullptr) return false;
    bytes = impl_->node->bytes.size();
    return true;
}

bool File::FlushBytes() { return Flush(); }

bool File::Flush() {
    if (impl_ == nullptr || !impl_->writing) return false;
    impl_->error = FaultAt(FileCall::Flush, impl_->path);
    if (impl_->error == FileError::None) impl_->node->onDisk = impl_->node->bytes.size();
    return impl_->error == FileError::None;
}

bool File::MoveInPlace(const std::wstring& to) {
    if (impl_ == nullptr || !impl_->writing) return false;
    impl_->node->writer = false;
    const bool isPut = PutInPlace(impl_->path, to);
    impl_->node->writer = true;
    return isPut;
}

FileError File::Error() const { return impl_ == nullptr ? openError_ : impl_->error; }

void File::Close() { impl_.reset(); }

EntryKind FindEntry(const std::wstring& path) {
    if (path.empty() || path.back() == L'\\' || path.find_first_of(L"*?") != std::wstring::npos) {
        return EntryKind::Missing;
    }
    const HostFileStore::NodePointer node = Store().Find(path);
    if (node == nullptr) return EntryKind::Missing;
    return node->isFolder ? EntryKind::Folder : EntryKind::File;
}

bool ListFolder(const std::wstring& folder, const std::wstring& pattern, std::vector<FolderEntry>& entries) {
    entries.clear();
    const HostFileStore::NodePointer node = Store().Find(folder);
    if (FaultAt(FileCall::List, folder) != FileError::None || node == nullptr || !node->isFolder)
        return false;
    const std::wstring prefix = HostFileStore::KeyOf(folder);
    for (const auto& [key, entry] : Store().Nodes()) {
        if (!IsBelow(key, prefix) || key.find(L'\\', prefix.size() + 1) != std::wstring::npos) continue;
        if (MatchesPattern(entry->name, pattern)) {
            entries.push_back({entry->name, entry->isFolder, entry->lastWrite});
        }
    }
    return true;
}

bool LastWriteTime(const std::wstring& path, DateTime& moment) {
    const HostFileStore::NodePointer node = Store().Find(path);
    if (node == nullptr) return false;
    moment = node->lastWrite;
    return true;
}

bool FileSize(const std::wstring& path, uint64_t& bytes) {
    const HostFileStore::NodePointer node = Store().Find(path);
    if (node == nullptr || node->isFolder) return false;
    bytes = node->bytes.size();
    return true;
}

bool Exists(const std::wstring& path) {
    return HostFileStore::IsValidName(path) && Store().Find(path) != nullptr;
}

bool CanWriteTo(const std::wstring& path, uint64_t& bytes) {
    const HostFileStore::NodePointer node = Store().Find(path);
    if (FaultAt(FileCall::Create, path) != FileError::None) return false;
    if (node == nullptr || node->isFolder || IsOpenSomewhere(node)) return false;
    bytes = node->bytes.size();
    return true;
}

bool IsGone(const std::wstring& path) {
    if (!HostFileStore::IsValidName(path)) return true;
    const std::wstring key = HostFileStore::KeyOf(path);
    const std::wstring storage = StorageOf(key);
    const bool isDocument = IsBelow(key, HostFileStore::KeyOf(kDocuments));
    return Store().Find(storage.empty() && isDocument ? kDocuments : storage) != nullptr && !Exists(path);
}

bool MakeFolder(const std::wstring& path) {
    if (FaultAt(FileCall::MakeFolder, path) != FileError::None) return false;
    HostFileStore& store = Store();
    if (!HostFileStore::IsValidName(path) || store.Find(path) != nullptr || !store.ParentExists(path) ||
        HostFileStore::IsStorage(HostFileStore::KeyOf(path))) {
        return false;
    }
    store.PutFolder(path.front() == L'\\' ? path : L"\\" + path);
    return true;
}

bool DropFolder(const std::wstring& path) {
    const HostFileStore::NodePointer node = Store().Find(path);
    const std::wstring key = HostFileStore::KeyOf(path);
    if (FaultAt(FileCall::DropFolder, path) != FileError::None || node == nullptr || !node->isFolder)
        return false;
    for (const auto& entry : Store().Nodes()) {
        if (IsBelow(entry.first, key)) return false;
    }
    return Store().Nodes().erase(key) != 0;
}

bool EraseFile(const std::wstring& path) {
    const HostFileStore::NodePointer node = Store().Find(path);
    if (FaultAt(FileCall::Erase, path) != FileError::None || node == nullptr || node->isFolder) return false;
    return !IsOpenSomewhere(node) && Store().Nodes().erase(HostFileStore::KeyOf(path)) != 0;
}

bool MoveEntry(const std::wstring& from, const std::wstring& to) {
    HostFileStore& store = Store();
    const std::wstring fromKey = HostFileStore::KeyOf(from);
    const std::wstring toKey = HostFileStore::KeyOf(to);
    if (FaultAt(FileCall::Move, from) != FileError::None || store.Find(from) == nullptr) return false;
    if (!HostFileStore::IsValidName(to) || !store.ParentExists(to) || IsBelow(toKey, fromKey)) return false;
    if (HostFileStore::IsStorage(toKey)) return false;
    if (fromKey != toKey && store.Find(to) != nullptr) return false;
    std::map<std::wstring, HostFileStore::NodePointer> moved;
    for (const auto& [key, node] : store.Nodes()) {
        if (key != fromKey && !IsBelow(key, fromKey)) continue;
        if (IsOpenSomewhere(node)) return false;
        moved[toKey + key.substr(fromKey.size())] = node;
    }
    for (const auto& entry : moved) store.Nodes().erase(fromKey + entry.first.substr(toKey.size()));
    moved[toKey]->name = to.substr(to.rfind(L'\\') + 1);
    store.Nodes().insert(moved.begin(), moved.end());
    return true;
}

bool CopyFileTo(const std::wstring& from, const std::wstring& to) {
    HostFileStore& store = Store();
    const HostFileStore::NodePointer source = store.Find(from);
    if (FaultAt(FileCall::Copy, from) != FileError::None || source == nullptr || source->isFolder)
        return false;
    const std::string bytes = source->bytes;
    File file = File::Create(to);
    const bool isCopied = file.IsOpen() && file.Write(bytes.data(), bytes.size());
    if (isCopied) store.Find(to)->onDisk = bytes.size();
    return isCopied;
}

bool PutInPlace(const std::wstring& from, const std::wstring& to) {
    HostFileStore& store = Store();
    const HostFileStore::NodePointer old = store.Find(to);
    const HostFileStore::NodePointer made = store.Find(from);
    if (old == nullptr) return MoveEntry(from, to);
    if (FaultAt(FileCall::Replace, to) != FileError::None || made == nullptr || made->isFolder) return false;
    if (old->isFolder || IsOpenSomewhere(old) || IsOpenSomewhere(made)) return false;
    made->name = old->name;
    store.Nodes()[HostFileStore::KeyOf(to)] = made;
    return store.Nodes().erase(HostFileStore::KeyOf(from)) != 0;
}

bool FreeBytes(const std::wstring& folder, uint64_t& bytes) {
    const HostFileStore::NodePointer node = Store().Find(folder);
    if (node == nullptr || !node->isFolder) return false;
    bytes = Store().capacity - std::min(Store().capacity, Store().UsedBytes());
    return true;
}

std::wstring DocumentsFolder() {
    MakeFolder(kDocuments);  // fails when it is there already
    return kDocuments;
}

std::vector<std::wstring> StorageCards() { return CardFoldersOfDevice(); }

bool ChooseFolder(Window*, const std::wstring&, const std::wstring&, std::wstring& chosen) {
    chosen = HostDevice::Current().desk.chosenFolder;
    return !chosen.empty();
}

std::wstring FromHostPath(const std::wstring& path) {
    const bool hasDrive = path.size() >= 2 && path[1] == L':' && std::iswalpha(static_cast<wint_t>(path[0]));
    return hasDrive ? L"\\" + path : path;
}

}  // namespace platform
