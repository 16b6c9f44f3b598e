#include "platform/qt/system/Cards.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <mutex>
#include <sstream>

namespace platform::qt {

namespace {

constexpr size_t kMountPoint = 4;  // which word of a line

// Blanks and the like stand as a backslash and three octal digits.
std::string Unescaped(const std::string& text) {
    std::string plain;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool isCode = text[i] == '\\' && i + 3 < text.size() && std::isdigit(text[i + 1]) != 0;
        plain += isCode ? static_cast<char>(std::stoi(text.substr(i + 1, 3), nullptr, 8)) : text[i];
        if (isCode) i += 3;
    }
    return plain;
}

bool Contains(const std::vector<std::string>& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

std::string UserName() {
    const passwd* const user = getpwuid(getuid());
    return user ? user->pw_name : "";
}

std::string MountInfo() {
    std::ifstream file("/proc/self/mountinfo");
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::vector<std::string> RemovableMounts(const std::string& mountInfo, const std::string& user) {
    std::vector<std::string> mounts;
    std::istringstream lines(mountInfo);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string word;
        for (size_t i = 0; i <= kMountPoint; ++i) words >> word;
        const std::string mount = Unescaped(word);
        for (const std::string& media : {"/media/" + user + "/", "/run/media/" + user + "/"}) {
            const bool isDirectlyThere = mount.size() > media.size() &&
                                         mount.compare(0, media.size(), media) == 0 &&
                                         mount.find('/', media.size()) == std::string::npos;
            if (words && isDirectlyThere && !Contains(mounts, mount)) mounts.push_back(mount);
        }
    }
    std::sort(mounts.begin(), mounts.end());
    return mounts;
}

void CardTable::Update(const std::vector<std::string>& mounts) {
    for (const std::string& mount : mounts) {
        if (!Contains(folders_, mount)) folders_.push_back(mount);
    }
    present_ = mounts;
}

std::string CardTable::Folder(size_t index) const {
    return index < folders_.size() && Contains(present_, folders_[index]) ? folders_[index] : std::string();
}

CardTable CardsNow() {
    static std::mutex lock;
    static CardTable table;
    const std::vector<std::string> mounts = RemovableMounts(MountInfo(), UserName());
    const std::lock_guard<std::mutex> guard(lock);
    table.Update(mounts);
    return table;
}

}  // namespace platform::qt
