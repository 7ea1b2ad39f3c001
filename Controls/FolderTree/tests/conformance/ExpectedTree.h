// ExpectedTree: the tree that a mailbox is to give in a mode, written down from the mailbox and the table of
// differences alone.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "conformance/GridRows.h"
#include "conformance/ModeDifferences.h"
#include "modes/ModeMailbox.h"

namespace foldertree::testing {

/// What the host has set.
struct TreeSettings {
    int32_t extendToLevel = 0;
    bool showAddressBook = false;
    bool highlightContacts = false;
    bool highlightJournals = false;
    bool highlightTasks = false;
};

class ExpectedTree {
  public:
    ExpectedTree(const ModeMailbox& mailbox, const ModeDifferences& mode, TreeSettings settings = {});

    /// The rows after a refresh, the header row first.
    const std::vector<GridRow>& Rows() const { return rows_; }
    /// Opens the first row with that name, which was not read.
    void Expand(std::string_view name);
    void ExpandRow(size_t row);
    /// Opens every row that was not read, until there is none.
    void ExpandAll();

  private:
    /// A row of a folder, and which folder that is; stores and others have none.
    struct Source {
        const ModeStore* store = nullptr;
        const ModeFolder* folder = nullptr;
    };

    void AddStore(const ModeStore& store);
    void WalkFolder(const ModeStore& store, const ModeFolder& folder, int level, const std::string& parentPath);
    void AddAddressLists(const std::vector<ModeAddressList>& lists, int level);

    std::vector<const ModeFolder*> ChildrenOf(const std::vector<ModeFolder>& children) const;
    int32_t TypeOf(const ModeFolder& folder) const;
    bool IsPassedOver(const ModeFolder& folder) const;
    bool HasRowInWalk(const ModeFolder& folder) const;
    bool IsReadAt(int level) const;
    GridRow Band(std::string_view kind, std::string_view name) const;
    GridRow FolderRow(const ModeStore& store, const ModeFolder& folder, int level, const std::string& path) const;
    Picture PictureFor(const ModeFolder& folder) const;
    void MarkUnread(size_t row);
    void Insert(size_t row, GridRow gridRow, Source source);

    const ModeMailbox& mailbox_;
    const ModeDifferences& mode_;
    TreeSettings settings_;
    std::vector<GridRow> rows_;
    std::vector<Source> sources_;
};

}  // namespace foldertree::testing
