#include <unistd.h>

#include <climits>
#include <fstream>

#include "platform/Shell.h"
#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/Processes.h"

namespace platform {

std::wstring ProgramPath() { return qt::TextFromDisk(qt::ProgramFile()); }

std::wstring DeviceName() {
    char host[HOST_NAME_MAX + 1] = "";
    std::string machine;
    gethostname(host, sizeof host - 1);
    std::getline(std::ifstream("/etc/machine-id"), machine);
    return qt::TextFromDisk(std::string(host) + " " + machine + " " + qt::DeviceFolder());
}

// What only the handheld has.
bool NotifyTodayItem(const std::wstring&) { return false; }
bool HasTodayScreen() { return false; }
void ReloadTodayScreen() {}

}  // namespace platform
