// VbaCollection: Visual Basic's interface of a collection, and our own collection as an object of it.
#include "win32/com/VbaCollection.h"

#include <memory>
#include <string_view>

#include "automation/KeyedCollection.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Module.h"
#include "automation_win32/ObjectDispatch.h"
#include "automation_win32/Variant.h"

namespace foldertree {

using automation::ComBoundary;
using automation::ComPtr;
using automation::KeyedCollection;
using automation::Value;

namespace {

/// The numbers that Visual Basic's library gives the members; `Item` is the default.
struct Number {
    std::string_view name;
    DISPID number;
};
constexpr Number numbers[] = {{"Item", DISPID_VALUE}, {"Add", 1}, {"Count", 2}, {"Remove", 3}};

const Number* Find(std::string_view name) {
    for (const Number& entry : numbers)
        if (automation::SameMember(entry.name, name)) return &entry;
    return nullptr;
}

const Number* Find(DISPID number) {
    for (const Number& entry : numbers)
        if (entry.number == number) return &entry;
    return nullptr;
}

Value Argument(const VARIANT* argument) {
    return argument != nullptr ? automation::FromVariant(*argument) : Value(automation::Missing());
}

class CollectionObject final : public automation::ComBase<VbaCollection, automation::IObjectHolder> {
  public:
    explicit CollectionObject(std::shared_ptr<KeyedCollection> collection)
        : collection_(std::move(collection)), entry_(collection_.get(), this) {}

    // IDispatch
    STDMETHOD(GetTypeInfoCount)(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    STDMETHOD(GetTypeInfo)(UINT, LCID, ITypeInfo** info) override {
        if (info != nullptr) *info = nullptr;
        return DISP_E_BADINDEX;
    }
    STDMETHOD(GetIDsOfNames)(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        const HRESULT result = automation::NumbersOfNames(*collection_, names, count, ids);
        if (FAILED(result)) return result;
        return ComBoundary([&] {
            if (const Number* entry = Find(automation::FromWide(names[0]))) ids[0] = entry->number;
            return result;
        });
    }
    STDMETHOD(Invoke)
    (DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
     UINT*) override {
        // The call may release the last reference to this object.
        const automation::ObjectRef collection = collection_;
        const Number* const entry = member != DISPID_VALUE ? Find(member) : nullptr;
        DISPID known = member;
        if (entry != nullptr) {
            const HRESULT found = ComBoundary([&] {
                known = automation::NumberOfName(entry->name);
                return S_OK;
            });
            if (FAILED(found)) return found;
        }
        return automation::InvokeObject(collection, known, flags, parameters, result, exception);
    }

    // VbaCollection
    STDMETHOD(Item)(VARIANT* index, VARIANT* item) override {
        if (item == nullptr) return E_POINTER;
        VariantInit(item);
        return Run(
            [&](KeyedCollection& collection) { automation::ToVariant(collection.Item(Argument(index)), *item); });
    }
    STDMETHOD(Add)(VARIANT* item, VARIANT* key, VARIANT* before, VARIANT* after) override {
        if (item == nullptr) return E_POINTER;
        return Run([&](KeyedCollection& collection) {
            collection.Add(Argument(item), Argument(key), Argument(before), Argument(after));
        });
    }
    STDMETHOD(Count)(LONG* count) override {
        if (count == nullptr) return E_POINTER;
        *count = collection_->Count();
        return S_OK;
    }
    STDMETHOD(Remove)(VARIANT* index) override {
        return Run([&](KeyedCollection& collection) { collection.Remove(Argument(index)); });
    }
    STDMETHOD(NewEnum)(IUnknown** enumerator) override {
        if (enumerator == nullptr) return E_POINTER;
        *enumerator = nullptr;
        return ComBoundary([&] {
            *enumerator = automation::MakeEnumVariant(collection_).Detach();
            return S_OK;
        });
    }

    // IObjectHolder
    HRESULT STDMETHODCALLTYPE GetHeldObject(const void* module, automation::ObjectRef* object) noexcept override {
        if (module != automation::ThisModule()) return E_NOINTERFACE;
        *object = collection_;
        return S_OK;
    }

  protected:
    void* FindInterface(REFIID iid) override {
        return iid == __uuidof(IDispatch) ? static_cast<IDispatch*>(this) : nullptr;
    }

  private:
    /// The end of an item may release this object.
    template <class Body>
    HRESULT Run(Body&& body) const noexcept {
        const auto collection = collection_;
        return ComBoundary([&] {
            body(*collection);
            return S_OK;
        });
    }

    const std::shared_ptr<KeyedCollection> collection_;
    const automation::WrapperEntry entry_;
};

}  // namespace

void RegisterCollectionClass() {
    static const bool once = [] {
        automation::RegisterWrapperMaker([](const automation::ObjectRef& object) -> ComPtr<IDispatch> {
            auto collection = std::dynamic_pointer_cast<KeyedCollection>(object);
            if (collection == nullptr) return nullptr;
            return automation::MakeCom<CollectionObject>(std::move(collection));
        });
        return true;
    }();
    (void)once;
}

}  // namespace foldertree
