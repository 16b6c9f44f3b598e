#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "export/HostFiles.h"
#include "export/windows/Utf8.h"

namespace inkexport {

std::string ToUtf8(const std::wstring& text) {
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring FromUtf8(const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    std::wstring units(static_cast<size_t>(std::max(size, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, units.data(), size);
    return units;
}

namespace {

constexpr DWORD kLargestPiece = 1u << 30;

std::string ErrorText(DWORD error) {
    wchar_t text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                                  0, text, static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
    return length > 0 ? ToUtf8({text, length}) : "error " + std::to_string(error);
}

// An open file, closed with the object.
class Handle {
  public:
    Handle() = default;
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool Open(const std::wstring& path, DWORD access, DWORD share, DWORD disposition) {
        handle_ =
            CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
        return IsOpen();
    }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }
    void Close() {
        if (IsOpen()) CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

  private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

class HostNote : public ink::ByteSource {
  public:
    bool Open(const std::wstring& path) {
        return handle_.Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            OPEN_EXISTING);
    }
    bool Read(void* buffer, size_t size, size_t& got) override {
        for (got = 0; got < size;) {
            DWORD part = 0;
            const DWORD wanted = static_cast<DWORD>(std::min<size_t>(size - got, kLargestPiece));
            if (ReadFile(handle_.Get(), static_cast<char*>(buffer) + got, wanted, &part, nullptr) == FALSE)
                return false;
            if (part == 0) return true;
            got += part;
        }
        return true;
    }

  private:
    Handle handle_;
};

class WindowsOutput : public OutputFile {
  public:
    WindowsOutput(const std::string& path, bool replaces) : path_(FromUtf8(path)), replaces_(replaces) {}
    ~WindowsOutput() override {
        handle_.Close();
        if (!nameBeside_.empty()) DeleteFileW(nameBeside_.c_str());
    }

    bool Open(std::string& problem) {
        const DWORD attributes = GetFileAttributesW(path_.c_str());
        const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
        const bool isFolder = isThere && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (isFolder || (isThere && !replaces_)) {
            problem = isFolder ? "it is a folder" : "it is there already; --force replaces it";
            return false;
        }
        std::wstring name = path_ + L"." + std::to_wstring(GetCurrentProcessId()) + L".tmp";
        if (!handle_.Open(name, GENERIC_WRITE, 0, CREATE_ALWAYS)) {
            problem = ErrorText(GetLastError());
            return false;
        }
        nameBeside_ = std::move(name);
        return true;
    }
    bool Write(const void* data, size_t size) override {
        const char* bytes = static_cast<const char*>(data);
        while (size != 0 && failure_ == ERROR_SUCCESS) {
            DWORD part = 0;
            const DWORD wanted = static_cast<DWORD>(std::min<size_t>(size, kLargestPiece));
            if (WriteFile(handle_.Get(), bytes, wanted, &part, nullptr) == FALSE) failure_ = GetLastError();
            bytes += part;
            size -= part;
        }
        return failure_ == ERROR_SUCCESS;
    }
    bool PutInPlace(std::string& problem) override {
        handle_.Close();
        const DWORD flags = replaces_ ? MOVEFILE_REPLACE_EXISTING : 0;
        if (failure_ == ERROR_SUCCESS && MoveFileExW(nameBeside_.c_str(), path_.c_str(), flags) == FALSE) {
            failure_ = GetLastError();
        }
        if (failure_ == ERROR_SUCCESS) {
            nameBeside_.clear();
        } else {
            problem = ErrorText(failure_);
        }
        return failure_ == ERROR_SUCCESS;
    }

  private:
    std::wstring path_;
    const bool replaces_;
    Handle handle_;
    std::wstring nameBeside_;  // until it is in its place
    DWORD failure_ = ERROR_SUCCESS;
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
    problem = IsFolder(path) ? "it is a folder" : ErrorText(error);
    return nullptr;
}

std::unique_ptr<OutputFile> OutputFile::Create(const std::string& path, bool replaces, std::string& problem) {
    auto file = std::make_unique<WindowsOutput>(path, replaces);
    if (!file->Open(problem)) return nullptr;
    return file;
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
