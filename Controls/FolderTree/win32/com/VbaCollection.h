// VbaCollection: Visual Basic's interface of a collection, and our own collection as an object of it.
#pragma once

#include <oaidl.h>

namespace foldertree {

/// `_Collection` of Visual Basic's library: what `Dim c As Collection` asks for. The order of the members is the order
/// of its slots; an argument that is left out comes as VT_ERROR with DISP_E_PARAMNOTFOUND.
struct VbaCollection : public IDispatch {
    virtual HRESULT STDMETHODCALLTYPE Item(VARIANT* index, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE Add(VARIANT* item, VARIANT* key, VARIANT* before, VARIANT* after) = 0;
    virtual HRESULT STDMETHODCALLTYPE Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Remove(VARIANT* index) = 0;
    virtual HRESULT STDMETHODCALLTYPE NewEnum(IUnknown** enumerator) = 0;

  protected:
    ~VbaCollection() = default;
};

/// From now on a collection of our own that crosses to COM answers for that interface too.
void RegisterCollectionClass();

}  // namespace foldertree

__CRT_UUID_DECL(foldertree::VbaCollection, 0xa4c46780, 0x499f, 0x101b, 0xbb, 0x78, 0x00, 0xaa, 0x00, 0x38, 0x3c, 0xbb)
