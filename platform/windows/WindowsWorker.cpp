#include "platform/Worker.h"
#include "platform/windows/Guards.h"

namespace platform {

struct Worker::Impl {
    std::function<void()> work;
    windows::OwnedHandle thread;
};

namespace {

DWORD WINAPI Run(void* work) {
    (*static_cast<std::function<void()>*>(work))();
    return 0;
}

}  // namespace

Worker::Worker() = default;
Worker::~Worker() { Wait(); }

bool Worker::Create(std::function<void()> work) {
    if (impl_) return false;
    auto impl = std::make_unique<Impl>();
    impl->work = std::move(work);
    impl->thread.reset(CreateThread(nullptr, 0, Run, &impl->work, CREATE_SUSPENDED, nullptr));
    if (!impl->thread) return false;
    impl_ = std::move(impl);
    return true;
}

void Worker::Resume() {
    if (impl_) ResumeThread(impl_->thread.get());
}

void Worker::Wait() {
    if (!impl_) return;
    Resume();  // one that never ran would never end
    // What is being handled right now may be the worker's own message.
    if (InSendMessage()) ReplyMessage(0);
    const HANDLE thread = impl_->thread.get();
    while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_SENDMESSAGE) == WAIT_OBJECT_0 + 1) {
        MSG none;
        PeekMessageW(&none, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);  // handles what was sent
    }
    impl_.reset();
}

}  // namespace platform
