// WaitPanelLayout: where the wait panel stands in the control, and what it holds in the panel.
#pragma once

#include "layout/Geometry.h"

namespace foldertree {

/// What the sizes of the wait panel follow, in pixels.
struct WaitPanelMetrics {
    int dpi = usualDpi;
    int lineHeight = 13;      ///< of its font
    int buttonTextWidth = 0;  ///< of the button's caption
};

/// The panel in the middle of an area. Where there is room its four parts stand below each other; in a small area the
/// button stands beside the label. Either way rows of the tree stay in sight above or below it, as long as the area is
/// higher than the panel, and nothing is ever outside the panel or the panel outside the area.
struct WaitPanelLayout {
    Rect panel;                     ///< in the area
    Rect label, path, bar, button;  ///< in the panel

    static WaitPanelLayout For(Size area, const WaitPanelMetrics& metrics);
};

}  // namespace foldertree
