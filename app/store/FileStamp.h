#pragma once

#include <cstdint>
#include <string>

#include "platform/DateTime.h"

namespace store {

// What tells whether somebody has changed a file since it was looked at last.
struct FileStamp {
    bool exists = false;
    uint64_t size = 0;
    platform::DateTime lastWrite;
};

// Of a file that is not there, nothing.
FileStamp StampOf(const std::wstring& path);
bool operator==(const FileStamp& a, const FileStamp& b);

}  // namespace store
