#include "app/store/SafeFile.h"

#include <utility>

#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/StoragePaths.h"

namespace store {

namespace {

bool CopyBeside(const std::wstring& from, const std::wstring& to) {
    const std::wstring beside = SafeFile::PathBeside(to);
    if (platform::CopyFileTo(from, beside) && platform::PutInPlace(beside, to)) return true;
    platform::EraseFile(beside);
    return false;
}

}  // namespace

std::wstring SafeFile::PathBeside(const std::wstring& path) {
    return path.empty() ? path : path.substr(0, path.size() - 1) + L"~";
}

SafeFile SafeFile::At(const std::wstring& path) {
    SafeFile made;
    made.path_ = path;
    made.file_ = platform::File::Create(PathBeside(path));
    if (made.file_.IsOpen()) made.beside_ = PathBeside(path);
    return made;
}

SafeFile::SafeFile(SafeFile&& other) noexcept
    : path_(std::move(other.path_)),
      beside_(std::exchange(other.beside_, {})),
      file_(std::move(other.file_)) {}

SafeFile::~SafeFile() {
    file_.Close();
    if (!beside_.empty()) platform::EraseFile(beside_);
}

bool SafeFile::Finish() {
    const bool isOnDisk = file_.FlushBytes();  // the move flushes the name
    file_.Close();
    return isOnDisk;
}

bool SafeFile::Commit() {
    if (!file_.FlushBytes()) return false;
    const bool isPut = file_.MoveInPlace(path_);
    // The journal may lie on another disk, which must not forget the page before this one has it.
    if (isPut && !platform::StorageOf(path_).empty()) file_.Flush();
    file_.Close();
    if (!isPut && !platform::PutInPlace(beside_, path_)) return false;
    beside_.clear();
    return true;
}

bool SafeFile::CommitToFreePlace() {
    if (!Finish()) return false;
    // Somebody may take the name between a look and the move.
    for (const std::wstring wanted = path_; !platform::MoveEntry(beside_, path_);) {
        if (!platform::Exists(path_)) return false;
        path_ = FreeNotePath(wanted);
    }
    beside_.clear();
    return true;
}

bool Holds(const std::wstring& path, const std::vector<uint8_t>& bytes) {
    platform::File file = platform::File::OpenForReading(path, platform::File::Share::Read);
    uint64_t size = 0;
    if (!file.IsOpen() || !file.Size(size) || size != bytes.size()) return false;
    std::vector<uint8_t> content(bytes.size());
    size_t got = 0;
    return file.Read(content.data(), content.size(), got) && got == size && content == bytes;
}

std::wstring PlaceFor(const std::wstring& notePath, const std::vector<uint8_t>& bytes, bool& isThere) {
    std::wstring place = notePath;
    isThere = false;
    for (int n = 1; platform::Exists(place); ++n) {
        isThere = Holds(place, bytes);
        if (isThere) break;
        place = NumberedNotePath(notePath, n);
    }
    return place;
}

bool FitsOnlyInPlace(const std::wstring& path, uint64_t bytes) {
    uint64_t old = 0;
    uint64_t room = 0;
    return platform::CanWriteTo(path, old) &&
           platform::FreeBytes(WithoutTrailingBackslashes(FolderOf(path)), room) && room < bytes &&
           bytes <= room + old;
}

bool CopySafely(const std::wstring& from, const std::wstring& to) {
    if (CopyBeside(from, to)) return true;
    uint64_t bytes = 0;
    const bool makesRoom = platform::FileSize(from, bytes) && FitsOnlyInPlace(to, bytes);
    return makesRoom && platform::EraseFile(to) && CopyBeside(from, to);
}

}  // namespace store
