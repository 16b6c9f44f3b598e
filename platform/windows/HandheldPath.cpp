#include "platform/windows/HandheldPath.h"

#include <algorithm>
#include <memory>
#include <mutex>

#include "platform/Product.h"
#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"
#include "platform/windows/Guards.h"
#include "platform/windows/PathTranslation.h"
#include "platform/windows/Processes.h"
#include "platform/windows/ShellHeaders.h"
#include "platform/windows/SystemText.h"

namespace platform::windows {

namespace {

std::wstring WithoutBackslashAtEnd(std::wstring path) {
    while (!path.empty() && path.back() == L'\\') path.pop_back();
    return path;
}

std::wstring KnownFolder(REFKNOWNFOLDERID which, DWORD flags) {
    PWSTR text = nullptr;
    const HRESULT got = SHGetKnownFolderPath(which, flags, nullptr, &text);
    const std::unique_ptr<wchar_t, FreeTaskMemory> memory(text);
    return SUCCEEDED(got) ? WithoutBackslashAtEnd(text) : std::wstring();
}

// A folder that lies where nothing answers keeps its path, so that every use of it fails by itself until it
// answers again.
std::wstring KnownFolder(REFKNOWNFOLDERID which) {
    const std::wstring folder = KnownFolder(which, KF_FLAG_CREATE);
    return folder.empty() ? KnownFolder(which, KF_FLAG_DONT_VERIFY) : folder;
}

// Makes a folder of the host and every level above it that is missing.
void MakeLevels(const std::wstring& folder) {
    if (GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES) return;
    const size_t above = folder.rfind(L'\\');
    if (above == std::wstring::npos || above < 3) return;
    MakeLevels(folder.substr(0, above));
    CreateDirectoryW(folder.c_str(), nullptr);
}

// Adds the removable drives that are not in the list yet.
void AddRemovableDrives(DWORD present, std::vector<std::wstring>& drives) {
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
        const std::wstring drive{letter, L':'};
        const bool exists = (present >> (letter - L'A') & 1) != 0;
        if (!exists || GetDriveTypeW((drive + L"\\").c_str()) != DRIVE_REMOVABLE) continue;
        if (std::find(drives.begin(), drives.end(), drive) == drives.end()) drives.push_back(drive);
    }
}

// Looked for again only when a drive has come or gone. One that has gone keeps its place, and so its name:
// the next one must not be taken for it.
std::vector<std::wstring> CardDrives() {
    static std::mutex lock;
    static DWORD known = 0;
    static std::vector<std::wstring> drives;
    const DWORD present = GetLogicalDrives();
    const std::lock_guard<std::mutex> guard(lock);
    if (present != known) AddRemovableDrives(present, drives);
    known = present;
    return drives;
}

std::wstring CardDrive(const std::wstring& name) {
    const std::vector<std::wstring> drives = CardDrives();
    for (size_t i = 0; i < drives.size(); ++i) {
        if (EqualNoCase(name, StorageCardName(static_cast<int>(i)))) return drives[i];
    }
    return {};
}

// Asked for once in a run.
const HostPlaces& MachinePlaces() {
    static const HostPlaces places = [] {
        HostPlaces found;
        const std::wstring data = KnownFolder(FOLDERID_LocalAppData);
        if (!data.empty()) found.root = data + L"\\" + kProductName + L"\\Device";
        MakeLevels(found.root);
        found.documents = KnownFolder(FOLDERID_Documents);
        found.card = CardDrive;
        return found;
    }();
    return places;
}

void MakeDeviceOnce(const std::wstring& device) {
    static std::mutex lock;
    static std::wstring made;
    const std::lock_guard<std::mutex> guard(lock);
    if (made != device) MakeLevels(device);
    made = device;
}

HostPlaces DevicePlaces(const std::wstring& device) {
    MakeDeviceOnce(device);
    HostPlaces places;
    places.isDevice = true;
    places.root = device;
    places.card = [device](const std::wstring& name) {
        std::wstring folder = device + L"\\" + name;
        const DWORD attributes = GetFileAttributesW(folder.c_str());
        const bool isIn = attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY;
        return isIn ? folder : std::wstring();
    };
    return places;
}

HostPlaces Places() {
    const std::wstring device = DeviceFolder();
    return device.empty() ? MachinePlaces() : DevicePlaces(device);
}

}  // namespace

std::wstring FullPath(const std::wstring& path) {
    std::vector<wchar_t> text(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr));
    if (text.empty()) return {};
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(text.size()), text.data(), nullptr);
    return WithoutBackslashAtEnd(std::wstring(text.data(), length < text.size() ? length : 0));
}

// On a stick the device is carried along beside the program.
std::wstring DeviceFolder() {
    static const std::wstring beside = PathBesideProgram(L"Device");
    const std::wstring folder = EnvironmentText(L"INKWRIGHT_DEVICE");
    if (!folder.empty()) return FullPath(WithoutLongPrefix(folder));
    const DWORD attributes = GetFileAttributesW(beside.c_str());
    const bool isThere =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isThere ? beside : std::wstring();
}

std::vector<std::wstring> ReadableCards() {
    std::vector<std::wstring> names;
    const std::vector<std::wstring> drives = CardDrives();
    for (size_t i = 0; i < drives.size(); ++i) {
        const bool isReadable = GetFileAttributesW((drives[i] + L"\\").c_str()) != INVALID_FILE_ATTRIBUTES;
        if (isReadable) names.push_back(StorageCardName(static_cast<int>(i)));
    }
    return names;
}

bool IsStorageRoot(const std::wstring& hostPath) { return !hostPath.empty() && hostPath.back() == L'\\'; }

std::wstring ToHostPath(const std::wstring& handheldPath) {
    PathFault fault = PathFault::None;
    std::wstring host = TranslateToHost(handheldPath, Places(), fault);
    if (fault == PathFault::BadName) SetLastError(ERROR_INVALID_NAME);
    if (fault == PathFault::NoStorage) SetLastError(ERROR_PATH_NOT_FOUND);
    return host;
}

std::wstring ToShellPath(const std::wstring& handheldPath) {
    return WithoutLongPrefix(ToHostPath(handheldPath));
}

std::wstring ToHandheldPath(const std::wstring& hostPath) {
    const std::wstring path = WithoutLongPrefix(hostPath);
    if (!BeginsWithDrive(path) && !IsSharePath(path)) return hostPath;
    const bool isFolder = path.back() == L'\\' || path.back() == L'/';
    std::wstring handheld = TranslateToHandheld(FullPath(path), Places());
    if (isFolder && handheld.back() != L'\\') handheld += L'\\';
    return handheld;
}

}  // namespace platform::windows
