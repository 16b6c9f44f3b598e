#include "platform/qt/system/NameLookup.h"

#include <dirent.h>
#include <sys/stat.h>

#include <ctime>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "platform/TextEncoding.h"
#include "platform/qt/system/DiskText.h"

namespace platform::qt {

namespace {

// A folder that changed so lately may change again without looking different.
constexpr time_t kSettledSeconds = 2;

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

char SmallAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// False for names that differ in their first plain letters, as most do: then nothing else need be asked.
bool MayBeAlike(const char* a, const char* b) {
    for (; *a != '\0' && *b != '\0'; ++a, ++b) {
        if (((*a | *b) & 0x80) != 0) return true;
        if (SmallAscii(*a) != SmallAscii(*b)) return false;
    }
    return true;
}

// Until `take` has what it wants.
void ReadNames(const std::string& folder, const std::function<bool(const char* name)>& take) {
    const std::unique_ptr<DIR, CloseFolder> open(opendir(folder.c_str()));
    while (const dirent* const entry = open ? readdir(open.get()) : nullptr) {
        if (take(entry->d_name)) return;
    }
}

std::string Scan(const std::string& folder, const std::wstring& name, const std::string& asTyped) {
    std::string found;
    ReadNames(folder, [&](const char* entry) {
        if (MayBeAlike(entry, asTyped.c_str()) && EqualNoCase(NameFromDisk(entry), name)) found = entry;
        return !found.empty();
    });
    return found;
}

bool IsSame(const timespec& a, const timespec& b) { return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec; }

// The names of the folder that was asked last, once it is asked again unchanged: whoever looks for the memos
// of a thousand notes would have it read a thousand times.
class LastFolder {
  public:
    std::string Find(const std::string& folder, const std::wstring& name, const std::string& asTyped) {
        const std::lock_guard<std::mutex> guard(lock_);
        if (!IsKnown(folder)) return Scan(folder, name, asTyped);
        if (!isRead_) {
            ReadNames(folder, [this](const char* entry) {
                names_.emplace(LowerCase(NameFromDisk(entry)), entry);
                return false;
            });
        }
        isRead_ = true;
        const auto found = names_.find(LowerCase(name));
        return found == names_.end() ? std::string() : found->second;
    }

  private:
    // Whether it was asked before and is what it was. Otherwise it is the last one from here on.
    bool IsKnown(const std::string& folder) {
        struct stat now {};
        timespec clock{};
        clock_gettime(CLOCK_REALTIME, &clock);
        if (stat(folder.c_str(), &now) != 0) now = {};
        const bool isSame = folder == folder_ && now.st_ino == seen_.st_ino && now.st_dev == seen_.st_dev &&
                            IsSame(now.st_mtim, seen_.st_mtim) && IsSame(now.st_ctim, seen_.st_ctim);
        if (isSame && isSettled_) return true;
        folder_ = folder;
        seen_ = now;
        names_.clear();
        isRead_ = false;
        isSettled_ =
            clock.tv_sec - now.st_ctim.tv_sec >= kSettledSeconds && now.st_ctim.tv_sec <= clock.tv_sec;
        return false;
    }

    std::mutex lock_;
    std::string folder_;
    struct stat seen_ {};
    bool isSettled_ = false;  // when it was seen
    bool isRead_ = false;
    std::unordered_map<std::wstring, std::string> names_;
};

}  // namespace

std::string EntryLike(const std::string& folder, const std::wstring& name, const std::string& asTyped) {
    static LastFolder last;
    return last.Find(folder.empty() ? "/" : folder, name, asTyped);
}

}  // namespace platform::qt
