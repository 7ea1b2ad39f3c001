// TracedTree: the rows of the control's tree, followed through its trace.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

struct TracedRow {
    int level = 0;
    std::wstring name;
    long itemType = -1;
    std::wstring key;          ///< as the `Key` of an item that is made from the row; empty for a store
    bool unread = false;       ///< has children that are read when the node is opened
    bool placeholder = false;  ///< stands for those children
};

/// The control has no member that lists its rows, so a host can know them only from what the control writes while it
/// reads folders. Stores appear under their plain names. What is open and what is closed is not traced.
class TracedTree {
  public:
    /// Takes one line of debugger output; lines that do not concern the tree are passed over.
    void Read(std::wstring_view line);

    /// In grid order, without the header row.
    const std::vector<TracedRow>& Rows() const { return rows_; }

    /// Two blanks a level; "[x]" before rows whose key is in `selectedKeys`, "+" after nodes that were not read.
    /// Control characters in names become blanks.
    std::string AsText(const std::set<std::wstring>& selectedKeys) const;

  private:
    void BeginRefresh();
    void BeginFolder(std::wstring_view text);
    void Insert(TracedRow row);
    void InsertPlaceholder();

    std::vector<TracedRow> rows_;
    std::wstring storeId_;
    TracedRow row_;           ///< the table row that is being read
    bool expanding_ = false;  ///< rows go below one node instead of to the end
    size_t place_ = 0;        ///< where the next row goes while expanding
};

}  // namespace demo
