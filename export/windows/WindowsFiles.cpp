#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "export/HostFiles.h"
#include "platform/output/Utf8.h"
#include "platform/output/WindowsHandle.h"

namespace inkexport {

using platform::FromUtf8;

namespace {

class HostNote : public ink::ByteSource {
  public:
    bool Open(const std::wstring& path) {
        return handle_.Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            OPEN_EXISTING);
    }
    bool Read(void* buffer, size_t size, size_t& got) override {
        for (got = 0; got < size;) {
            DWORD part = 0;
            const DWORD wanted = static_cast<DWORD>(std::min<size_t>(size - got, platform::kLargestPiece));
            if (ReadFile(handle_.Get(), static_cast<char*>(buffer) + got, wanted, &part, nullptr) == FALSE)
                return false;
            if (part == 0) return true;
            got += part;
        }
        return true;
    }

  private:
    platform::Handle handle_;
};

}  // namespace

bool IsFolder(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(FromUtf8(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

std::unique_ptr<ink::ByteSource> OpenNote(const std::string& path, std::string& problem) {
    auto note = std::make_unique<HostNote>();
    if (note->Open(FromUtf8(path))) return note;
    const DWORD error = GetLastError();
    problem = IsFolder(path) ? "it is a folder" : platform::SystemErrorText(error);
    return nullptr;
}

void Print(const std::string& text) { std::fputs(text.c_str(), stdout); }
void PrintError(const std::string& text) { std::fputs(text.c_str(), stderr); }

// Older consoles don't know how to wipe a line.
bool ErrorsAreSeen() {
    const HANDLE console = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) != FALSE &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

}  // namespace inkexport
