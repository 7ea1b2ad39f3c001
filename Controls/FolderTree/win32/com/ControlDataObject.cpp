// ControlDataObject: IDataObject of the control: a picture of it, for containers that keep one.
#include "win32/com/ControlDataObject.h"

#include <ole2.h>

#include <algorithm>
#include <vector>

#include "automation_win32/ComError.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"
#include "win32/com/ListEnumerator.h"
#include "win32/com/PictureFormats.h"

namespace foldertree {

namespace {

FORMATETC PictureIn(CLIPFORMAT format, TYMED medium) {
    return {format, nullptr, DVASPECT_CONTENT, -1, static_cast<DWORD>(medium)};
}

/// The best first.
std::vector<FORMATETC> Formats() {
    return {PictureIn(CF_ENHMETAFILE, TYMED_ENHMF), PictureIn(CF_METAFILEPICT, TYMED_MFPICT),
            PictureIn(CF_DIB, TYMED_HGLOBAL)};
}

FORMATETC CopyFormat(const FORMATETC& format) {
    return format;
}

using FormatEnumerator = ListEnumerator<IEnumFORMATETC, IID_IEnumFORMATETC, FORMATETC, FORMATETC, CopyFormat>;

/// Whether there is a picture in that format; why not, otherwise.
HRESULT Examine(const FORMATETC& wanted) {
    const std::vector<FORMATETC> formats = Formats();
    const auto found = std::find_if(formats.begin(), formats.end(),
                                    [&](const FORMATETC& format) { return format.cfFormat == wanted.cfFormat; });
    if (found == formats.end()) return DV_E_FORMATETC;
    if (wanted.dwAspect != found->dwAspect) return DV_E_DVASPECT;
    if (wanted.lindex != found->lindex) return DV_E_LINDEX;
    return (wanted.tymed & found->tymed) != 0 ? S_OK : DV_E_TYMED;
}

}  // namespace

ControlDataObject::ControlDataObject(ControlObject& object) : ComPart(object), object_(object) {}

void ControlDataObject::SendDataChange(DWORD flags) {
    const automation::ComPtr<IDataAdviseHolder> advises = advises_;
    if (advises != nullptr) advises->SendOnDataChange(this, 0, flags);
}

HRESULT ControlDataObject::GetData(FORMATETC* format, STGMEDIUM* medium) {
    if (format == nullptr || medium == nullptr) return E_POINTER;
    *medium = {};
    const HRESULT result = QueryGetData(format);
    if (FAILED(result)) return result;
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] { return MakePicture(format->cfFormat, *medium); });
}

HRESULT ControlDataObject::MakePicture(CLIPFORMAT format, STGMEDIUM& medium) {
    ControlViewObject& view = object_.Interfaces().view;
    SIZEL size = {};
    HRESULT result = view.GetExtent(DVASPECT_CONTENT, -1, nullptr, &size);
    if (FAILED(result)) return result;
    const SIZE pixels = view.PixelsOf(size);
    const auto draw = [&](HDC dc, const RECT& area) { return view.DrawScreenPicture(dc, area); };
    if (format == CF_ENHMETAFILE) {
        result = MakeEnhancedMetafile(pixels, size, draw, &medium.hEnhMetaFile);
        if (SUCCEEDED(result)) medium.tymed = TYMED_ENHMF;
    } else if (format == CF_METAFILEPICT) {
        result = MakeMetafilePict(pixels, size, draw, &medium.hMetaFilePict);
        if (SUCCEEDED(result)) medium.tymed = TYMED_MFPICT;
    } else {
        result = MakeDib(pixels, draw, &medium.hGlobal);
        if (SUCCEEDED(result)) medium.tymed = TYMED_HGLOBAL;
    }
    return result;
}

HRESULT ControlDataObject::GetDataHere(FORMATETC*, STGMEDIUM*) {
    return E_NOTIMPL;
}

HRESULT ControlDataObject::QueryGetData(FORMATETC* format) {
    if (format == nullptr) return E_POINTER;
    return automation::ComBoundary([&] { return Examine(*format); });
}

HRESULT ControlDataObject::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) {
    if (format == nullptr || canonical == nullptr) return E_POINTER;
    *canonical = *format;
    // The picture is the same for every device.
    canonical->ptd = nullptr;
    return format->ptd == nullptr ? DATA_S_SAMEFORMATETC : S_OK;
}

HRESULT ControlDataObject::SetData(FORMATETC*, STGMEDIUM*, BOOL) {
    return E_NOTIMPL;
}

HRESULT ControlDataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
    if (formats == nullptr) return E_POINTER;
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    return automation::ComBoundary([&] {
        *formats = new FormatEnumerator(Formats());
        return S_OK;
    });
}

HRESULT ControlDataObject::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* connection) {
    if (format == nullptr || sink == nullptr || connection == nullptr) return E_POINTER;
    const ControlObject::Use use(object_);
    *connection = 0;
    // A format of 0 asks to be told without a picture.
    HRESULT result = format->cfFormat != 0 ? QueryGetData(format) : S_OK;
    if (SUCCEEDED(result) && advises_ == nullptr) result = CreateDataAdviseHolder(advises_.GetAddressOf());
    if (FAILED(result)) return result;
    const automation::ComPtr<IDataAdviseHolder> advises = advises_;
    return advises->Advise(this, format, flags, sink, connection);
}

HRESULT ControlDataObject::DUnadvise(DWORD connection) {
    const ControlObject::Use use(object_);
    const automation::ComPtr<IDataAdviseHolder> advises = advises_;
    return advises != nullptr ? advises->Unadvise(connection) : OLE_E_NOCONNECTION;
}

HRESULT ControlDataObject::EnumDAdvise(IEnumSTATDATA** connections) {
    if (connections == nullptr) return E_POINTER;
    *connections = nullptr;
    return advises_ != nullptr ? advises_->EnumAdvise(connections) : S_OK;
}

}  // namespace foldertree
