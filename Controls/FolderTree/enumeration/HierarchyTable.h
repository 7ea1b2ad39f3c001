// HierarchyTable: reads a folder's children from its MAPI hierarchy table, all properties of many children at once.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "automation/Object.h"
#include "common/ControlContext.h"
#include "common/Enumerations.h"

namespace foldertree {

/// One child folder as its table row tells it. A cell that is missing, or holds an error or something unusable, leaves
/// the default; `typeNames` says what the first four cells held.
struct ChildFolder {
    int32_t folderType = 1;
    bool hasChildren = false;
    std::string messageClass = "IPM.Note";
    std::string name;
    std::array<std::string_view, 4> typeNames;
    std::string entryID;       ///< long form; hexadecimal
    std::string entryIDShort;  ///< short form
    enuFTIItemType itemType = FTIMailItem;

    /// The identifier by which the child is opened: the long form, the short one when that is missing.
    const std::string& OpeningID() const { return entryID.empty() ? entryIDShort : entryID; }
};

/// Reads one table from its first row to its last, writing the trace lines of each step behind the given indent.
/// Throws automation::Error.
class HierarchyTable {
  public:
    HierarchyTable(ControlContext& context, std::string_view indent) : context_(context), indent_(indent) {}

    /// Gets the table of the folder's children, sorted by name where the table can be sorted, and its first rows.
    void Open(const automation::ObjectRef& folder);

    /// The next row, or null after the last one. A table that delivers fewer rows than it has (servers cap one call at
    /// about 32 kB) is asked again. Valid until the next call.
    const automation::Value* NextRow();

    /// Takes a row's cells up to the name, classifies the folder and traces what was read. False, without a further
    /// line, for a class that stands for no item type: such a folder is not shown.
    bool ReadChild(const automation::Value& row, int32_t level, ChildFolder& child);
    /// Takes the two identifiers and traces them.
    void ReadIdentifiers(const automation::Value& row, ChildFolder& child);

  private:
    bool SetUp(const automation::ObjectRef& folder, bool sorted);
    void Fetch();
    void TraceBounds();

    ControlContext& context_;
    std::string_view indent_;
    automation::ObjectRef table_;
    int32_t rowsLeft_ = 0;
    automation::Value batch_;
    size_t next_ = 0;
};

}  // namespace foldertree
