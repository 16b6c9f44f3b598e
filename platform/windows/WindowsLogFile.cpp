#include <atomic>
#include <mutex>

#include "platform/LogFile.h"
#include "platform/windows/Guards.h"
#include "platform/windows/HandheldPath.h"

namespace platform {

namespace {

constexpr LONGLONG kFlushDelay = -10000LL * 400;  // 400 ms from now, in units of 100 ns

}  // namespace

// Flushing goes through a handle of its own: calls on one handle wait for each other, and the pen must not.
struct LogFile::Impl {
    windows::OwnedHandle file;
    windows::OwnedHandle flushing;
    PTP_TIMER timer = nullptr;
    std::atomic<bool> isFlushDue{false};
    std::atomic<bool> isDirty{false};
    std::mutex flushes;

    ~Impl() {
        if (!timer) return;
        SetThreadpoolTimer(timer, nullptr, 0, 0);
        WaitForThreadpoolTimerCallbacks(timer, TRUE);
        CloseThreadpoolTimer(timer);
    }

    static void CALLBACK FlushNow(PTP_CALLBACK_INSTANCE, void* context, PTP_TIMER) {
        auto* log = static_cast<Impl*>(context);
        log->isFlushDue = false;
        log->Flush(log->flushing.get());
    }

    bool Flush(HANDLE handle) {
        const std::lock_guard<std::mutex> oneAtATime(flushes);
        if (!isDirty.exchange(false) || FlushFileBuffers(handle)) return true;
        isDirty = true;
        return false;
    }

    void FlushSoon() {
        isDirty = true;
        if (!timer || isFlushDue.exchange(true)) return;
        LARGE_INTEGER due{};
        due.QuadPart = kFlushDelay;
        FILETIME when{due.LowPart, static_cast<DWORD>(due.HighPart)};
        SetThreadpoolTimer(timer, &when, 0, 0);
    }
};

LogFile::LogFile() = default;
LogFile::LogFile(LogFile&&) noexcept = default;
LogFile& LogFile::operator=(LogFile&&) noexcept = default;
LogFile::~LogFile() = default;

LogFile LogFile::Create(const std::wstring& path) {
    LogFile log;
    const std::wstring host = windows::ToHostPath(path);
    if (host.empty()) return log;
    const auto open = [&host](DWORD disposition) {
        return windows::OwnFile(CreateFileW(host.c_str(), GENERIC_WRITE, FILE_SHARE_WRITE, nullptr,
                                            disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    };
    auto impl = std::make_unique<Impl>();
    impl->file = open(CREATE_NEW);
    if (!impl->file) return log;
    impl->flushing = open(OPEN_EXISTING);
    if (impl->flushing) impl->timer = CreateThreadpoolTimer(Impl::FlushNow, impl.get(), nullptr);
    log.impl_ = std::move(impl);
    return log;
}

bool LogFile::Append(const void* bytes, size_t size) {
    DWORD written = 0;
    if (!impl_ || size > MAXDWORD) return false;
    if (!WriteFile(impl_->file.get(), bytes, static_cast<DWORD>(size), &written, nullptr) || written != size)
        return false;
    impl_->FlushSoon();
    return true;
}

bool LogFile::Flush() { return impl_ && impl_->Flush(impl_->file.get()); }

void LogFile::Close() { impl_.reset(); }

}  // namespace platform
