#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace platform::qt {

// Calls that other threads make into the thread of the windows. Made in that thread.
class CallQueue {
  public:
    // `wake` is called by other threads, to have Run called soon in the windows' thread.
    explicit CallQueue(std::function<void()> wake) : wake_(std::move(wake)) {}

    // Returns when `call` was made in the windows' thread; it throws nothing. At once from that thread.
    void Send(const std::function<void()>& call);
    // Makes the calls that wait.
    void Run();
    // Goes on making calls until `isOver` says so, which is asked under the lock of `Tell`. A call that is
    // being made just now counts as made: who made it may be the one that is waited for.
    void RunUntil(const std::function<bool()>& isOver);
    // Changes what RunUntil asks for.
    void Tell(const std::function<void()>& change);

  private:
    struct Call {
        std::function<void()> make;
        bool isDone = false;
    };
    void Make(Call& call, std::unique_lock<std::mutex>& lock);
    void Finish(Call*& call);

    const std::thread::id home_ = std::this_thread::get_id();
    std::function<void()> wake_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Call*> waiting_;
    Call* current_ = nullptr;  // null again once its caller need not wait any more
};

}  // namespace platform::qt
