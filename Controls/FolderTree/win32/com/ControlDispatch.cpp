// ControlDispatch: the control's own interface, early and late bound.
#include "win32/com/ControlDispatch.h"

#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"
#include "win32/com/CollectionVariable.h"
#include "win32/com/ControlObject.h"
#include "win32/com/FolderTreeItem.h"
#include "win32/com/LateBoundArguments.h"

namespace foldertree {

using automation::FromBstr;
using automation::ObjectRef;

namespace {

constexpr TypeInfoDispatch typeInfo{__uuidof(_ctlFolderTree)};

}  // namespace

ControlDispatch::ControlDispatch(ControlObject& object) : ComPart(object), object_(object) {}

// ---- Late binding

HRESULT ControlDispatch::GetTypeInfoCount(UINT* count) {
    return typeInfo.GetTypeInfoCount(count);
}

HRESULT ControlDispatch::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    return typeInfo.GetTypeInfo(index, info);
}

HRESULT ControlDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    return typeInfo.GetIDsOfNames(names, count, ids);
}

HRESULT ControlDispatch::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                EXCEPINFO* exception, UINT* badArgument) {
    if (parameters == nullptr) return E_POINTER;
    const ControlObject::Use use(object_);
    LateBoundArguments arguments(member, flags, *parameters);
    return typeInfo.Invoke(static_cast<_ctlFolderTree*>(this), member, arguments.Flags(), arguments.Parameters(),
                           result, exception, badArgument);
}

// ---- Conversions

template <class Body>
HRESULT ControlDispatch::Run(Body&& body) noexcept {
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] {
        body(object_.Core());
        return S_OK;
    });
}

HRESULT ControlDispatch::Give(IDispatch** to, ObjectRef (ctlFolderTree::*get)()) noexcept {
    if (to == nullptr) return E_POINTER;
    *to = nullptr;
    return Run([&](ctlFolderTree& core) { *to = automation::ToDispatch((core.*get)()).Detach(); });
}

