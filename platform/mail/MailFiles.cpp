#include "platform/mail/MailFiles.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <new>

#include "platform/mail/MailMessage.h"
#include "platform/windows/Guards.h"

namespace platform::windows {

namespace {

constexpr size_t kHeadLength = sizeof kMailHead - 1;
constexpr uint64_t kTicksOfDay = uint64_t{24} * 60 * 60 * 10000000;  // in units of 100 ns
constexpr DWORD kPortion = 1 << 20;

OwnedHandle OpenToRead(const std::wstring& path) {
    return OwnFile(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool IsOwnMessage(const std::wstring& path) {
    char head[kHeadLength];
    DWORD got = 0;
    const OwnedHandle file = OpenToRead(path);
    return file && ReadFile(file.get(), head, sizeof head, &got, nullptr) && got == sizeof head &&
           std::memcmp(head, kMailHead, sizeof head) == 0;
}

uint64_t Ticks(const FILETIME& time) {
    return static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

bool ReadToEnd(HANDLE file, std::string& bytes) {
    DWORD got = 0;
    do {
        const size_t before = bytes.size();
        bytes.resize(before + kPortion);
        if (!ReadFile(file, &bytes[before], kPortion, &got, nullptr)) return false;
        bytes.resize(before + got);
    } while (got != 0);
    return true;
}

bool WriteAll(HANDLE file, const std::string& bytes) {
    for (size_t done = 0; done < bytes.size();) {
        const auto count = static_cast<DWORD>(std::min<size_t>(kPortion, bytes.size() - done));
        DWORD written = 0;
        if (!WriteFile(file, bytes.data() + done, count, &written, nullptr) || written == 0) return false;
        done += written;
    }
    return true;
}

}  // namespace

std::wstring NameOf(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

std::wstring FolderOf(const std::wstring& path) { return path.substr(0, path.rfind(L'\\') + 1); }

std::wstring TemporaryFolder() {
    wchar_t path[MAX_PATH + 1];
    const DWORD length = GetTempPathW(static_cast<DWORD>(std::size(path)), path);
    return length < std::size(path) ? std::wstring(path, length) : std::wstring();
}

bool ReadWholeFile(const std::wstring& path, std::string& bytes) {
    bytes.clear();
    const OwnedHandle file = OpenToRead(path);
    if (!file) return false;
    try {
        return ReadToEnd(file.get(), bytes);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool WriteMessageFile(const std::wstring& path, const std::string& message) {
    const DWORD how = IsOwnMessage(path) ? CREATE_ALWAYS : CREATE_NEW;
    OwnedHandle file =
        OwnFile(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return false;
    const bool isWhole = WriteAll(file.get(), message);
    file.reset();
    if (!isWhole) DeleteFileW(path.c_str());
    return isWhole;
}

void DeleteOldMessages(const std::wstring& folder) {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    WIN32_FIND_DATAW entry{};
    const OwnedSearch search = OwnSearch(FindFirstFileW((folder + L"memo_*.eml").c_str(), &entry));
    if (!search) return;
    do {
        const std::wstring path = folder + entry.cFileName;
        const bool isOld = Ticks(entry.ftLastWriteTime) + kTicksOfDay < Ticks(now);
        if (isOld && IsOwnMessage(path)) DeleteFileW(path.c_str());
    } while (FindNextFileW(search.get(), &entry));
}

}  // namespace platform::windows
