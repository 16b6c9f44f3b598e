// The work is done in one go when the program next waits for an event: no second thread, so that every run is
// the same. What can happen between is what its own messages and calls bring about.
#include "platform/Worker.h"
#include "platform/host/HostDevice.h"

namespace platform {

using host::HostDevice;

namespace {

struct Job {
    std::function<void()> work;
    bool isBegun = false;

    void Do() {
        if (isBegun) return;
        isBegun = true;
        work();
    }
};

}  // namespace

struct Worker::Impl {
    std::shared_ptr<Job> job;
};

Worker::Worker() = default;
Worker::~Worker() { Wait(); }

bool Worker::Create(std::function<void()> work) {
    if (impl_ || HostDevice::Current().desk.workersFail) return false;
    impl_ = std::make_unique<Impl>();
    impl_->job = std::make_shared<Job>();
    impl_->job->work = std::move(work);
    return true;
}

void Worker::Resume() {
    if (impl_) HostDevice::Current().desk.Post(nullptr, [job = impl_->job] { job->Do(); });
}

void Worker::Wait() {
    if (!impl_) return;
    impl_->job->Do();
    impl_.reset();
}

}  // namespace platform
