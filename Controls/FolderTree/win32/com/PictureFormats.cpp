// PictureFormats: a picture as a DIB and as metafiles, for containers that keep one of a control.
#include "win32/com/PictureFormats.h"

#include <ole2.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>

namespace foldertree {

namespace {

/// Larger ones are no pictures of a control; they would only take the memory of its container.
constexpr uint64_t largestDib = 256u << 20;

template <auto destroy>
struct Destroy {
    template <class Handle>
    void operator()(Handle* handle) const {
        destroy(handle);
    }
};
using OwnedDc = std::unique_ptr<std::remove_pointer_t<HDC>, Destroy<DeleteDC>>;
using OwnedBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, Destroy<DeleteObject>>;
using OwnedBlock = std::unique_ptr<void, Destroy<GlobalFree>>;

/// The bytes of a movable block, while they are looked at.
class LockedBlock {
  public:
    explicit LockedBlock(HGLOBAL block) : block_(block), bytes_(GlobalLock(block)) {}
    ~LockedBlock() { GlobalUnlock(block_); }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;

    template <class Type>
    Type* As() const {
        return static_cast<Type*>(bytes_);
    }

  private:
    HGLOBAL block_;
    void* bytes_;
};

BITMAPINFOHEADER HeaderOf(SIZE pixels) {
    constexpr uint64_t bitsPerPixel = 24;
    const uint64_t line = (static_cast<uint64_t>(pixels.cx) * bitsPerPixel + 31) / 32 * 4;
    const uint64_t size = line * static_cast<uint64_t>(pixels.cy);
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof(header);
    header.biWidth = pixels.cx;
    header.biHeight = pixels.cy;
    header.biPlanes = 1;
    header.biBitCount = bitsPerPixel;
    header.biCompression = BI_RGB;
    header.biSizeImage = size <= largestDib ? static_cast<DWORD>(size) : 0;  // 0: too large
    return header;
}

HRESULT DrawBits(BITMAPINFO& info, const DrawPicture& draw, void* bits) {
    void* drawn = nullptr;
    const OwnedDc dc(CreateCompatibleDC(nullptr));
    const OwnedBitmap bitmap(CreateDIBSection(dc.get(), &info, DIB_RGB_COLORS, &drawn, nullptr, 0));
    if (dc == nullptr || bitmap == nullptr) return E_OUTOFMEMORY;
    const HGDIOBJ before = SelectObject(dc.get(), bitmap.get());
    const HRESULT result = draw(dc.get(), {0, 0, info.bmiHeader.biWidth, info.bmiHeader.biHeight});
    GdiFlush();
    std::memcpy(bits, drawn, info.bmiHeader.biSizeImage);
    SelectObject(dc.get(), before);
    return result;
}

/// Plays a packed DIB into the area of a device context.
HRESULT PlayDib(HGLOBAL dib, HDC dc, SIZE area) {
    const LockedBlock block(dib);
    const auto* info = block.As<BITMAPINFO>();
    if (info == nullptr) return E_OUTOFMEMORY;
    const BITMAPINFOHEADER& header = info->bmiHeader;
    SetStretchBltMode(dc, COLORONCOLOR);
    const int lines = StretchDIBits(dc, 0, 0, area.cx, area.cy, 0, 0, header.biWidth, header.biHeight,
                                    block.As<char>() + header.biSize, info, DIB_RGB_COLORS, SRCCOPY);
    return lines != 0 ? S_OK : E_OUTOFMEMORY;
}

void ScaleTo(HDC dc, SIZE units) {
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetWindowExtEx(dc, units.cx, units.cy, nullptr);
}

/// An enhanced metafile's own units are the pixels of the device that it was made for.
SIZE DevicePixels(HDC dc, SIZE size) {
    constexpr int unitsPerMillimetre = 100;
    return {MulDiv(size.cx, GetDeviceCaps(dc, HORZRES), GetDeviceCaps(dc, HORZSIZE) * unitsPerMillimetre),
            MulDiv(size.cy, GetDeviceCaps(dc, VERTRES), GetDeviceCaps(dc, VERTSIZE) * unitsPerMillimetre)};
}

HRESULT PlayIntoMetafile(SIZE pixels, HGLOBAL dib, HMETAFILE* metafile) {
    const HDC dc = CreateMetaFileW(nullptr);
    if (dc == nullptr) return E_OUTOFMEMORY;
    ScaleTo(dc, pixels);
    const HRESULT result = PlayDib(dib, dc, pixels);
    const HMETAFILE made = CloseMetaFile(dc);
    if (SUCCEEDED(result) && made != nullptr) {
        *metafile = made;
        return S_OK;
    }
    if (made != nullptr) DeleteMetaFile(made);
    return FAILED(result) ? result : E_OUTOFMEMORY;
}

}  // namespace

HRESULT MakeDib(SIZE pixels, const DrawPicture& draw, HGLOBAL* dib) {
    *dib = nullptr;
    if (pixels.cx <= 0 || pixels.cy <= 0) return OLE_E_BLANK;
    const BITMAPINFOHEADER header = HeaderOf(pixels);
    if (header.biSizeImage == 0) return E_OUTOFMEMORY;
    OwnedBlock block(GlobalAlloc(GMEM_MOVEABLE, sizeof(header) + header.biSizeImage));
    if (block == nullptr) return E_OUTOFMEMORY;
    {
        const LockedBlock locked(block.get());
        if (locked.As<void>() == nullptr) return E_OUTOFMEMORY;
        BITMAPINFO info = {};
        info.bmiHeader = header;
        std::memcpy(locked.As<void>(), &header, sizeof(header));
        const HRESULT result = DrawBits(info, draw, locked.As<char>() + sizeof(header));
        if (FAILED(result)) return result;
    }
    *dib = block.release();
    return S_OK;
}

HRESULT MakeEnhancedMetafile(SIZE pixels, SIZE size, const DrawPicture& draw, HENHMETAFILE* metafile) {
    *metafile = nullptr;
    HGLOBAL dib = nullptr;
    HRESULT result = MakeDib(pixels, draw, &dib);
    if (FAILED(result)) return result;
    const OwnedBlock block(dib);
    const RECT frame = {0, 0, size.cx, size.cy};
    const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, &frame, L"FolderTree\0control\0");
    if (dc == nullptr) return E_OUTOFMEMORY;
    result = PlayDib(dib, dc, DevicePixels(dc, size));
    const HENHMETAFILE made = CloseEnhMetaFile(dc);
    if (SUCCEEDED(result) && made != nullptr) {
        *metafile = made;
        return S_OK;
    }
    if (made != nullptr) DeleteEnhMetaFile(made);
    return FAILED(result) ? result : E_OUTOFMEMORY;
}

HRESULT MakeMetafilePict(SIZE pixels, SIZE size, const DrawPicture& draw, HGLOBAL* picture) {
    *picture = nullptr;
    HGLOBAL dib = nullptr;
    HRESULT result = MakeDib(pixels, draw, &dib);
    if (FAILED(result)) return result;
    const OwnedBlock bits(dib);
    OwnedBlock block(GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT)));
    if (block == nullptr) return E_OUTOFMEMORY;
    const LockedBlock locked(block.get());
    auto* const described = locked.As<METAFILEPICT>();
    if (described == nullptr) return E_OUTOFMEMORY;
    *described = {MM_ANISOTROPIC, size.cx, size.cy, nullptr};
    result = PlayIntoMetafile(pixels, dib, &described->hMF);
    if (SUCCEEDED(result)) *picture = block.release();
    return result;
}

}  // namespace foldertree
