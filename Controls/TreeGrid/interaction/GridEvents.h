// GridEvents: the grid's notifications, by which its owner hears of gestures and can refuse them.
#pragma once

#include <cstdint>

namespace foldertree {

/// The five notifications of the grid. `cancel` set to true refuses what the user is about to do. Whoever is told may
/// change the grid, or end what shows it.
class GridEvents {
  public:
    virtual ~GridEvents() = default;
    virtual void fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel) = 0;
    virtual void fgd_ValidateEdit(int32_t row, int32_t col, bool& cancel) = 0;
    virtual void fgd_AfterEdit(int32_t row, int32_t col) = 0;
    virtual void fgd_BeforeCollapse(int32_t row, int16_t state, bool& cancel) = 0;
    virtual void fgd_DblClick() = 0;
};

}  // namespace foldertree
