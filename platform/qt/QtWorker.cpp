#include <system_error>

#include "platform/Worker.h"
#include "platform/qt/Application.h"

namespace platform {

using qt::Application;

struct Worker::Impl {
    std::function<void()> work;
    bool isDone = false;  // the queue of calls guards it
    bool isResumed = false;
    std::mutex mutex;  // of isResumed
    std::condition_variable resumed;
    std::thread thread;

    void Run() {
        {
            std::unique_lock lock(mutex);
            resumed.wait(lock, [this] { return isResumed; });
        }
        work();
        Application::The().Calls().Tell([this] { isDone = true; });
    }
    void Resume() {
        const std::lock_guard lock(mutex);
        isResumed = true;
        resumed.notify_all();
    }
};

Worker::Worker() = default;
Worker::~Worker() { Wait(); }

bool Worker::Create(std::function<void()> work) {
    if (impl_) return false;
    auto impl = std::make_unique<Impl>();
    impl->work = std::move(work);
    try {
        impl->thread = std::thread([state = impl.get()] { state->Run(); });
    } catch (const std::system_error&) {
        return false;
    }
    impl_ = std::move(impl);
    return true;
}

void Worker::Resume() {
    if (impl_) impl_->Resume();
}

void Worker::Wait() {
    if (!impl_) return;
    Resume();  // one that never ran would never end
    Application::The().Calls().RunUntil([this] { return impl_->isDone; });
    impl_->thread.join();
    impl_.reset();
}

}  // namespace platform
