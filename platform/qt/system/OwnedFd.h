#pragma once

#include <unistd.h>

#include <utility>

namespace platform::qt {

// A file descriptor that is closed with its owner.
class OwnedFd {
  public:
    explicit OwnedFd(int fd = -1) : fd_(fd) {}
    OwnedFd(OwnedFd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    OwnedFd& operator=(OwnedFd&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~OwnedFd() { Close(); }

    explicit operator bool() const { return fd_ >= 0; }
    int Get() const { return fd_; }
    void Close() {
        if (fd_ >= 0) close(std::exchange(fd_, -1));
    }

  private:
    int fd_;
};

}  // namespace platform::qt
