// Icons: what the pictures of the tree look like.
#pragma once

#include <windows.h>

#include <array>

#include "common/Pictures.h"
#include "layout/GridLayout.h"
#include "win32/GridPictures.h"

namespace foldertree {

/// The icons in this module's resources, each loaded when it is first drawn; owns its bitmaps.
class Icons final : public GridPictures {
  public:
    Icons() = default;
    ~Icons() override;
    Icons(const Icons&) = delete;
    Icons& operator=(const Icons&) = delete;

    /// Draws the icon that was made for the square's size, or else the next larger one. `picture` is a Picture.
    void Draw(HDC dc, int picture, const RECT& square, bool pale) const noexcept override;

  private:
    using OfOneSize = std::array<HBITMAP, pictureCount>;
    mutable std::array<OfOneSize, iconSizes.size()> bitmaps_{};
};

}  // namespace foldertree
