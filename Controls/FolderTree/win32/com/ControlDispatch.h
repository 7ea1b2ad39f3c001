// ControlDispatch: the control's own interface, early and late bound.
#pragma once

#include "win32/WindowsNames.h"

#include "FolderTree.idl.h"
#include "ctlFolderTree.h"
#include "win32/com/ComPart.h"
#include "win32/com/TypeLibrary.h"

namespace foldertree {

class ControlObject;

/// Errors of the core never get here; what fails is only the conversion of an argument or of a result.
class ControlDispatch final : public ComPart<_ctlFolderTree> {
  public:
    explicit ControlDispatch(ControlObject& object);

    // IDispatch
    STDMETHOD(GetTypeInfoCount)(UINT* count) override;
    STDMETHOD(GetTypeInfo)(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHOD(GetIDsOfNames)(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHOD(Invoke)
    (DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
     UINT* badArgument) override;

    // _ctlFolderTree
    STDMETHOD(putref_Application)(IDispatch* value) override;
    STDMETHOD(get_Application)(IDispatch** value) override;
    STDMETHOD(get_CDOSession)(IDispatch** value) override;
    STDMETHOD(putref_Font)(IFontDisp* value) override;
    STDMETHOD(get_Font)(IFontDisp** value) override;
    STDMETHOD(GetMsgItem)(BSTR sStoreID, BSTR sEntryID, _clsFolderTreeItem** item) override;
    STDMETHOD(GetAdListItem)(BSTR sAdListID, BSTR sAdListEntryID, _clsFolderTreeItem** item) override;
    STDMETHOD(KillCollection)(VARIANT* oColl) override;
    STDMETHOD(get_ListCount)(LONG* value) override;
    STDMETHOD(putref_SelectedItem)(_clsFolderTreeItem* value) override;
    STDMETHOD(get_SelectedItem)(_clsFolderTreeItem** value) override;
    STDMETHOD(putref_Selection)(IDispatch* value) override;
    STDMETHOD(get_Selection)(IDispatch** value) override;
    STDMETHOD(get_Enabled)(VARIANT_BOOL* value) override;
    STDMETHOD(put_Enabled)(VARIANT_BOOL value) override;
    STDMETHOD(get_HighlightContactFolders)(VARIANT_BOOL* value) override;
    STDMETHOD(put_HighlightContactFolders)(VARIANT_BOOL value) override;
    STDMETHOD(get_HighlightJournalFolders)(VARIANT_BOOL* value) override;
    STDMETHOD(put_HighlightJournalFolders)(VARIANT_BOOL value) override;
    STDMETHOD(get_ExtendToLevel)(LONG* value) override;
    STDMETHOD(put_ExtendToLevel)(LONG value) override;
    STDMETHOD(get_RDOSessionRef)(IDispatch** value) override;
    STDMETHOD(putref_RDOSessionRef)(IDispatch* value) override;
    STDMETHOD(get_MultiSelect)(VARIANT_BOOL* value) override;
    STDMETHOD(put_MultiSelect)(VARIANT_BOOL value) override;
    STDMETHOD(get_AllowIndexing)(VARIANT_BOOL* value) override;
    STDMETHOD(put_AllowIndexing)(VARIANT_BOOL value) override;
    STDMETHOD(get_ShowAddressBook)(VARIANT_BOOL* value) override;
    STDMETHOD(put_ShowAddressBook)(VARIANT_BOOL value) override;
    STDMETHOD(SelectNone)() override;
    STDMETHOD(SelectAll)() override;
    STDMETHOD(SelectByType)(::enuFTIItemType eType, VARIANT_BOOL bAdditional) override;
    STDMETHOD(RefreshList)() override;
    STDMETHOD(Localize)
    (BSTR sIndexColName, BSTR sSelectionColName, BSTR sNameColName, BSTR sAddressListRowName, BSTR sPleaseWait,
     BSTR sCancel) override;
    STDMETHOD(CreateSelItem)
    (LONG lFolderRecID, BSTR sStoreID, BSTR sEntryID, BSTR sEntryIDShort, BSTR sAdListID,
     _clsFolderTreeItem** item) override;
    STDMETHOD(get_InfoStoreAccessMode)(::enuInfoStoreAccessMode* value) override;
    STDMETHOD(put_InfoStoreAccessMode)(::enuInfoStoreAccessMode value) override;
    STDMETHOD(get_BufferedToLevel)(LONG* value) override;
    STDMETHOD(CollapseToSelection)() override;
    STDMETHOD(CollapseToType)(::enuFTIItemType veType) override;
    STDMETHOD(get_HighlightTaskFolders)(VARIANT_BOOL* value) override;
    STDMETHOD(put_HighlightTaskFolders)(VARIANT_BOOL value) override;

  private:
    // Runs a member of the core inside a Use of the object, and converts what comes back.
    template <class Body>
    HRESULT Run(Body&& body) noexcept;
    HRESULT Give(IDispatch** to, automation::ObjectRef (ctlFolderTree::*get)()) noexcept;
    HRESULT Give(VARIANT_BOOL* to, bool (ctlFolderTree::*get)()) noexcept;
    HRESULT Give(LONG* to, int32_t (ctlFolderTree::*get)()) noexcept;
    template <class MakeItem>
    HRESULT GiveItem(_clsFolderTreeItem** to, MakeItem&& makeItem) noexcept;
    HRESULT Take(IUnknown* value, void (ctlFolderTree::*set)(automation::ObjectRef)) noexcept;
    HRESULT Take(VARIANT_BOOL value, void (ctlFolderTree::*set)(bool)) noexcept;

    ControlObject& object_;
};

}  // namespace foldertree
