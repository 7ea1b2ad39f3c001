// RdoTabReader: the access mode that reads folders from the MAPI hierarchy tables of an RDO session.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/ControlContext.h"
#include "enumeration/HierarchyTable.h"
#include "enumeration/NodeExpansion.h"
#include "enumeration/StoreReader.h"
#include "selection/SelectionView.h"

namespace foldertree {

class RdoTabReader : public StoreReader {
  public:
    RdoTabReader(ControlContext& context, SelectionView& view) : context_(context), view_(view) {}

    void ReadDefaultFolders(DefaultFolderIDs& ids) override;
    bool Begin() override { return true; }
    automation::ObjectRef Stores() override;
    bool DefaultStoreFirst() const override { return true; }
    bool IsDefaultStore(const automation::ObjectRef& store) override;
    void TraceStore() override { context_.Trace("Mode: RDO_MAPITables"); }
    void ReadStore(const automation::ObjectRef& store) override { GetFolders_Store_RDOTab(store); }
    void ExpandNode(int32_t row) override;

  private:
    /// The store being walked, with the identifiers of the folders from its root down to the one being read.
    struct StoreWalk {
        std::string storeID;
        std::vector<std::string> ancestors;
    };

    bool GetFolders_Store_RDOTab(const automation::ObjectRef& store);
    bool GetFolders_Folder_RDOTab(StoreWalk& walk, const automation::ObjectRef& parent, int32_t level,
                                  const std::string& parentPath);
    /// False when something of the row could not be read; the walk goes on with the next one.
    bool WalkRow(StoreWalk& walk, HierarchyTable& table, const automation::Value& row, std::string_view indent,
                 int32_t level, const std::string& parentPath);
    bool WalkChildren(StoreWalk& walk, const ChildFolder& child, RowHandle row, int32_t level, const std::string& path);
    bool MayDescend(int32_t level) const;

    void ReadChildren(ExpandedRows& rows);
    void ExpandRow(ExpandedRows& rows, HierarchyTable& table, const automation::Value& row);
    void TraceNode(int32_t row);

    automation::ObjectRef OpenFolder(const std::string& entryID);
    std::string ProviderName(const automation::ObjectRef& store);
    void FillRow(int32_t row, int32_t level, const std::string& storeID, const ChildFolder& child,
                 const std::string& path);

    ControlContext& context_;
    SelectionView& view_;
};

}  // namespace foldertree
