// Contrast: how well a text colour is read on its ground, and the nearest colour that is read well.
#include "rows/Contrast.h"

#include <algorithm>
#include <cmath>

namespace foldertree {
namespace {

/// The light of one channel, from 0 to 1, as sRGB encodes it.
double Light(uint8_t channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Rgb color) {
    return 0.2126 * Light(color.red) + 0.7152 * Light(color.green) + 0.0722 * Light(color.blue);
}

Rgb Mix(Rgb a, Rgb b, int percentOfB) {
    const auto channel = [percentOfB](int x, int y) {
        return static_cast<uint8_t>((x * (100 - percentOfB) + y * percentOfB) / 100);
    };
    return {channel(a.red, b.red), channel(a.green, b.green), channel(a.blue, b.blue)};
}

}  // namespace

double Contrast(Rgb a, Rgb b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Rgb ReadableOn(Rgb ground, Rgb text) {
    constexpr Rgb black{0, 0, 0};
    constexpr Rgb white{255, 255, 255};
    constexpr int step = 5;
    if (Contrast(ground, text) >= readableContrast) return text;
    const Rgb end = Contrast(ground, black) >= Contrast(ground, white) ? black : white;
    int percent = step;
    while (percent < 100 && Contrast(ground, Mix(text, end, percent)) < readableContrast) percent += step;
    return Mix(text, end, percent);
}

}  // namespace foldertree
