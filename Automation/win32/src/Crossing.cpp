// Crossing: the two tables that keep identities, one in each direction.
#include "automation_win32/Crossing.h"

#include <map>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

#include "automation_win32/ComObject.h"
#include "automation_win32/Module.h"
#include "automation_win32/ObjectDispatch.h"

namespace automation {

namespace {

/// Objects belong to one thread, so a COM object that several threads know has an Object on each.
using ForeignKey = std::pair<IUnknown*, DWORD>;

struct Tables {
    std::mutex mutex;  // apartments of one process share the module; calls are never made while it is held
    std::map<ForeignKey, std::weak_ptr<Object>> foreign;
    std::map<const Object*, IDispatch*> wrappers;  // they take themselves out before they go
    std::set<IDispatch*> own;                      // the wrappers again
    std::vector<WrapperMaker> makers;
};

Tables& TheTables() {
    static auto* const tables = new Tables;  // never destroyed: objects may outlive the statics
    return *tables;
}

/// Only what is in our table is asked for its object: the question would be a call to another process for a proxy.
ObjectRef HeldObject(IUnknown* pointer) {
    ComPtr<IDispatch> dispatch;
    if (FAILED(pointer->QueryInterface(IID_PPV_ARGS(dispatch.GetAddressOf())))) return nullptr;
    {
        const std::lock_guard lock(TheTables().mutex);
        if (!TheTables().own.contains(dispatch.Get())) return nullptr;
    }
    ComPtr<IObjectHolder> holder;
    ObjectRef object;
    if (SUCCEEDED(dispatch.As(&holder))) holder->GetHeldObject(ThisModule(), &object);
    return object;
}

/// COM's own identity: whatever interface was asked, IUnknown is the same pointer.
ComPtr<IUnknown> Identity(IUnknown* pointer) {
    ComPtr<IUnknown> identity;
    if (FAILED(pointer->QueryInterface(IID_PPV_ARGS(identity.GetAddressOf())))) identity = pointer;
    return identity;
}

ComPtr<IDispatch> FindWrapper(const Object* object) {
    Tables& tables = TheTables();
    const std::lock_guard lock(tables.mutex);
    const auto found = tables.wrappers.find(object);
    return found == tables.wrappers.end() ? nullptr : ComPtr<IDispatch>(found->second);
}

ComPtr<IDispatch> MakeWrapper(const ObjectRef& object) {
    std::vector<WrapperMaker> makers;
    {
        const std::lock_guard lock(TheTables().mutex);
        makers = TheTables().makers;
    }
    for (const WrapperMaker& maker : makers)
        if (ComPtr<IDispatch> wrapper = maker(object)) return wrapper;
    return MakeCom<ObjectDispatch>(object);
}

}  // namespace

ObjectRef FromCom(IUnknown* pointer) {
    if (pointer == nullptr) return nullptr;
    if (ObjectRef own = HeldObject(pointer)) return own;
    const ForeignKey key(Identity(pointer).Get(), GetCurrentThreadId());
    Tables& tables = TheTables();
    {
        const std::lock_guard lock(tables.mutex);
        const auto known = tables.foreign.find(key);
        if (known != tables.foreign.end())
            if (ObjectRef object = known->second.lock()) return object;
    }
    // The deleter, not the destructor, forgets it: only the deleter knows the key without asking the COM object again.
    const ObjectRef object(new ComObject(pointer), [key](Object* dying) {
        {
            Tables& owner = TheTables();
            const std::lock_guard lock(owner.mutex);
            const auto entry = owner.foreign.find(key);
            if (entry != owner.foreign.end() && entry->second.expired()) owner.foreign.erase(entry);
        }
        delete dying;
    });
    const std::lock_guard lock(tables.mutex);
    tables.foreign[key] = object;
    return object;
}

ComPtr<IUnknown> ToCom(const ObjectRef& object) {
    if (!object) return nullptr;
    if (const auto* foreign = dynamic_cast<const ComObject*>(object.get())) return foreign->Pointer();
    return ToDispatch(object);
}

ComPtr<IDispatch> ToDispatch(const ObjectRef& object) {
    if (!object) return nullptr;
    if (const auto* foreign = dynamic_cast<const ComObject*>(object.get())) return foreign->Dispatch();
    if (ComPtr<IDispatch> wrapper = FindWrapper(object.get())) return wrapper;
    return MakeWrapper(object);
}

void RegisterWrapperMaker(WrapperMaker maker) {
    Tables& tables = TheTables();
    const std::lock_guard lock(tables.mutex);
    tables.makers.push_back(std::move(maker));
}

WrapperEntry::WrapperEntry(const Object* object, IDispatch* wrapper) : object_(object), wrapper_(wrapper) {
    Tables& tables = TheTables();
    const std::lock_guard lock(tables.mutex);
    tables.own.insert(wrapper);
    try {
        tables.wrappers[object] = wrapper;
    } catch (...) {
        tables.own.erase(wrapper);
        throw;
    }
}

WrapperEntry::~WrapperEntry() {
    Tables& tables = TheTables();
    const std::lock_guard lock(tables.mutex);
    tables.wrappers.erase(object_);
    tables.own.erase(wrapper_);
}

}  // namespace automation