HRESULT ControlDispatch::Give(VARIANT_BOOL* to, bool (ctlFolderTree::*get)()) noexcept {
    if (to == nullptr) return E_POINTER;
    return Run([&](ctlFolderTree& core) { *to = (core.*get)() ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT ControlDispatch::Give(LONG* to, int32_t (ctlFolderTree::*get)()) noexcept {
    if (to == nullptr) return E_POINTER;
    return Run([&](ctlFolderTree& core) { *to = (core.*get)(); });
}

template <class MakeItem>
HRESULT ControlDispatch::GiveItem(_clsFolderTreeItem** to, MakeItem&& makeItem) noexcept {
    if (to == nullptr) return E_POINTER;
    *to = nullptr;
    return Run([&](ctlFolderTree& core) { *to = ToItemObject(makeItem(core)).Detach(); });
}

HRESULT ControlDispatch::Take(IUnknown* value, void (ctlFolderTree::*set)(ObjectRef)) noexcept {
    return Run([&](ctlFolderTree& core) { (core.*set)(automation::FromCom(value)); });
}

HRESULT ControlDispatch::Take(VARIANT_BOOL value, void (ctlFolderTree::*set)(bool)) noexcept {
    return Run([&](ctlFolderTree& core) { (core.*set)(value != VARIANT_FALSE); });
}

// ---- The members, in interface order

HRESULT ControlDispatch::putref_Application(IDispatch* value) {
    return Take(value, &ctlFolderTree::SetApplication);
}

HRESULT ControlDispatch::get_Application(IDispatch** value) {
    return Give(value, &ctlFolderTree::Application);
}

HRESULT ControlDispatch::get_CDOSession(IDispatch** value) {
    return Give(value, &ctlFolderTree::CDOSession);
}

HRESULT ControlDispatch::putref_Font(IFontDisp* value) {
    return Take(value, &ctlFolderTree::SetFont);
}

HRESULT ControlDispatch::get_Font(IFontDisp** value) {
    if (value == nullptr) return E_POINTER;
    *value = nullptr;
    return Run([&](ctlFolderTree& core) {
        const auto font = automation::ToDispatch(core.Font());
        if (font) automation::Check(font->QueryInterface(__uuidof(IFontDisp), reinterpret_cast<void**>(value)));
    });
}

HRESULT ControlDispatch::GetMsgItem(BSTR sStoreID, BSTR sEntryID, _clsFolderTreeItem** item) {
    return GiveItem(item, [&](ctlFolderTree& core) { return core.GetMsgItem(FromBstr(sStoreID), FromBstr(sEntryID)); });
}

HRESULT ControlDispatch::GetAdListItem(BSTR sAdListID, BSTR sAdListEntryID, _clsFolderTreeItem** item) {
    return GiveItem(
        item, [&](ctlFolderTree& core) { return core.GetAdListItem(FromBstr(sAdListID), FromBstr(sAdListEntryID)); });
}

HRESULT ControlDispatch::KillCollection(VARIANT* oColl) {
    return Run([&](ctlFolderTree& core) {
        CollectionVariable variable(oColl);
        ObjectRef collection = variable.Get();
        core.KillCollection(collection);
        if (collection == nullptr) variable.SetNothing();
    });
}

HRESULT ControlDispatch::get_ListCount(LONG* value) {
    return Give(value, &ctlFolderTree::ListCount);
}

HRESULT ControlDispatch::putref_SelectedItem(_clsFolderTreeItem* value) {
    return Run([&](ctlFolderTree& core) { core.SetSelectedItem(FromItemObject(value)); });
}

HRESULT ControlDispatch::get_SelectedItem(_clsFolderTreeItem** value) {
    return GiveItem(value, [](ctlFolderTree& core) { return core.SelectedItem(); });
}

HRESULT ControlDispatch::putref_Selection(IDispatch* value) {
    return Take(value, &ctlFolderTree::SetSelection);
}

HRESULT ControlDispatch::get_Selection(IDispatch** value) {
    return Give(value, &ctlFolderTree::Selection);
}

HRESULT ControlDispatch::get_Enabled(VARIANT_BOOL* value) {
    return Give(value, &ctlFolderTree::Enabled);
}

HRESULT ControlDispatch::put_Enabled(VARIANT_BOOL value) {
    return Take(value, &ctlFolderTree::SetEnabled);
}

HRESULT ControlDispatch::get_HighlightContactFolders(VARIANT_BOOL* value) {
    return Give(value, &ctlFolderTree::HighlightContactFolders);
}

HRESULT ControlDispatch::put_HighlightContactFolders(VARIANT_BOOL value) {
    return Take(value, &ctlFolderTree::SetHighlightContactFolders);
}

HRESULT ControlDispatch::get_HighlightJournalFolders(VARIANT_BOOL* value) {
    return Give(value, &ctlFolderTree::HighlightJournalFolders);
}

HRESULT ControlDispatch::put_HighlightJournalFolders(VARIANT_BOOL value) {
    return Take(value, &ctlFolderTree::SetHighlightJournalFolders);
}

HRESULT ControlDispatch::get_ExtendToLevel(LONG* value) {
    return Give(value, &ctlFolderTree::ExtendToLevel);
}

HRESULT ControlDispatch::put_ExtendToLevel(LONG value) {
    return Run([&](ctlFolderTree& core) { core.SetExtendToLevel(value); });
}

HRESULT ControlDispatch::get_RDOSessionRef(IDispatch** value) {
    return Give(value, &ctlFolderTree::RDOSessionRef);
}

HRESULT ControlDispatch::putref_RDOSessionRef(IDispatch* value) {
    return Take(value, &ctlFolderTree::SetRDOSessionRef);
}

HRESULT ControlDispatch::get_MultiSelect(VARIANT_BOOL* value) {
    return Give(value, &ctlFolderTree::MultiSelect);
}

HRESULT ControlDispatch::put_MultiSelect(VARIANT_BOOL value) {
    return Take(value, &ctlFolderTree::SetMultiSelect);
}

HRESULT ControlDispatch::get_AllowIndexing(VARIANT_BOOL* value) {
    return Give(value, &ctlFolderTree::AllowIndexing);
}

HRESULT ControlDispatch::put_AllowIndexing(VARIANT_BOOL value) {
    return Take(value, &ctlFolderTree::SetAllowIndexing);
}

HRESULT ControlDispatch::get_ShowAddressBook(VARIANT_BOOL* value) {
    return Give(value, &ctlFolderTree::ShowAddressBook);
}

HRESULT ControlDispatch::put_ShowAddressBook(VARIANT_BOOL value) {
    return Take(value, &ctlFolderTree::SetShowAddressBook);
}

HRESULT ControlDispatch::SelectNone() {
    return Run([](ctlFolderTree& core) { core.SelectNone(); });
}

HRESULT ControlDispatch::SelectAll() {
    return Run([](ctlFolderTree& core) { core.SelectAll(); });
}

HRESULT ControlDispatch::SelectByType(::enuFTIItemType eType, VARIANT_BOOL bAdditional) {
    return Run([&](ctlFolderTree& core) {
        core.SelectByType(static_cast<enuFTIItemType>(eType), bAdditional != VARIANT_FALSE);
    });
}

HRESULT ControlDispatch::RefreshList() {
    return Run([](ctlFolderTree& core) { core.RefreshList(); });
}

HRESULT ControlDispatch::Localize(BSTR sIndexColName, BSTR sSelectionColName, BSTR sNameColName,
                                  BSTR sAddressListRowName, BSTR sPleaseWait, BSTR sCancel) {
    return Run([&](ctlFolderTree& core) {
        core.Localize(FromBstr(sIndexColName), FromBstr(sSelectionColName), FromBstr(sNameColName),
                      FromBstr(sAddressListRowName), FromBstr(sPleaseWait), FromBstr(sCancel));
    });
}

HRESULT ControlDispatch::CreateSelItem(LONG lFolderRecID, BSTR sStoreID, BSTR sEntryID, BSTR sEntryIDShort,
                                       BSTR sAdListID, _clsFolderTreeItem** item) {
    return GiveItem(item, [&](ctlFolderTree& core) {
        return core.CreateSelItem(lFolderRecID, FromBstr(sStoreID), FromBstr(sEntryID), FromBstr(sEntryIDShort),
                                  FromBstr(sAdListID));
    });
}

HRESULT ControlDispatch::get_InfoStoreAccessMode(::enuInfoStoreAccessMode* value) {
    if (value == nullptr) return E_POINTER;
    return Run(
        [&](ctlFolderTree& core) { *value = static_cast<::enuInfoStoreAccessMode>(core.InfoStoreAccessMode()); });
}

HRESULT ControlDispatch::put_InfoStoreAccessMode(::enuInfoStoreAccessMode value) {
    return Run([&](ctlFolderTree& core) { core.SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(value)); });
}

HRESULT ControlDispatch::get_BufferedToLevel(LONG* value) {
    return Give(value, &ctlFolderTree::BufferedToLevel);
}

HRESULT ControlDispatch::CollapseToSelection() {
    return Run([](ctlFolderTree& core) { core.CollapseToSelection(); });
}

HRESULT ControlDispatch::CollapseToType(::enuFTIItemType veType) {
    return Run([&](ctlFolderTree& core) { core.CollapseToType(static_cast<enuFTIItemType>(veType)); });
}

HRESULT ControlDispatch::get_HighlightTaskFolders(VARIANT_BOOL* value) {
    return Give(value, &ctlFolderTree::HighlightTaskFolders);
}

HRESULT ControlDispatch::put_HighlightTaskFolders(VARIANT_BOOL value) {
    return Take(value, &ctlFolderTree::SetHighlightTaskFolders);
}

}  // namespace foldertree
