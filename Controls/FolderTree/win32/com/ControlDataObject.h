// ControlDataObject: IDataObject of the control: a picture of it, for containers that keep one.
#pragma once

#include <objidl.h>

#include "automation_win32/ComPtr.h"
#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

/// The picture has the control's extent: as an enhanced metafile, a metafile with its METAFILEPICT, and a DIB.
class ControlDataObject final : public ComPart<IDataObject> {
  public:
    explicit ControlDataObject(ControlObject& object);

    /// Tells the sinks that an earlier picture is out of date; with ADVF_DATAONSTOP that it is the last one for now.
    void SendDataChange(DWORD flags = 0);

    STDMETHOD(GetData)(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHOD(GetDataHere)(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHOD(QueryGetData)(FORMATETC* format) override;
    STDMETHOD(GetCanonicalFormatEtc)(FORMATETC* format, FORMATETC* canonical) override;
    STDMETHOD(SetData)(FORMATETC* format, STGMEDIUM* medium, BOOL release) override;
    STDMETHOD(EnumFormatEtc)(DWORD direction, IEnumFORMATETC** formats) override;
    STDMETHOD(DAdvise)(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* connection) override;
    STDMETHOD(DUnadvise)(DWORD connection) override;
    STDMETHOD(EnumDAdvise)(IEnumSTATDATA** connections) override;

  private:
    HRESULT MakePicture(CLIPFORMAT format, STGMEDIUM& medium);

    ControlObject& object_;
    automation::ComPtr<IDataAdviseHolder> advises_;
};

}  // namespace foldertree
