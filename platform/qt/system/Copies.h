#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "platform/qt/system/OwnedFd.h"

// Other running copies of this program: each listens at a socket in the user's runtime folder and tells of
// its windows.
namespace platform::qt {

struct PostedMessage {
    enum class Kind { Command, Private, Show };  // Show: the window is to come to the front

    Kind kind = Kind::Command;
    uint32_t window = 0;  // as SetWindow() was told; 0 of Show: whichever is on top
    uint32_t code = 0;    // the command's id, or the private message
};

// What makes this process one that others find, as long as it lives. Has a thread of its own, so that a copy
// that is busy answers all the same.
class Copies {
  public:
    // Called in that thread for each message: `handler` is to hand it on to the window's own.
    using Handler = std::function<void(const PostedMessage& message)>;

    explicit Copies(Handler handler);
    Copies(const Copies&) = delete;
    Copies& operator=(const Copies&) = delete;
    ~Copies();

    // A top-level window, or what has become of it. The number is the caller's, not 0, and not used twice.
    // Exactly one window is `foreground`, in the copy that the user works with.
    void SetWindow(uint32_t window, bool enabled, bool foreground);
    void RemoveWindow(uint32_t window);

  private:
    struct State {
        bool enabled;
        bool foreground;
    };

    void Serve();
    void Answer(int peer);
    std::string List();

    Handler handler_;
    std::string path_;
    OwnedFd socket_;
    OwnedFd ending_;
    std::mutex lock_;
    std::map<uint32_t, State> windows_;
    std::thread thread_;
};

// Has all copies of that program come to the front; false when none runs.
bool ShowCopiesOf(const std::string& programFile);

}  // namespace platform::qt
