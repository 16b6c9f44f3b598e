#pragma once

namespace platform {

// What the program itself puts into a control is not reported back as the user's change: a window's mark of
// that, set for as long as this lives.
class FillingControls {
  public:
    explicit FillingControls(bool& mark) : mark_(mark), before_(mark) { mark_ = true; }
    FillingControls(const FillingControls&) = delete;
    FillingControls& operator=(const FillingControls&) = delete;
    ~FillingControls() { mark_ = before_; }

  private:
    bool& mark_;
    bool before_;
};

}  // namespace platform
