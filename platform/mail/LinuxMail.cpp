#include "platform/mail/LinuxMail.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "platform/Clock.h"
#include "platform/mail/MailFiles.h"
#include "platform/windows/Guards.h"
#include "platform/windows/Processes.h"

namespace platform::windows {

namespace {

constexpr wchar_t kShell[] = L"\\\\?\\unix\\bin\\sh";
constexpr uint32_t kPatienceMilliseconds = 5000;
constexpr uint32_t kPauseMilliseconds = 20;

// Free of quotes, backslashes and line breaks, so that both worlds take it for one argument. The status goes
// to a file, since Wine gives no handle of a Linux process; when the file is gone nobody waits any more.
// Without field splitting an unquoted variable is one word.
constexpr wchar_t kScript[] =
    L"IFS=; set -f; picture=$(printf %b $1); status=$(printf %b $2); "
    L"xdg-email --attach $picture </dev/null >/dev/null 2>&1; code=$?; "
    L"test -e $status && echo $code >$status";

using GetUnixName = char*(CDECL*)(LPCWSTR);

// Null except under Wine.
GetUnixName FindUnixName() {
    using Function = void (*)();
    const HMODULE library = GetModuleHandleW(L"kernel32.dll");
    const FARPROC found = library ? GetProcAddress(library, "wine_get_unix_file_name") : nullptr;
    return reinterpret_cast<GetUnixName>(reinterpret_cast<Function>(found));
}

// The Linux name of a file as an argument for printf's %b. A name there is bytes, of which only the simplest
// survive the way through command lines and code pages, so all others are written as octal numbers.
std::wstring LinuxArgument(GetUnixName unixName, const std::wstring& hostPath) {
    char* name = unixName(hostPath.c_str());
    if (!name) return {};
    std::wstring argument;
    for (const char* at = name; *at != '\0'; ++at) {
        const bool isSimple = (*at >= 'a' && *at <= 'z') || (*at >= 'A' && *at <= 'Z') ||
                              (*at >= '0' && *at <= '9') || *at == '/' || *at == '.' || *at == '_';
        char code[8];
        std::snprintf(code, sizeof code, isSimple ? "%c" : "\\0%03o", static_cast<uint8_t>(*at));
        argument.append(code, code + std::strlen(code));
    }
    HeapFree(GetProcessHeap(), 0, name);
    return argument;
}

bool StartShell(const std::wstring& picture, const std::wstring& status) {
    const std::wstring command = std::wstring(L"sh -c \"") + kScript + L"\" sh " + picture + L" " + status;
    return StartProcess({kShell, command, {}, 0});
}

// A file in the temporary folder that goes away with its owner.
class StatusFile {
  public:
    StatusFile() {
        wchar_t path[MAX_PATH];
        const std::wstring folder = TemporaryFolder();
        if (!folder.empty() && GetTempFileNameW(folder.c_str(), L"ink", 0, path)) path_ = path;
    }
    StatusFile(const StatusFile&) = delete;
    StatusFile& operator=(const StatusFile&) = delete;
    ~StatusFile() {
        if (!path_.empty()) DeleteFileW(path_.c_str());
    }

    const std::wstring& Path() const { return path_; }

    // True unless a failure was reported in time.
    bool WaitForSuccess() const {
        const uint32_t start = TickMilliseconds();
        std::string status;
        while (TickMilliseconds() - start < kPatienceMilliseconds) {
            if (ReadWholeFile(path_, status) && !status.empty()) return status[0] == '0';
            Pause(kPauseMilliseconds);
        }
        return true;
    }

  private:
    std::wstring path_;
};

}  // namespace

bool OpenLinuxMail(const std::wstring& hostPath) {
    const GetUnixName unixName = FindUnixName();
    const StatusFile status;
    if (!unixName || status.Path().empty()) return false;
    const std::wstring picture = LinuxArgument(unixName, hostPath);
    const std::wstring report = LinuxArgument(unixName, status.Path());
    if (picture.empty() || report.empty() || !StartShell(picture, report)) return false;
    return status.WaitForSuccess();
}

}  // namespace platform::windows
