// GridView: what gestures ask of whoever shows the grid.
#include "interaction/GridView.h"

#include <limits>

#include "rows/Colors.h"

namespace foldertree {
namespace {

class NoView final : public GridView {
  public:
    bool Shown() const override { return false; }
    int32_t PageRows() const override { return std::numeric_limits<int32_t>::max(); }
    void BringIntoView(int32_t) override {}
    void Scroll(GridScroll) override {}
    void Copy(const std::string&) override {}
    void OpenNumberBox(int32_t, const std::string&) override {}
    NumberBox* OpenedNumberBox() override { return nullptr; }
    void CloseNumberBox() override {}
};

}  // namespace

BoxKind BoxOf(const TreeGrid& grid, const RowHasBox& hasBox, int32_t row) {
    const int box = grid.Schema().box;
    if (box == GridSchema::none || (hasBox && !hasBox(grid, row))) return BoxKind::None;
    return grid.Look(row, box).backColor == colors::buttonFace ? BoxKind::Greyed : BoxKind::Plain;
}

GridView& NoGridView() {
    static NoView view;
    return view;
}

}  // namespace foldertree
