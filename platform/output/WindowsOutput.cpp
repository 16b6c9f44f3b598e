#include <algorithm>

#include "platform/OutputFile.h"
#include "platform/output/Utf8.h"
#include "platform/output/WindowsHandle.h"

namespace platform {

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

std::string SystemErrorText(DWORD error) {
    wchar_t text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                                  0, text, static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
    return length > 0 ? ToUtf8({text, length}) : "error " + std::to_string(error);
}

namespace {

class WindowsOutput : public OutputFile {
  public:
    WindowsOutput(const std::string& path, bool replaces) : path_(FromUtf8(path)), replaces_(replaces) {}
    ~WindowsOutput() override {
        handle_.Close();
        if (!nameBeside_.empty()) DeleteFileW(nameBeside_.c_str());
    }

    bool Open(OutputFault& fault) {
        const DWORD attributes = GetFileAttributesW(path_.c_str());
        const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
        const bool isFolder = isThere && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (isFolder || (isThere && !replaces_)) {
            fault =
                isFolder ? OutputFault{false, "it is a folder"} : OutputFault{true, "it is there already"};
            return false;
        }
        std::wstring name = path_ + L"." + std::to_wstring(GetCurrentProcessId()) + L".tmp";
        if (!handle_.Open(name, GENERIC_WRITE, 0, CREATE_ALWAYS)) {
            fault.text = SystemErrorText(GetLastError());
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
    bool Flush() override {
        if (failure_ == ERROR_SUCCESS && FlushFileBuffers(handle_.Get()) == FALSE) failure_ = GetLastError();
        return failure_ == ERROR_SUCCESS;
    }
    bool PutInPlace(OutputFault& fault) override {
        handle_.Close();
        const DWORD flags = replaces_ ? MOVEFILE_REPLACE_EXISTING : 0;
        if (failure_ == ERROR_SUCCESS && MoveFileExW(nameBeside_.c_str(), path_.c_str(), flags) == FALSE) {
            failure_ = GetLastError();
        }
        if (failure_ == ERROR_SUCCESS) {
            nameBeside_.clear();
        } else {
            fault.text = SystemErrorText(failure_);
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

std::unique_ptr<OutputFile> OutputFile::Create(const std::string& hostPath, bool replaces,
                                               OutputFault& fault) {
    auto file = std::make_unique<WindowsOutput>(hostPath, replaces);
    if (!file->Open(fault)) return nullptr;
    return file;
}

}  // namespace platform
