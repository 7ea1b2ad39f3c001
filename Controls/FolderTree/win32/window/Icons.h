// Icons: what the pictures of the tree look like.
#pragma once

#include <windows.h>

#include <array>

#include "common/Pictures.h"
#include "layout/GridLayout.h"
#include "win32/GridPictures.h"

namespace foldertree {

/// The icons in this module's resources. Those of one size are loaded when one of them is first drawn; owns its
/// bitmaps.
class Icons final : public GridPictures {
  public:
    Icons() = default;
    ~Icons() override;
    Icons(const Icons&) = delete;
    Icons& operator=(const Icons&) = delete;

    /// Draws the icon that was made for the square's size, or else the next larger one. `picture` is a Picture.
    void Draw(HDC dc, int picture, const RECT& square, bool pale) const noexcept override;

  private:
    /// All pictures of a size beside each other.
    struct Strip {
        int size;
        HBITMAP bitmap = nullptr;
    };
    const Strip* StripFor(int size) const noexcept;

    mutable std::array<Strip, iconSizes.size()> strips_ = [] {
        std::array<Strip, iconSizes.size()> strips{};
        for (size_t i = 0; i < strips.size(); ++i) strips[i].size = iconSizes[i];
        return strips;
    }();
};

}  // namespace foldertree
