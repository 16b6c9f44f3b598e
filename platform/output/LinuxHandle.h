#pragma once

#include <unistd.h>

namespace platform {

// An open file, closed with the object.
class Handle {
  public:
    explicit Handle(int number) : number_(number) {}
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool IsOpen() const { return number_ >= 0; }
    int Number() const { return number_; }
    bool Close() {
        const int number = number_;
        number_ = -1;
        return number < 0 || ::close(number) == 0;
    }
    void Take(int number) {
        Close();
        number_ = number;
    }

  private:
    int number_;
};

}  // namespace platform
