#include "app/store/FileStamp.h"

#include <tuple>

#include "platform/FileSystem.h"

namespace store {

FileStamp StampOf(const std::wstring& path) {
    FileStamp stamp;
    stamp.exists = platform::FileSize(path, stamp.size) && platform::LastWriteTime(path, stamp.lastWrite);
    return stamp.exists ? stamp : FileStamp();
}

bool operator==(const FileStamp& a, const FileStamp& b) {
    const auto valueOf = [](const FileStamp& stamp) {
        const platform::DateTime& time = stamp.lastWrite;
        return std::make_tuple(stamp.exists, stamp.size, time.year, time.month, time.day, time.hour,
                               time.minute, time.second, time.milliseconds);
    };
    return valueOf(a) == valueOf(b);
}

}  // namespace store
