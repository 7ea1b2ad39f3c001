// Geometry: points, sizes and rectangles in pixels, and lengths for a resolution, for code that knows no window.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <type_traits>

namespace foldertree {

// A system's own structures with the same members turn into these and back by themselves.

template <typename S>
concept SystemPoint = std::is_aggregate_v<S> && requires(S s) {
    s.x;
    s.y;
};
template <typename S>
concept SystemSize = std::is_aggregate_v<S> && requires(S s) {
    s.cx;
    s.cy;
};
template <typename S>
concept SystemRect = std::is_aggregate_v<S> && requires(S s) {
    s.left;
    s.top;
    s.right;
    s.bottom;
};

struct Point {
    int x = 0;
    int y = 0;

    constexpr Point() = default;
    template <std::integral N>
    constexpr Point(N across, N down) : x(static_cast<int>(across)), y(static_cast<int>(down)) {}
    template <SystemPoint S>
    constexpr Point(const S& point) : Point(point.x, point.y) {}
    template <SystemPoint S>
    constexpr operator S() const {
        return {x, y};
    }
};

struct Size {
    int cx = 0;
    int cy = 0;

    constexpr Size() = default;
    template <std::integral N>
    constexpr Size(N width, N height) : cx(static_cast<int>(width)), cy(static_cast<int>(height)) {}
    template <SystemSize S>
    constexpr Size(const S& size) : Size(size.cx, size.cy) {}
    template <SystemSize S>
    constexpr operator S() const {
        return {cx, cy};
    }
    bool operator==(const Size&) const = default;
};

/// Right and bottom are outside, as usual.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    constexpr Rect() = default;
    constexpr Rect(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}
    template <SystemRect S>
    constexpr Rect(const S& area)
        : Rect(static_cast<int>(area.left), static_cast<int>(area.top), static_cast<int>(area.right),
               static_cast<int>(area.bottom)) {}
    template <SystemRect S>
    constexpr operator S() const {
        return {left, top, right, bottom};
    }
    bool operator==(const Rect&) const = default;

    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
};

inline constexpr int usualDpi = 96;

/// A resolution that can be worked with: what a screen or a test claims may be nonsense.
constexpr int SaneDpi(int dpi) {
    constexpr int highest = 10000;
    return dpi <= 0 ? usualDpi : std::min(dpi, highest);
}

/// A length for 96 dots per inch, at `dpi`.
constexpr int Scale(int length, int dpi) {
    return static_cast<int>((int64_t{length} * dpi + usualDpi / 2) / usualDpi);
}

}  // namespace foldertree
