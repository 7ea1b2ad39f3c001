// ListeningCopy: a copy of a grid's rows kept up by its notifications alone, as a window keeps what it shows.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "common/GridColors.h"
#include "common/GridColumns.h"
#include "reference/ControlFace.h"
#include "rows/TreeGrid.h"

namespace foldertree::reference {

SeenRow SeeGridRow(const TreeGrid& grid, int32_t row);
/// All but the visible rows.
SeenFrame SeeGridFrame(const TreeGrid& grid);

class ListeningCopy : private TreeGridObserver {
  public:
    explicit ListeningCopy(TreeGrid& grid);
    ~ListeningCopy() override;
    ListeningCopy(const ListeningCopy&) = delete;
    ListeningCopy& operator=(const ListeningCopy&) = delete;

    /// What is otherwise than at the last call although no notification said so; empty when all was told.
    std::string Untold();

  private:
    void GridChanged(const GridChanges& changes) noexcept override;
    void ForgetFrom(int32_t row);
    void LookAtOutlineFrom(int32_t row);

    TreeGrid& grid_;
    std::vector<std::optional<SeenRow>> rows_;  ///< nothing for a row that was told of and not looked at since
    std::optional<SeenFrame> frame_;
};

}  // namespace foldertree::reference
