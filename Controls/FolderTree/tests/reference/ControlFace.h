// ControlFace: the gestures and public members through which a sequence of events drives a control, and what is seen.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "automation/Object.h"
#include "common/GridColumns.h"

namespace foldertree::reference {

/// What a container has saved.
struct Settings {
    bool enabled = true;
    bool highlightContacts = false;
    bool highlightJournals = false;
    bool highlightTasks = false;
    bool multiSelect = true;
    bool allowIndexing = false;
    bool showAddressBook = false;
    int32_t extendToLevel = 0;
    int32_t mode = 0;
    bool operator==(const Settings&) const = default;
};

struct SeenCell {
    std::string text;
    int64_t backColor = -1;  ///< -1: the grid's own
    int64_t foreColor = -1;
    bool bold = false;
    int picture = 0;
    int pictureAlignment = 0;
    bool operator==(const SeenCell&) const = default;
};

struct SeenRow {
    std::array<SeenCell, gridColumnCount> cells;
    int32_t level = 0;
    bool isNode = false;
    int32_t state = 0;
    int32_t height = 0;
    bool operator==(const SeenRow&) const = default;
};

/// What is seen of the grid besides its rows.
struct SeenFrame {
    int32_t currentRow = 0;
    std::array<bool, gridColumnCount> hidden{};
    std::array<int32_t, gridColumnCount> dataTypes{};
    uint32_t backColor = 0;
    uint32_t textColor = 0;
    bool enabled = true;
    std::vector<int32_t> visibleRows;
    std::string untold;  ///< what changed without a notification
    bool operator==(const SeenFrame&) const = default;
};

struct SeenItem {
    std::string key, keyShort, keyAlternate;
    std::string storeID, entryID, entryIDShort, addressListID, name, path;
    bool isAddressList = false;
    bool incomplete = false;
    bool selected = false;
    int32_t index = 0;
    int32_t itemType = 0;
    int32_t folderRecID = 0;
    bool operator==(const SeenItem&) const = default;
};

/// Thrown by the literal control out of a yield or notification in which it was closed, up to whoever began the event.
struct ControlGone {};

/// A control: the one that ships, or the literal one. Items and collections are automation objects of its own making or
/// of its host's.
class ControlFace {
  public:
    virtual ~ControlFace() = default;

    // The user
    virtual bool ToggleTick(int32_t row) = 0;
    virtual bool MayEditIndex(int32_t row) = 0;
    virtual bool CommitIndex(int32_t row, const std::string& text) = 0;
    virtual void SetNode(int32_t row, bool open) = 0;
    virtual void DoubleClick(int32_t row) = 0;
    virtual void SetCurrentRow(int32_t row) = 0;
    virtual void cmdCancel_Click() = 0;

    // The host
    virtual void Close() = 0;
    virtual void Load(const Settings& settings) = 0;
    virtual void SetApplication(automation::ObjectRef application) = 0;
    virtual automation::ObjectRef CDOSession() = 0;
    virtual automation::ObjectRef GetMsgItem(const std::string& storeID, const std::string& entryID) = 0;
    virtual automation::ObjectRef GetAdListItem(const std::string& listID, const std::string& entryID) = 0;
    virtual void KillCollection(automation::ObjectRef& collection) = 0;
    virtual int32_t ListCount() = 0;
    virtual void SetSelectedItem(automation::ObjectRef item) = 0;
    virtual automation::ObjectRef SelectedItem() = 0;
    virtual void SetSelection(automation::ObjectRef collection) = 0;
    virtual automation::ObjectRef Selection() = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual void SetHighlight(int32_t itemType, bool highlight) = 0;  ///< of contacts 2, tasks 3 or journals 4
    virtual void SetExtendToLevel(int32_t level) = 0;
    virtual void SetRDOSessionRef(automation::ObjectRef session) = 0;
    virtual void SetMultiSelect(bool multiSelect) = 0;
    virtual void SetAllowIndexing(bool allowIndexing) = 0;
    virtual void SetShowAddressBook(bool show) = 0;
    virtual void SelectNone() = 0;
    virtual void SelectAll() = 0;
    virtual void SelectByType(int32_t type, bool additional) = 0;
    virtual void RefreshList() = 0;
    virtual void Localize(const std::string& index, const std::string& selection, const std::string& name,
                          const std::string& addressLists, const std::string& pleaseWait,
                          const std::string& cancel) = 0;
    virtual automation::ObjectRef CreateSelItem(int32_t recordID, const std::string& storeID,
                                                const std::string& entryID, const std::string& entryIDShort,
                                                const std::string& listID) = 0;
    virtual void SetInfoStoreAccessMode(int32_t mode) = 0;
    virtual int32_t BufferedToLevel() = 0;
    virtual void CollapseToSelection() = 0;
    virtual void CollapseToType(int32_t type) = 0;

    // What is seen
    virtual int32_t RowCount() const = 0;
    virtual std::string CellText(int32_t row, int col) const = 0;
    virtual SeenRow SeeRow(int32_t row) const = 0;
    virtual SeenFrame SeeFrame() = 0;
    virtual Settings SeeSettings() = 0;
    virtual bool Refreshing() const = 0;
    /// Null for an item that the control did not make.
    virtual const SeenItem* SeeItem(const automation::ObjectRef& item, SeenItem& seen) const = 0;
    /// An empty keyed collection such as the host's language has.
    virtual automation::ObjectRef NewCollection() = 0;
};

}  // namespace foldertree::reference
