#include "bench/RatioLines.h"

#include <cstdio>

namespace bench {

RatioLines::RatioLines() {
    std::printf("| %-56s | %8s | %9s | %-4s | %-34s |\n", "what", "measured", "wanted", "met", "times");
    std::printf("|---|---:|---:|---|---|\n");
}

void RatioLines::Line(const std::string& what, double value, bool atLeast, double wanted,
                      const std::string& detail) {
    const bool met = atLeast ? value >= wanted : value <= wanted;
    allMet_ = allMet_ && met;
    std::printf("| %-56s | %8.2f | %s %6.2f | %-4s | %-34s |\n", what.c_str(), value,
                atLeast ? ">=" : "<=", wanted, met ? "yes" : "NO", detail.c_str());
}

std::string Against(double ours, double theirs) {
    char text[80];
    const bool tiny = ours < 1e-6;
    const double scale = tiny ? 1e9 : 1e6;
    const char* unit = tiny ? "ns" : "us";
    std::snprintf(text, sizeof text, "%.1f %s against %.1f %s", ours * scale, unit, theirs * scale, unit);
    return text;
}

}  // namespace bench
