#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "platform/DateTime.h"
#include "platform/File.h"

namespace platform::host {

// Upper case for comparing file names, whatever locale the test machine has: ASCII and Latin-1.
wchar_t UpperCase(wchar_t unit);

// Of the file system, and the last two of the settings and of the alarms.
enum class FileCall {
    Open,
    Create,
    Read,
    Write,
    Flush,
    List,
    MakeFolder,
    DropFolder,
    Erase,
    Move,
    Copy,
    Replace,
    Setting,
    Alarm
};

struct FileNode {
    std::wstring name;  // as it was created
    bool isFolder = false;
    std::string bytes;
    DateTime lastWrite;
    int readers = 0;
    bool sharedReaders = false;
    bool writer = false;
    size_t onDisk = 0;            // so many of its bytes were flushed
    std::vector<uint32_t> later;  // of a log: the tick of each byte that flushes itself
};

// The device's files, in memory: case-insensitive names, no sharing unless asked for, the handheld's
// forbidden characters, a storage size, and failures on demand.
class HostFileStore {
  public:
    HostFileStore();

    // Called before every operation; anything but None makes it fail so. Of what a failing write was to
    // write, one half is written.
    std::function<FileError(FileCall, const std::wstring& path)> fault;
    uint64_t capacity = UINT64_MAX;  // bytes of all files together
    std::wstring unreachable;        // a storage, or the documents folder, that does not answer now

    // For tests: whole files by path; folders above are made.
    void Put(const std::wstring& path, const std::string& bytes);
    void PutFolder(const std::wstring& path);
    bool Has(const std::wstring& path) const { return Find(path) != nullptr; }
    std::string Get(const std::wstring& path) const;
    // Names of all entries directly in a folder.
    std::vector<std::wstring> NamesIn(const std::wstring& folder) const;

    // For the port. Nodes live on while a File holds them.
    using NodePointer = std::shared_ptr<FileNode>;
    static std::wstring KeyOf(const std::wstring& path);
    static bool IsValidName(const std::wstring& path);
    NodePointer Find(const std::wstring& path) const;
    bool ParentExists(const std::wstring& path) const;
    // The entry of this key names a whole storage: nobody makes it.
    static bool IsStorage(const std::wstring& key);
    uint64_t UsedBytes() const;
    // What is left of a file when the device loses its power now: what was flushed, and of the rest nothing,
    // or any parts of it in any order, as the dice have it.
    static std::string BytesOnDisk(const FileNode& node, std::mt19937* dice = nullptr);
    FileError Fault(FileCall call, const std::wstring& path) const;
    std::map<std::wstring, NodePointer>& Nodes() { return nodes_; }
    const std::map<std::wstring, NodePointer>& Nodes() const { return nodes_; }

  private:
    bool Answers(const std::wstring& key) const;

    // By KeyOf: "\A\B" in capitals, "\\SERVER\SHARE\A" on a share; the root is "".
    std::map<std::wstring, NodePointer> nodes_;
};

}  // namespace platform::host
