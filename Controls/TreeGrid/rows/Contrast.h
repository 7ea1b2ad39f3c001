// Contrast: how well a text colour is read on its ground, and the nearest colour that is read well.
#pragma once

#include <cstdint>

namespace foldertree {

struct Rgb {
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;
    bool operator==(const Rgb&) const = default;
};

/// The least contrast at which text of ordinary size is read by people whose sight is not perfect (WCAG 2, level AA).
inline constexpr double readableContrast = 4.5;

/// The contrast ratio of WCAG 2: from 1 (the same colour) to 21 (black and white), in either order.
double Contrast(Rgb a, Rgb b);

/// The text colour itself where it has readableContrast on the ground; otherwise one that has, nearer to black or to
/// white, whichever stands out more.
Rgb ReadableOn(Rgb ground, Rgb text);

}  // namespace foldertree
