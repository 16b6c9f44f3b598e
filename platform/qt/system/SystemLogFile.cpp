#include <fcntl.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

#include "platform/LogFile.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/HeldFile.h"
#include "platform/qt/system/UserFolders.h"

namespace platform {

namespace {

constexpr std::chrono::milliseconds kFlushDelay{400};
constexpr std::chrono::milliseconds kTryAgain{5000};  // a disk that took nothing

}  // namespace

// A thread of its own flushes: the pen must not wait for the disk.
struct LogFile::Impl {
    qt::OwnedFd file;
    std::string folder;
    std::mutex state;
    std::condition_variable changed;
    bool isDirty = true;  // its name is not on the disk yet
    bool isEnding = false;
    std::mutex flushes;
    bool isFolderFlushed = false;  // under `flushes`
    std::thread flusher;

    ~Impl() {
        {
            const std::lock_guard<std::mutex> guard(state);
            isEnding = true;
        }
        changed.notify_one();
        if (flusher.joinable()) flusher.join();
    }

    void FlushFromTimeToTime() {
        std::unique_lock<std::mutex> guard(state);
        while (!isEnding) {
            changed.wait(guard, [this] { return isDirty || isEnding; });
            if (changed.wait_for(guard, kFlushDelay, [this] { return isEnding; })) return;
            guard.unlock();
            const bool isFlushed = Flush();
            guard.lock();
            if (!isFlushed) changed.wait_for(guard, kTryAgain, [this] { return isEnding; });
        }
    }

    bool Flush() {
        const std::lock_guard<std::mutex> oneAtATime(flushes);
        if (!SetDirty(false)) return true;
        isFolderFlushed = isFolderFlushed || qt::FlushFolder(folder);
        if (isFolderFlushed && fdatasync(file.Get()) == 0) return true;
        SetDirty(true);
        return false;
    }

    bool SetDirty(bool dirty) {
        const std::lock_guard<std::mutex> guard(state);
        return std::exchange(isDirty, dirty);
    }
};

LogFile::LogFile() = default;
LogFile::LogFile(LogFile&&) noexcept = default;
LogFile& LogFile::operator=(LogFile&&) noexcept = default;
LogFile::~LogFile() = default;

LogFile LogFile::Create(const std::wstring& path) {
    LogFile log;
    const std::string host = qt::ToHostPath(path);
    if (host.empty() || path.back() == L'\\' || !qt::MayBeMade(host)) return log;
    auto impl = std::make_unique<Impl>();
    impl->file = qt::OpenHeld(host, O_WRONLY | O_CREAT | O_EXCL | O_APPEND, qt::Hold::Alone);
    if (!impl->file) return log;
    impl->folder = qt::FolderOf(host);
    try {
        impl->flusher = std::thread([raw = impl.get()] { raw->FlushFromTimeToTime(); });
    } catch (const std::system_error&) {
        // Then only who asks for it has the log flushed.
    }
    log.impl_ = std::move(impl);
    return log;
}

bool LogFile::Append(const void* bytes, size_t size) {
    if (!impl_ || !qt::WriteAll(impl_->file.Get(), bytes, size)) return false;
    impl_->SetDirty(true);
    impl_->changed.notify_one();
    return true;
}

bool LogFile::Flush() { return impl_ && impl_->Flush(); }

void LogFile::Close() { impl_.reset(); }

}  // namespace platform
