#include "platform/qt/system/HandheldPath.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "platform/PathParts.h"
#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"
#include "platform/qt/system/Cards.h"
#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/NameLookup.h"
#include "platform/qt/system/UserFolders.h"

namespace platform::qt {

namespace {

constexpr wchar_t kElsewhere[] = L"File System";

bool Exists(const std::string& path) {
    struct stat found {};
    return lstat(path.c_str(), &found) == 0;
}

bool IsFolder(const std::string& path) {
    struct stat found {};
    return stat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

std::string Below(std::string place, const std::vector<std::wstring>& parts, size_t first) {
    bool isThere = true;
    for (size_t i = first; i < parts.size(); ++i) {
        std::string name;
        errno = EINVAL;
        if (!IsName(parts[i]) || !ToDisk(parts[i], name)) return {};
        if (isThere && !Exists(PathIn(place, name))) {
            const std::string like = EntryLike(place, parts[i], name);
            isThere = !like.empty();
            if (isThere) name = like;
        }
        place = PathIn(place, name);
    }
    return place.empty() ? "/" : place;
}

// The folder that the first `used` parts of a path stand for.
struct Beginning {
    std::string folder;
    size_t used = 0;
    bool isThere = true;
};

constexpr bool kIsAway = false;

Beginning Card(const std::wstring& name) {
    const CardTable cards = CardsNow();
    for (size_t i = 0; i < cards.Count(); ++i) {
        if (!EqualNoCase(name, StorageCardName(static_cast<int>(i)))) continue;
        const std::string folder = cards.Folder(i);
        return {folder, 1, !folder.empty()};
    }
    return {{}, 1, kIsAway};
}

Beginning OfDevice(const std::string& device, const std::vector<std::wstring>& parts) {
    MakeLevels(device);
    if (parts.empty()) return {device, 0};
    if (EqualNoCase(parts[0], kElsewhere)) return {{}, 1, kIsAway};
    if (!IsStorageCardName(parts[0])) return {device, 0};
    const std::string folder = Below(device, {parts[0]}, 0);
    return {folder, 1, IsFolder(folder)};
}

Beginning OfMachine(const std::vector<std::wstring>& parts) {
    const std::string root = DataFolder() + "/device";
    MakeLevels(root);
    if (parts.empty()) return {root, 0};
    if (IsStorageCardName(parts[0])) return Card(parts[0]);
    if (!StorageOf(L"\\" + parts[0]).empty()) return {{}, 1, kIsAway};
    if (EqualNoCase(parts[0], kElsewhere)) return {{}, 1};
    return EqualNoCase(parts[0], kDocumentsName) ? Beginning{DocumentsPlace(), 1} : Beginning{root, 0};
}

Beginning BeginningOf(const std::wstring& path, const std::vector<std::wstring>& parts) {
    if (IsSharePath(path)) return {{}, 0, kIsAway};
    const std::string device = DeviceFolder();
    return device.empty() ? OfMachine(parts) : OfDevice(device, parts);
}

// The rest of `path` below `folder`, or false.
bool IsBelow(const std::string& path, const std::string& folder, std::string& rest) {
    if (folder.empty() || path.compare(0, folder.size(), folder) != 0) return false;
    rest = path.substr(folder.size());
    return rest.empty() || rest[0] == '/';
}

std::wstring AsHandheld(const std::wstring& beginning, const std::string& rest) {
    std::wstring path = beginning;
    for (size_t begin = 1; begin < rest.size();) {
        const size_t end = std::min(rest.find('/', begin), rest.size());
        path += L"\\" + NameFromDisk(rest.substr(begin, end - begin));
        begin = end + 1;
    }
    return path.empty() ? L"\\" : path;
}

// What a folder of this system is called on the handheld, as the path came or as its links lead.
struct Place {
    std::string folder;
    std::wstring name;
};

std::vector<Place> Places() {
    const std::string device = DeviceFolder();
    if (!device.empty()) return {{device, L""}};
    // The documents may be all of the user's folders, with ours among them.
    std::vector<Place> places{{DataFolder() + "/device", L""},
                              {DocumentsPlace(), L"\\" + std::wstring(kDocumentsName)}};
    const CardTable cards = CardsNow();
    for (size_t i = 0; i < cards.Count(); ++i)
        places.push_back({cards.Folder(i), L"\\" + StorageCardName(static_cast<int>(i))});
    return places;
}

std::string Resolved(const std::string& path) {
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(path, error);
    return error ? path : resolved.string();
}

}  // namespace

std::string DeviceFolder() {
    const std::string folder = Environment("INKWRIGHT_DEVICE");
    if (folder.empty()) return {};
    std::error_code error;
    std::string full = std::filesystem::absolute(folder, error).lexically_normal().string();
    while (full.size() > 1 && full.back() == '/') full.pop_back();
    return full;
}

std::vector<std::wstring> ReadableCards() {
    std::vector<std::wstring> names;
    const CardTable cards = CardsNow();
    for (size_t i = 0; i < cards.Count(); ++i) {
        if (IsFolder(cards.Folder(i))) names.push_back(StorageCardName(static_cast<int>(i)));
    }
    return names;
}

std::string ToHostPath(const std::wstring& handheldPath) {
    const std::vector<std::wstring> parts = PartsOf(handheldPath);
    const Beginning beginning = BeginningOf(handheldPath, parts);
    errno = ENODEV;
    return beginning.isThere ? Below(beginning.folder, parts, beginning.used) : std::string();
}

std::wstring ToHandheldPath(const std::string& hostPath) {
    const bool isFolder = hostPath.size() > 1 && hostPath.back() == '/';
    std::string path = std::filesystem::path(hostPath).lexically_normal().string();
    if (isFolder && path.size() > 1) path.pop_back();
    const std::string ways[] = {path, Resolved(path)};
    std::wstring handheld = AsHandheld(L"\\" + std::wstring(kElsewhere), path);
    std::string rest;
    for (const Place& place : Places()) {
        for (const std::string& folder : {place.folder, Resolved(place.folder)}) {
            const bool isIt = !place.folder.empty() &&
                              std::any_of(std::begin(ways), std::end(ways),
                                          [&](const std::string& way) { return IsBelow(way, folder, rest); });
            if (!isIt) continue;
            handheld = AsHandheld(place.name, rest);
            return isFolder && handheld.back() != L'\\' ? handheld + L"\\" : handheld;
        }
    }
    return isFolder ? handheld + L"\\" : handheld;
}

bool MayBeMade(const std::string& hostPath) {
    const std::string name = NameOf(hostPath);
    const std::wstring stem = LowerCase(NameFromDisk(name.substr(0, name.find('.'))));
    const bool isNumbered = stem.size() == 4 && stem[3] >= L'1' && stem[3] <= L'9' &&
                            (stem.compare(0, 3, L"com") == 0 || stem.compare(0, 3, L"lpt") == 0);
    const bool isDevice = isNumbered || stem == L"con" || stem == L"prn" || stem == L"aux" || stem == L"nul";
    if (isDevice) errno = EINVAL;
    return !isDevice;
}

bool IsElsewhere(const std::wstring& handheldPath) {
    const std::vector<std::wstring> parts = PartsOf(handheldPath);
    return DeviceFolder().empty() && !parts.empty() && EqualNoCase(parts[0], kElsewhere);
}

}  // namespace platform::qt
