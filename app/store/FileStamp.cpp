#include "app/store/FileStamp.h"

#include "platform/FileSystem.h"

namespace store {

FileStamp StampOf(const std::wstring& path) {
    FileStamp stamp;
    stamp.exists = platform::FileSize(path, stamp.size) && platform::LastWriteTime(path, stamp.lastWrite);
    return stamp.exists ? stamp : FileStamp();
}

bool operator==(const FileStamp& a, const FileStamp& b) {
    const auto numberOf = [](const platform::DateTime& time) {
        const int64_t days = (int64_t{time.year} * 12 + time.month) * 31 + time.day;
        return (((days * 24 + time.hour) * 60 + time.minute) * 60 + time.second) * 1000 + time.milliseconds;
    };
    return a.exists == b.exists && a.size == b.size && numberOf(a.lastWrite) == numberOf(b.lastWrite);
}

}  // namespace store
