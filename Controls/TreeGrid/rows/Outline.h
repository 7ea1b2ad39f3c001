// Outline: which rows are shown when some nodes are closed.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace foldertree {

/// What the outline asks of the rows. Rows run from First() to Count() - 1.
class OutlineRows {
  public:
    struct Row {
        int32_t level = 0;
        bool closed = false;  ///< a node that is collapsed
    };
    virtual int32_t First() const = 0;
    virtual int32_t Count() const = 0;
    virtual Row At(int32_t row) const = 0;

  protected:
    ~OutlineRows() = default;
};

/// The rows that are not inside a closed node: those behind it that lie deeper, up to the next that does not. The list
/// is worked out from the top and only as far as it is asked for; a change invalidates it from its row on, so appended
/// rows extend it. The rows must outlive it. Only looking asks for memory; when there is none, it can be done again.
class Outline {
  public:
    explicit Outline(const OutlineRows& rows) : rows_(rows) {}

    /// The row's level or state changed, or rows were inserted or removed from it on. Appending rows needs no call.
    void Invalidate(int32_t row) noexcept;

    int32_t VisibleCount();
    /// The row number of the visible row at a 0-based position; nothing beyond the last.
    std::optional<int32_t> VisibleRow(int32_t position);
    /// Nothing for a hidden row.
    std::optional<int32_t> VisiblePosition(int32_t row);
    /// The row itself, or the closed node that hides it.
    int32_t VisibleAncestor(int32_t row);

    size_t MemoryUse() const { return visible_.capacity() * sizeof(int32_t); }

  private:
    void ScanOne();
    void ScanThroughRow(int32_t row);

    const OutlineRows& rows_;
    std::vector<int32_t> visible_;   ///< the visible rows among those scanned
    int32_t scanned_ = -1;           ///< the rows below it were looked at; -1 before the first
    std::optional<int32_t> hiding_;  ///< level of the closed node that the scan is inside of
};

}  // namespace foldertree
