// GridFonts: the plain and the bold face of the grid's font object.
#include "win32/GridFonts.h"

#include <ocidl.h>

#include <algorithm>
#include <cmath>
#include <string_view>

#include "automation_win32/Bstr.h"
#include "automation_win32/Crossing.h"

namespace foldertree {
namespace {

constexpr double defaultPoints = 8.25;

LOGFONTW DefaultFont(int dpi) {
    LOGFONTW font{};
    font.lfHeight = -static_cast<LONG>(std::lround(defaultPoints * dpi / 72));
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = CLEARTYPE_QUALITY;
    std::wstring(L"Tahoma").copy(font.lfFaceName, LF_FACESIZE - 1);
    return font;
}

LONG HeightOf(double points, int dpi) {
    return -static_cast<LONG>(std::lround(std::clamp(points, 1.0, 200.0) * dpi / 72));
}

void SetFace(LOGFONTW& font, std::wstring_view name) {
    if (!name.empty()) font.lfFaceName[name.copy(font.lfFaceName, LF_FACESIZE - 1)] = L'\0';
}

/// The system's own font object tells itself without names. To find one by its name, Wine registers a type library, for
/// each new font again, and leaves three handles open.
void ReadInterface(IFont& object, int dpi, LOGFONTW& font) {
    automation::OwnedBstr name;
    CY size{};
    SHORT number = 0;
    BOOL set = FALSE;
    if (SUCCEEDED(object.get_Name(name.Out()))) SetFace(font, name.Wide());
    if (SUCCEEDED(object.get_Size(&size))) font.lfHeight = HeightOf(static_cast<double>(size.int64) / 10000, dpi);
    if (SUCCEEDED(object.get_Weight(&number))) font.lfWeight = number;
    if (SUCCEEDED(object.get_Bold(&set)) && set) font.lfWeight = FW_BOLD;
    if (SUCCEEDED(object.get_Italic(&set))) font.lfItalic = set != FALSE;
    if (SUCCEEDED(object.get_Underline(&set))) font.lfUnderline = set != FALSE;
    if (SUCCEEDED(object.get_Strikethrough(&set))) font.lfStrikeOut = set != FALSE;
    if (SUCCEEDED(object.get_Charset(&number))) font.lfCharSet = static_cast<BYTE>(number);
}

void ReadMembers(automation::Object& object, int dpi, LOGFONTW& font) {
    if (object.HasMember("Name")) SetFace(font, automation::ToWide(object.Get("Name").ToText()));
    if (object.HasMember("Size")) font.lfHeight = HeightOf(object.Get("Size").ToDouble(), dpi);
    if (object.HasMember("Weight")) font.lfWeight = object.Get("Weight").ToLong();
    if (object.HasMember("Bold") && object.Get("Bold").ToBoolean()) font.lfWeight = FW_BOLD;
    if (object.HasMember("Italic")) font.lfItalic = object.Get("Italic").ToBoolean();
    if (object.HasMember("Underline")) font.lfUnderline = object.Get("Underline").ToBoolean();
    if (object.HasMember("Strikethrough")) font.lfStrikeOut = object.Get("Strikethrough").ToBoolean();
    if (object.HasMember("Charset")) font.lfCharSet = static_cast<BYTE>(object.Get("Charset").ToLong());
}

void Read(const automation::ObjectRef& object, int dpi, LOGFONTW& font) {
    const automation::ComPtr<IUnknown> pointer = automation::ToCom(object);
    automation::ComPtr<IFont> interface_;
    if (pointer && SUCCEEDED(pointer.As(&interface_)))
        ReadInterface(*interface_.Get(), dpi, font);
    else
        ReadMembers(*object, dpi, font);
}

}  // namespace

int LineHeightOf(HFONT font) {
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(dc, font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    SelectObject(dc, before);
    DeleteDC(dc);
    return metrics.tmHeight;
}

GridFonts::~GridFonts() {
    Release();
}

void GridFonts::Load(const automation::ObjectRef& font, int dpi) {
    LOGFONTW description = DefaultFont(dpi);
    try {
        if (font != nullptr) Read(font, dpi, description);
    } catch (const automation::Error&) {
        // A host's font object that fails half-way must not leave the tree without text.
    }
    Release();
    plain_ = CreateFontIndirectW(&description);
    description.lfWeight = FW_BOLD;
    bold_ = CreateFontIndirectW(&description);
    lineHeight_ = LineHeightOf(plain_);
}

void GridFonts::Release() {
    if (plain_ != nullptr) DeleteObject(plain_);
    if (bold_ != nullptr) DeleteObject(bold_);
    plain_ = bold_ = nullptr;
}

}  // namespace foldertree
