// StoreReader: what the refresh driver needs of an access mode.
#pragma once

#include <cstdint>

#include "automation/Object.h"
#include "common/ControlState.h"

namespace foldertree {

/// One access mode; docs/architecture.md has a table of how they differ. The driver is handed the readers and names no
/// mode. Unless said otherwise members may throw automation::Error, which ends the refresh with the driver's error
/// line.
class StoreReader {
  public:
    virtual ~StoreReader() = default;

    /// Stores the identifiers one by one; those read before an error stay.
    virtual void ReadDefaultFolders(DefaultFolderIDs& ids) = 0;

    /// Writes the mode's own trace line, if it has one for the whole refresh. False when the mode has no session, after
    /// having said so.
    virtual bool Begin() = 0;
    /// A collection with one object a store; walked once or twice.
    virtual automation::ObjectRef Stores() = 0;
    /// Whether the mode's collections are walked by position and not by their enumeration.
    virtual bool WalksByPosition() const { return false; }
    /// Whether the default store is read before the others.
    virtual bool DefaultStoreFirst() const = 0;
    virtual bool IsDefaultStore(const automation::ObjectRef& store) = 0;
    /// Writes the trace line that precedes each store, if the mode has one.
    virtual void TraceStore() = 0;

    /// Appends the store's row and its folders. Does not throw automation::Error.
    virtual void ReadStore(const automation::ObjectRef& store) = 0;
    /// Replaces the placeholder below the row by the folder's children. Does not throw automation::Error.
    virtual void ExpandNode(int32_t row) = 0;
};

/// Appends the address book's rows at the end of a refresh.
class AddressListReader {
  public:
    virtual ~AddressListReader() = default;
    virtual void GetAddressBook() = 0;  ///< does not throw automation::Error
};

}  // namespace foldertree
