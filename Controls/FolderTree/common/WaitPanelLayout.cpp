// WaitPanelLayout: where the wait panel stands in the control, and what it holds in the panel.
#include "common/WaitPanelLayout.h"

#include <algorithm>

namespace foldertree {
namespace {

/// Lengths of the panel that do not depend on the area.
struct Lengths {
    explicit Lengths(const WaitPanelMetrics& metrics)
        : dpi(SaneDpi(metrics.dpi)),
          line(std::clamp(metrics.lineHeight, Scale(8, dpi), Scale(200, dpi))),
          textWidth(std::clamp(metrics.buttonTextWidth, 0, Scale(1000, dpi))) {}

    int Scaled(int length) const { return Scale(length, dpi); }

    int dpi;
    int line;
    int textWidth;
};

/// Parts that would stand outside lose what is outside.
Rect Inside(const Rect& part, const Size& panel) {
    const int right = std::clamp(part.right, 0, panel.cx);
    const int bottom = std::clamp(part.bottom, 0, panel.cy);
    return {std::clamp(part.left, 0, right), std::clamp(part.top, 0, bottom), right, bottom};
}

Rect Middle(const Size& area, const Size& panel) {
    const int left = (area.cx - panel.cx) / 2;
    const int top = (area.cy - panel.cy) / 2;
    return {left, top, left + panel.cx, top + panel.cy};
}

/// Label, path, bar and button below each other.
WaitPanelLayout Roomy(Size area, const Lengths& lengths) {
    const int width = std::min(area.cx, std::clamp(area.cx / 2, lengths.Scaled(320), lengths.Scaled(560)));
    const int margin = lengths.Scaled(14);
    const int edge = lengths.Scaled(12);
    const int gap = lengths.Scaled(7);
    const int textHeight = lengths.line + lengths.Scaled(2);
    const int buttonWidth = std::max(lengths.Scaled(84), lengths.textWidth + lengths.Scaled(24));
    const int buttonHeight = std::max(lengths.Scaled(26), lengths.line + lengths.Scaled(10));
    WaitPanelLayout layout;
    layout.label = {margin, edge, width - margin, edge + textHeight};
    const int pathTop = layout.label.bottom + gap;
    layout.path = {margin, pathTop, width - margin, pathTop + textHeight};
    const int barTop = layout.path.bottom + gap;
    layout.bar = {margin, barTop, width - margin, barTop + lengths.Scaled(14)};
    const int buttonTop = layout.bar.bottom + 2 * gap;
    layout.button = {(width - buttonWidth) / 2, buttonTop, (width + buttonWidth) / 2, buttonTop + buttonHeight};
    layout.panel = Middle(area, {width, layout.button.bottom + edge});
    return layout;
}

/// The button beside the label, then path and bar, as low as it can be read.
WaitPanelLayout Tight(Size area, const Lengths& lengths) {
    const int margin = lengths.Scaled(6);
    const int edge = lengths.Scaled(4);
    const int gap = lengths.Scaled(2);
    const int buttonHeight = lengths.line + lengths.Scaled(5);
    const int barHeight = lengths.Scaled(6);
    const int height = 2 * edge + buttonHeight + lengths.line + barHeight + 2 * gap;
    // Of a narrow control as much as can be had, but for a strip at each side.
    const Size panel{std::min(std::max(0, area.cx - 2 * edge), lengths.Scaled(320)), std::min(area.cy, height)};
    const int right = panel.cx - margin;
    const int buttonWidth = std::min(lengths.textWidth + lengths.Scaled(16), std::max(0, panel.cx / 2));
    WaitPanelLayout layout;
    layout.panel = Middle(area, panel);
    int top = edge;
    layout.button = {right - buttonWidth, top, right, top + buttonHeight};
    const int labelTop = top + (buttonHeight - lengths.line) / 2;
    layout.label = {margin, labelTop, layout.button.left - margin, labelTop + lengths.line};
    top += buttonHeight + gap;
    layout.path = {margin, top, right, top + lengths.line};
    top += lengths.line + gap;
    layout.bar = {margin, top, right, top + barHeight};
    return layout;
}

}  // namespace

WaitPanelLayout WaitPanelLayout::For(Size area, const WaitPanelMetrics& metrics) {
    area = {std::max(0, area.cx), std::max(0, area.cy)};
    const Lengths lengths(metrics);
    const int rowsInSight = 2 * (lengths.line + lengths.Scaled(6));
    WaitPanelLayout layout = Roomy(area, lengths);
    if (area.cx < lengths.Scaled(260) || area.cy < layout.panel.Height() + rowsInSight) layout = Tight(area, lengths);
    const Size panel{layout.panel.Width(), layout.panel.Height()};
    for (Rect* part : {&layout.label, &layout.path, &layout.bar, &layout.button}) *part = Inside(*part, panel);
    return layout;
}

}  // namespace foldertree
