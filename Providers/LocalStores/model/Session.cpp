// Session: opening stores and telling them apart.
#include "model/Session.h"

#include <algorithm>
#include <filesystem>
#include <mutex>
#include <thread>

#include "localstores/OpenFailure.h"
#include "model/FilePath.h"

namespace localstores {
namespace {

std::shared_ptr<Store> DefaultOf(const StoreList& stores) {
    const auto found = std::find_if(stores.begin(), stores.end(), [](const auto& store) { return store->IsDefault(); });
    return found == stores.end() ? nullptr : *found;
}

bool SamePlace(const std::string& a, const std::string& b) {
    std::error_code ignored;
    return a == b || std::filesystem::equivalent(PathOf(a), PathOf(b), ignored);
}

/// A session is not shared between threads, since neither its objects nor its stores are.
class SessionInUse {
  public:
    std::shared_ptr<Session> Get() const {
        const std::lock_guard lock(mutex_);
        return thread_ == std::this_thread::get_id() ? session_.lock() : nullptr;
    }
    void Offer(const std::shared_ptr<Session>& session) {
        const std::lock_guard lock(mutex_);
        if (!session_.expired()) return;
        session_ = session;
        thread_ = std::this_thread::get_id();
    }

  private:
    mutable std::mutex mutex_;
    std::weak_ptr<Session> session_;
    std::thread::id thread_;
};

SessionInUse sessionInUse;

void AppendWithChildren(std::vector<AddressListRef>& lists, const AddressListRef& list) {
    lists.push_back(list);
    for (const AddressListRef& child : ChildrenOf(list)) AppendWithChildren(lists, child);
}

template <class Condition>
AddressListRef FirstOf(const std::vector<AddressListRef>& lists, Condition&& condition) {
    const auto found = std::find_if(lists.begin(), lists.end(), condition);
    return found == lists.end() ? nullptr : *found;
}

}  // namespace

std::vector<AddressListRef> ChildrenOf(const AddressListRef& list) {
    std::vector<AddressListRef> children;
    for (const AddressList& child : list->children) children.emplace_back(list, &child);
    return children;
}

std::shared_ptr<Session> Session::InUse() {
    return sessionInUse.Get();
}

std::shared_ptr<Session> Session::OfSample() {
    auto session = std::make_shared<Session>();
    session->Add("sample");
    return session;
}

std::shared_ptr<Store> Session::Open(std::string_view path) {
    auto store = Add(path);
    sessionInUse.Offer(shared_from_this());
    return store;
}

std::shared_ptr<Store> Session::Add(std::string_view path) {
    const StoreList opened = OpenStores(path);
    for (const auto& store : opened) {
        auto known = Find(store->Id());
        if (known && SamePlace(known->Path(), store->Path())) return known;
        if (known) throw StoreCollision(path, "it is a copy of \"" + known->Path() + "\", which is open");
    }
    auto first = DefaultOf(opened) ? DefaultOf(opened) : opened.front();
    const auto formerDefault = DefaultStore();
    stores_.insert(stores_.end(), opened.begin(), opened.end());
    SetDefault(formerDefault ? *formerDefault : *first);
    return first;
}

std::shared_ptr<Store> Session::DefaultStore() const {
    return DefaultOf(stores_);
}

void Session::SetDefault(const Store& store) {
    for (const auto& each : stores_) each->SetDefault(each.get() == &store);
}

std::shared_ptr<Store> Session::Find(const EntryId& id) const {
    const EntryId sought = LongForm(id);
    const auto found =
        std::find_if(stores_.begin(), stores_.end(), [&](const auto& store) { return store->Id() == sought; });
    return found == stores_.end() ? nullptr : *found;
}

FolderInStore Session::FindFolder(const EntryId& id) const {
    for (const auto& store : stores_)
        if (const Folder* folder = store->Find(id)) return {store, folder};
    return {};
}

FolderInStore Session::Default(DefaultFolder which) const {
    const auto store = DefaultStore();
    if (!store) return {};
    return {store, store->Default(which)};
}

std::vector<AddressListRef> Session::AddressLists() const {
    std::vector<AddressListRef> lists;
    for (const auto& store : stores_)
        for (const AddressList& list : store->AddressLists()) lists.emplace_back(store, &list);
    return lists;
}

std::vector<AddressListRef> Session::AllAddressLists() const {
    std::vector<AddressListRef> lists;
    for (const AddressListRef& list : AddressLists()) AppendWithChildren(lists, list);
    return lists;
}

AddressListRef Session::FindAddressList(const EntryId& id) const {
    return FirstOf(AllAddressLists(), [&](const AddressListRef& list) { return list->id == LongForm(id); });
}

AddressListRef Session::FindAddressList(AddressListRole role) const {
    return FirstOf(AllAddressLists(), [&](const AddressListRef& list) { return list->role == role; });
}

}  // namespace localstores
