// Session: the state that all objects of one session share: its stores, and what can be looked up in them.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "localstores/OpenStores.h"

namespace localstores {

/// A folder and the store that it belongs to and that keeps it alive.
struct FolderInStore {
    std::shared_ptr<Store> store;
    const Folder* folder = nullptr;  ///< null: none
};

/// Keeps the store of the list alive; null: none.
using AddressListRef = std::shared_ptr<const AddressList>;
std::vector<AddressListRef> ChildrenOf(const AddressListRef& list);

/// One of the stores is the default one as soon as there is one. Owned by shared pointers, used on one thread.
class Session : public std::enable_shared_from_this<Session> {
  public:
    /// The session in use on this thread, which is the first one alive that opened a path; null without one.
    static std::shared_ptr<Session> InUse();
    /// A new session with the sample mailbox.
    static std::shared_ptr<Session> OfSample();

    /// Adds the stores of the path and returns the default one of them, or the first. What is open
    /// already is not added again. Throws automation::Error, also when another path holds a store of the same
    /// identifier.
    std::shared_ptr<Store> Open(std::string_view path);

    const StoreList& Stores() const { return stores_; }
    /// Null when no store is open.
    std::shared_ptr<Store> DefaultStore() const;
    void SetDefault(const Store& store);

    // All take both forms of an identifier.

    /// Null when no store has it.
    std::shared_ptr<Store> Find(const EntryId& id) const;
    /// Looks in all stores.
    FolderInStore FindFolder(const EntryId& id) const;
    AddressListRef FindAddressList(const EntryId& id) const;

    /// In the default store.
    FolderInStore Default(DefaultFolder which) const;

    /// The address book: the top lists of all stores.
    std::vector<AddressListRef> AddressLists() const;
    /// All lists, each before those in it.
    std::vector<AddressListRef> AllAddressLists() const;
    AddressListRef FindAddressList(AddressListRole role) const;

  private:
    /// Opens the path without putting the session in use: nobody asked for the sample that a session begins with.
    std::shared_ptr<Store> Add(std::string_view path);

    StoreList stores_;
};

}  // namespace localstores
