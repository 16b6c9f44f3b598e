#include "pictures/LineArt.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "ink/PageHead.h"

namespace pictures {

std::vector<PenLine> LinesOf(ink::PenStyle style, double size) {
    switch (style) {
        case ink::PenStyle::Classic:
            return {{2, ink::kClassicRimShade}, {1, 0}};
        case ink::PenStyle::Simple:
            return {{std::max(1.0, std::floor(size)), 0}};
        case ink::PenStyle::Smooth:
            break;
    }
    return {{size, 0}};
}

ink::ColorRef ColorOf(const PenLine& line, ink::ColorRef color) {
    const ink::ColorRef plain = ink::MakeColor(ink::Red(color), ink::Green(color), ink::Blue(color));
    return line.shade == 0 ? plain : ink::Shade(plain, line.shade);
}

std::vector<HeadBar> HeadBarsOf(ink::ColorRef background, int32_t width) {
    const ink::HeadTones tones = ink::HeadTonesOf(background);
    return {{0, 0, width, ink::kHeadRows, tones.paper},
            {ink::kTitleMargin, ink::kTitleRow, width - 2 * ink::kTitleMargin, 1, tones.title},
            {0, ink::kHeadRows - 1, width, 1, tones.edge}};
}

std::string Decimal(double value, int places) {
    int64_t one = 1;
    for (int i = 0; i < places; ++i) one *= 10;
    const int64_t parts = std::llround(std::abs(value) * static_cast<double>(one));
    std::string fraction = std::to_string(one + parts % one).substr(1);
    while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
    const std::string sign = value < 0 && parts != 0 ? "-" : "";
    return sign + std::to_string(parts / one) + (fraction.empty() ? "" : "." + fraction);
}

}  // namespace pictures
