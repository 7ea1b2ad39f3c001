// ControlClassInfo: IProvideClassInfo2 of the control.
#include "win32/com/ControlClassInfo.h"

#include "FolderTree.idl.h"
#include "win32/com/ControlObject.h"
#include "win32/com/TypeLibrary.h"

namespace foldertree {

ControlClassInfo::ControlClassInfo(ControlObject& object) : ComPart(object) {}

HRESULT ControlClassInfo::GetClassInfo(ITypeInfo** info) {
    return GiveTypeInfo(__uuidof(::ctlFolderTree), info);
}

HRESULT ControlClassInfo::GetGUID(DWORD kind, GUID* guid) {
    if (guid == nullptr) return E_POINTER;
    *guid = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? __uuidof(__ctlFolderTree) : GUID_NULL;
    return *guid == GUID_NULL ? E_INVALIDARG : S_OK;
}

}  // namespace foldertree
