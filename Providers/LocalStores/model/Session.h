// Session: the state that all objects of an RDO session share: its stores.
#pragma once

#include <memory>
#include <string_view>

#include "localstores/OpenStores.h"

namespace localstores {

/// One of the stores is the default one as soon as there is one.
class Session {
  public:
    /// Adds the stores of the path and returns the default one of them, or the first. What is open
    /// already is not added again. Throws automation::Error, also when another path holds a store of the same
    /// identifier.
    std::shared_ptr<Store> Open(std::string_view path);
    void Close() { stores_.clear(); }

    const StoreList& Stores() const { return stores_; }
    /// Null when no store is open.
    std::shared_ptr<Store> DefaultStore() const;
    void SetDefault(const Store& store);
    /// Takes both forms of an identifier; null when no store has it.
    std::shared_ptr<Store> Find(const EntryId& id) const;

  private:
    StoreList stores_;
};

}  // namespace localstores
