#include "platform/qt/CallQueue.h"

#include <utility>

namespace platform::qt {

void CallQueue::Send(const std::function<void()>& call) {
    if (std::this_thread::get_id() == home_) return call();
    Call waiting{call};
    std::unique_lock lock(mutex_);
    waiting_.push_back(&waiting);
    changed_.notify_all();
    wake_();
    changed_.wait(lock, [&waiting] { return waiting.isDone; });
}

void CallQueue::Run() {
    std::unique_lock lock(mutex_);
    while (!waiting_.empty()) {
        Call* next = waiting_.front();
        waiting_.pop_front();
        Make(*next, lock);
    }
}

void CallQueue::RunUntil(const std::function<bool()>& isOver) {
    std::unique_lock lock(mutex_);
    Finish(current_);
    while (!isOver()) {
        if (waiting_.empty()) {
            changed_.wait(lock);
            continue;
        }
        Call* next = waiting_.front();
        waiting_.pop_front();
        Make(*next, lock);
    }
}

void CallQueue::Tell(const std::function<void()>& change) {
    const std::lock_guard lock(mutex_);
    change();
    changed_.notify_all();
}

// The call may be answered before it returns, and is then its caller's to forget: what is made is a copy.
void CallQueue::Make(Call& call, std::unique_lock<std::mutex>& lock) {
    Call* outer = std::exchange(current_, &call);
    const std::function<void()> make = call.make;
    lock.unlock();
    make();
    lock.lock();
    Finish(current_);
    current_ = outer;
}

void CallQueue::Finish(Call*& call) {
    if (call == nullptr) return;
    call->isDone = true;
    call = nullptr;
    changed_.notify_all();
}

}  // namespace platform::qt
