#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace testing_support {

// Which call of a run is to fail: an allocator, a file system or a sink asks Strikes at each.
class Fault {
  public:
    Fault() : Fault(std::numeric_limits<int>::max()) {}  // none is
    explicit Fault(int nth) : nth_(nth) {}

    bool Strikes() { return ++calls_ == nth_; }
    bool HasStruck() const { return calls_ >= nth_; }

  private:
    const int nth_;
    int calls_ = 0;
};

// Runs with a fault at the first call, at the second and so on; the last run is the one without a fault.
// Returns how many calls can fail.
inline int SweepFaults(const std::function<void(Fault&)>& run, int mostCalls = 1000) {
    for (int nth = 1; nth <= mostCalls + 1; ++nth) {
        SCOPED_TRACE(testing::Message() << "call " << nth << " fails");
        Fault fault(nth);
        run(fault);
        if (!fault.HasStruck() || testing::Test::HasFatalFailure()) return nth - 1;
    }
    ADD_FAILURE() << "more than " << mostCalls << " calls";
    return mostCalls;
}

}  // namespace testing_support
