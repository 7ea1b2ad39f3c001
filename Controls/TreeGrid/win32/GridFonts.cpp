// GridFonts: the plain and the bold face of the grid's font object.
#include "win32/GridFonts.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "automation_win32/Bstr.h"

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

void ReadMembers(automation::Object& object, int dpi, LOGFONTW& font) {
    if (object.HasMember("Name")) {
        const std::wstring name = automation::ToWide(object.Get("Name").ToText());
        if (!name.empty()) font.lfFaceName[name.copy(font.lfFaceName, LF_FACESIZE - 1)] = L'\0';
    }
    if (object.HasMember("Size")) {
        const double points = std::clamp(object.Get("Size").ToDouble(), 1.0, 200.0);
        font.lfHeight = -static_cast<LONG>(std::lround(points * dpi / 72));
    }
    if (object.HasMember("Weight")) font.lfWeight = object.Get("Weight").ToLong();
    if (object.HasMember("Bold") && object.Get("Bold").ToBoolean()) font.lfWeight = FW_BOLD;
    if (object.HasMember("Italic")) font.lfItalic = object.Get("Italic").ToBoolean();
    if (object.HasMember("Underline")) font.lfUnderline = object.Get("Underline").ToBoolean();
    if (object.HasMember("Strikethrough")) font.lfStrikeOut = object.Get("Strikethrough").ToBoolean();
    if (object.HasMember("Charset")) font.lfCharSet = static_cast<BYTE>(object.Get("Charset").ToLong());
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
        if (font != nullptr) ReadMembers(*font, dpi, description);
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
