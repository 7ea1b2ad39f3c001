// ObjectReader: reads folders object by object: the walk and the expansion that three access modes share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/ControlContext.h"
#include "enumeration/NodeExpansion.h"
#include "enumeration/StoreReader.h"
#include "selection/SelectionView.h"

namespace foldertree {

/// What a mode decides by a plain choice. Each reader has one such table at the top of its source; what needs code is
/// in the virtual members of ObjectReader.
struct ObjectMode {
    std::string_view storeRowKind;
    std::string_view idMember;  ///< of stores and folders
    bool defaultStoreFirst;     ///< else the stores stay in the session's order
    bool rowsNameTheirStore;    ///< in colStoreID and in the key; else the folder's identifier alone is the key
    bool readsAtLimit;          ///< a folder at the level limit itself still has its children read
    bool walksByPosition;       ///< collections are walked by position, not by their enumeration
    ErrorLine storeLine;
    ErrorLine folderLine;
    ErrorLine expandLine;
};

/// Why a folder is read: the modes are more forgiving in a walk, or filter more.
enum class Reading { Walk, Expansion };

/// One folder while it is read.
struct ObjectFolder {
    explicit ObjectFolder(automation::ObjectRef folder, std::string store)
        : object(std::move(folder)), storeID(std::move(store)) {}

    automation::ObjectRef object;
    std::string storeID;  ///< starts as its store row's or node's; a mode may know better
    std::string name;
    std::string entryID;
    int32_t itemType = FTIMailItem;
    bool hasRow = true;                ///< false: not shown, though its subfolders are
    bool hasSubfolders = false;        ///< for modes that learn it with the folder
    automation::ObjectRef subfolders;  ///< once asked for
    int32_t subfolderCount = 0;
};

class ObjectReader : public StoreReader {
  public:
    ObjectReader(ControlContext& context, SelectionView& view, const ObjectMode& mode)
        : context_(context), view_(view), mode_(mode) {}

    bool DefaultStoreFirst() const final { return mode_.defaultStoreFirst; }
    bool WalksByPosition() const final { return mode_.walksByPosition; }
    void ReadStore(const automation::ObjectRef& store) final;
    void ExpandNode(int32_t row) final;

  protected:
    // Where the modes differ. All throw automation::Error.

    /// Whether the store's row shows the home picture.
    virtual bool IsHomeStore(const automation::ObjectRef& store, const std::string& storeID) = 0;
    /// The folder whose subfolders are the store's top-level folders.
    virtual automation::ObjectRef RootFolder(const automation::ObjectRef& store) = 0;
    /// The folder of a tree row.
    virtual automation::ObjectRef OpenFolder(const std::string& entryID, const std::string& storeID) = 0;
    /// Reads what the folder's row needs. False leaves the folder and everything below it out.
    virtual bool ReadFolder(ObjectFolder& folder, Reading reading) = 0;
    /// By default a folder has subfolders when it has a collection of them that is not empty.
    virtual bool HasSubfolders(ObjectFolder& folder);

    static std::string ReadText(const automation::ObjectRef& object, automation::Member member);

    ControlContext& context_;

  private:
    /// A folder whose subfolders are being walked, and those above it up to the store's root.
    struct Parent {
        const std::string& storeID;
        const std::string& entryID;
        const std::string& path;
        int32_t level = 0;
        const Parent* above = nullptr;

        bool IsBelow(const std::string& id) const;  ///< that folder, or is it itself
    };

    void GetFolders_Store(const automation::ObjectRef& store);
    void GetFolders_Folder(const Parent& parent, const automation::ObjectRef& object);
    bool MayDescend(int32_t level) const;

    void ReadChildren(ExpandedRows& rows);
    void ExpandChild(ExpandedRows& rows, const automation::ObjectRef& object, const std::string& storeID);

    /// Gets the collection and its count, unless that was done before.
    void GetSubfolders(ObjectFolder& folder);
    /// Visits each subfolder in the collection's order, with a step of the bar and a yield after each, until the user
    /// cancels.
    template <class Visit>
    void ForEachSubfolder(ObjectFolder& folder, Visit&& visit);
    void FillRow(int32_t row, int32_t level, const ObjectFolder& folder, const std::string& path);
    std::string KeyOf(const ObjectFolder& folder) const;

    SelectionView& view_;
    const ObjectMode& mode_;
};

}  // namespace foldertree
