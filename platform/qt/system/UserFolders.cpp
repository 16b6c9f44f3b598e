#include "platform/qt/system/UserFolders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QStandardPaths>
#include <cstdlib>

namespace platform::qt {

namespace {

constexpr char kOurName[] = "/inkwright";

std::string Home() {
    std::string home = Environment("HOME");
    if (!home.empty()) return home;
    const passwd* const user = getpwuid(getuid());
    return user ? user->pw_dir : "/";
}

// The rules of the desktop take a relative path for none.
std::string FolderFrom(const char* variable, const char* belowHome) {
    const std::string named = Environment(variable);
    return !named.empty() && named[0] == '/' ? named : Home() + belowHome;
}

// Whoever could write there could pass for us.
bool IsOursAlone(const std::string& folder) {
    struct stat found {};
    return lstat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == getuid() &&
           (found.st_mode & 077) == 0;
}

}  // namespace

std::string Environment(const char* name) {
    const char* const text = std::getenv(name);
    return text ? text : "";
}

std::string ConfigHome() { return FolderFrom("XDG_CONFIG_HOME", "/.config"); }
std::string ConfigFolder() { return ConfigHome() + kOurName; }
std::string DataFolder() { return FolderFrom("XDG_DATA_HOME", "/.local/share") + kOurName; }

std::string DocumentsPlace() {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
}

std::string RuntimeFolder() {
    const std::string session = Environment("XDG_RUNTIME_DIR");
    const std::string ofAll = std::string("/tmp") + kOurName + "-" + std::to_string(getuid());
    for (const std::string& folder : {session + kOurName, ofAll}) {
        if (session.empty() && folder != ofAll) continue;
        mkdir(folder.c_str(), 0700);
        if (IsOursAlone(folder)) return folder;
    }
    return {};
}

void MakeLevels(const std::string& folder) {
    struct stat found {};
    if (folder.size() < 2 || stat(folder.c_str(), &found) == 0) return;
    MakeLevels(FolderOf(folder));
    mkdir(folder.c_str(), 0700);
}

std::string FolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return path.substr(0, slash == 0 || slash == std::string::npos ? slash + 1 : slash);
}

std::string PathIn(const std::string& folder, const std::string& name) {
    std::string path = folder;
    return path.append("/").append(name);
}

std::string NameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

}  // namespace platform::qt
