// FontText: fonts in and out of text.
#include "FontText.h"

#include <olectl.h>

#include <cstdlib>

#include "Text.h"

namespace demo {
namespace {

struct FontParts {
    std::wstring name;
    long long size = 0;
    long weight = FW_NORMAL;
    long charset = DEFAULT_CHARSET;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;
};

ComPtr<IFont> MakeFont(FontParts parts) {
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = parts.name.data();
    description.cySize.int64 = parts.size;
    description.sWeight = static_cast<SHORT>(parts.weight);
    description.sCharset = static_cast<SHORT>(parts.charset);
    description.fItalic = parts.italic;
    description.fUnderline = parts.underline;
    description.fStrikethrough = parts.strikethrough;
    ComPtr<IFont> font;
    OleCreateFontIndirect(&description, IID_PPV_ARGS(&font));
    return font;
}

}  // namespace

std::string FontToText(IFont* font) {
    BSTR name = nullptr;
    CY size = {};
    SHORT weight = FW_NORMAL;
    SHORT charset = DEFAULT_CHARSET;
    BOOL italic = FALSE, underline = FALSE, strikethrough = FALSE;
    font->get_Name(&name);
    font->get_Size(&size);
    font->get_Weight(&weight);
    font->get_Charset(&charset);
    font->get_Italic(&italic);
    font->get_Underline(&underline);
    font->get_Strikethrough(&strikethrough);
    const std::string text = ToUtf8({name, SysStringLen(name)}) + "|" + std::to_string(size.int64) + "|" +
                             std::to_string(weight) + "|" + std::to_string(charset) + "|" + std::to_string(italic) +
                             "|" + std::to_string(underline) + "|" + std::to_string(strikethrough);
    SysFreeString(name);
    return text;
}

ComPtr<IFont> FontFromText(std::string_view text) {
    const auto parts = Split(text, '|');
    if (parts.size() != 7) return nullptr;
    const auto number = [&](size_t index) { return std::strtol(parts[index].c_str(), nullptr, 10); };
    return MakeFont(
        {FromUtf8(parts[0]), number(1), number(2), number(3), number(4) != 0, number(5) != 0, number(6) != 0});
}

ComPtr<IFont> SystemMessageFont() {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const LOGFONTW& font = metrics.lfMessageFont;
    HDC screen = GetDC(nullptr);
    const int pixelsPerInch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    const long long size = static_cast<long long>(std::abs(font.lfHeight)) * 72 * 10000 / pixelsPerInch;
    return MakeFont({font.lfFaceName, size, font.lfWeight, font.lfCharSet, font.lfItalic != 0, font.lfUnderline != 0,
                     font.lfStrikeOut != 0});
}

}  // namespace demo
