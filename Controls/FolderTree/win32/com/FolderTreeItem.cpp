// FolderTreeItem: the COM class clsFolderTreeItem around an item of the core.
#include "win32/com/FolderTreeItem.h"

#include <ocidl.h>

#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Module.h"
#include "win32/com/TypeLibrary.h"

namespace foldertree {

using automation::ComBoundary;
using automation::ComPtr;

namespace {

HRESULT Give(LONG* to, LONG value) {
    if (to == nullptr) return E_POINTER;
    *to = value;
    return S_OK;
}

HRESULT Give(VARIANT_BOOL* to, bool value) {
    if (to == nullptr) return E_POINTER;
    *to = value ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT Give(BSTR* to, const std::string& value) {
    if (to == nullptr) return E_POINTER;
    *to = nullptr;
    return ComBoundary([&] {
        *to = automation::ToBstr(value);
        return S_OK;
    });
}

class FolderTreeItem final
    : public automation::ComBase<_clsFolderTreeItem, automation::IObjectHolder, IProvideClassInfo> {
  public:
    explicit FolderTreeItem(ItemRef item) : item_(std::move(item)), entry_(item_.get(), this) {}

    // IDispatch
    STDMETHOD(GetTypeInfoCount)(UINT* count) override { return dispatch_.GetTypeInfoCount(count); }
    STDMETHOD(GetTypeInfo)(UINT index, LCID, ITypeInfo** info) override { return dispatch_.GetTypeInfo(index, info); }
    STDMETHOD(GetIDsOfNames)(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        return dispatch_.GetIDsOfNames(names, count, ids);
    }
    STDMETHOD(Invoke)
    (DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
     UINT* badArgument) override {
        return dispatch_.Invoke(static_cast<_clsFolderTreeItem*>(this), member, flags, parameters, result, exception,
                                badArgument);
    }

    // _clsFolderTreeItem
    STDMETHOD(get_Incomplete)(VARIANT_BOOL* value) override { return Give(value, item_->Incomplete()); }
    STDMETHOD(get_IsAddressList)(VARIANT_BOOL* value) override { return Give(value, item_->IsAddressList()); }
    STDMETHOD(get_Key)(BSTR* value) override { return GiveKey(value, &clsFolderTreeItem::Key); }
    STDMETHOD(get_Selected)(VARIANT_BOOL* value) override { return Give(value, item_->Selected()); }
    STDMETHOD(get_StoreID)(BSTR* value) override { return Give(value, item_->StoreID()); }
    STDMETHOD(get_EntryID)(BSTR* value) override { return Give(value, item_->EntryID()); }
    STDMETHOD(get_AddressListID)(BSTR* value) override { return Give(value, item_->AddressListID()); }
    STDMETHOD(get_EntryIDShort)(BSTR* value) override { return Give(value, item_->EntryIDShort()); }
    STDMETHOD(get_Name)(BSTR* value) override { return Give(value, item_->Name()); }
    STDMETHOD(get_Path)(BSTR* value) override { return Give(value, item_->Path()); }
    STDMETHOD(put_Index)(LONG value) override {
        item_->SetIndex(value);
        return S_OK;
    }
    STDMETHOD(get_Index)(LONG* value) override { return Give(value, item_->Index()); }
    STDMETHOD(get_ItemType)(::enuFTIItemType* value) override {
        if (value == nullptr) return E_POINTER;
        *value = static_cast<::enuFTIItemType>(item_->ItemType());
        return S_OK;
    }
    STDMETHOD(get_KeyShortEntryID)(BSTR* value) override { return GiveKey(value, &clsFolderTreeItem::KeyShortEntryID); }
    STDMETHOD(get_KeyAlternate)(BSTR* value) override { return GiveKey(value, &clsFolderTreeItem::KeyAlternate); }
    STDMETHOD(get_FolderRecID)(LONG* value) override { return Give(value, item_->FolderRecID()); }

    // IProvideClassInfo
    STDMETHOD(GetClassInfo)(ITypeInfo** info) override { return GiveTypeInfo(__uuidof(::clsFolderTreeItem), info); }

    // IObjectHolder
    HRESULT STDMETHODCALLTYPE GetHeldObject(const void* module, automation::ObjectRef* object) noexcept override {
        if (module != automation::ThisModule()) return E_NOINTERFACE;
        *object = item_;
        return S_OK;
    }

  protected:
    void* FindInterface(REFIID iid) override {
        return iid == __uuidof(IDispatch) ? static_cast<_clsFolderTreeItem*>(this) : nullptr;
    }

  private:
    HRESULT GiveKey(BSTR* to, std::string (clsFolderTreeItem::*key)() const) const {
        return ComBoundary([&] { return Give(to, (item_.get()->*key)()); });
    }

    static constexpr TypeInfoDispatch dispatch_{__uuidof(_clsFolderTreeItem)};
    const ItemRef item_;
    const automation::WrapperEntry entry_;
};

}  // namespace

void RegisterItemClass() {
    static const bool once = [] {
        automation::RegisterWrapperMaker([](const automation::ObjectRef& object) -> ComPtr<IDispatch> {
            auto item = std::dynamic_pointer_cast<clsFolderTreeItem>(object);
            if (item == nullptr) return nullptr;
            return automation::MakeCom<FolderTreeItem>(std::move(item));
        });
        return true;
    }();
    (void)once;
}

ComPtr<_clsFolderTreeItem> ToItemObject(const ItemRef& item) {
    ComPtr<_clsFolderTreeItem> object;
    if (item != nullptr) automation::Check(automation::ToCom(item).As(&object));
    return object;
}

ItemRef FromItemObject(IUnknown* object) {
    if (object == nullptr) return nullptr;
    auto item = std::dynamic_pointer_cast<clsFolderTreeItem>(automation::FromCom(object));
    if (item == nullptr) throw automation::VbError(automation::errors::typeMismatch);
    return item;
}

}  // namespace foldertree
