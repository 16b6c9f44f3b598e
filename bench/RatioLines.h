// The lines of a table of measured ratios beside the wanted ones.
#pragma once

#include <string>

namespace bench {

class RatioLines {
  public:
    RatioLines();  // prints the head

    void Line(const std::string& what, double value, bool atLeast, double wanted, const std::string& detail);
    bool AllMet() const { return allMet_; }

  private:
    bool allMet_ = true;
};

// "a us against b us", or in ns when ours is tiny; both in seconds.
std::string Against(double ours, double theirs);

}  // namespace bench
