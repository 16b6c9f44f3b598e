#pragma once

#include <functional>
#include <memory>

namespace platform {

// One thread beside the one that has the windows.
class Worker {
  public:
    Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    ~Worker();  // waits

    // Makes a thread that is to do `work` once resumed; `work` throws nothing. False when there is one
    // already or none can be had.
    bool Create(std::function<void()> work);
    void Resume();
    // From Create until Wait.
    bool Exists() const { return impl_ != nullptr; }
    // Waits until the work is done and lets the thread go. Messages that it sends to this thread's windows
    // are handled meanwhile, so that it can't wait for the one who waits for it.
    void Wait();

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
