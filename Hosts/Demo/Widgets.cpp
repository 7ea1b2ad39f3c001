// Widgets: sizes, fonts and places.
#include "Widgets.h"

#include <algorithm>

namespace demo {
namespace {

int PixelsPerInch() {
    HDC screen = GetDC(nullptr);
    const int pixels = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return pixels;
}

constexpr int gap = 6;

}  // namespace

int Scaled(int length) {
    static const int pixelsPerInch = PixelsPerInch();
    return MulDiv(length, pixelsPerInch, 96);
}

HFONT FormFont() {
    static const HFONT font = [] {
        NONCLIENTMETRICSW metrics = {};
        metrics.cbSize = sizeof metrics;
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        return CreateFontIndirectW(&metrics.lfMessageFont);
    }();
    return font;
}

HWND AddWidget(HWND parent, const wchar_t* windowClass, const wchar_t* text, DWORD style, int id, DWORD exStyle) {
    const HWND widget =
        CreateWindowExW(exStyle, windowClass, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(widget, WM_SETFONT, reinterpret_cast<WPARAM>(FormFont()), FALSE);
    return widget;
}

void Place(HWND widget, const RECT& place) {
    SetWindowPos(widget, nullptr, place.left, place.top, std::max(0L, place.right - place.left),
                 std::max(0L, place.bottom - place.top), SWP_NOZORDER | SWP_NOACTIVATE);
}

std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

RECT InsideGroup(RECT group) {
    return {group.left + Scaled(10), group.top + Scaled(20), group.right - Scaled(10), group.bottom - Scaled(10)};
}

RECT CutTop(RECT& rest, int height) {
    const RECT cut = {rest.left, rest.top, rest.right, rest.top + height};
    rest.top = cut.bottom + Scaled(gap);
    return cut;
}

RECT CutLeft(RECT& rest, int width) {
    const RECT cut = {rest.left, rest.top, rest.left + width, rest.bottom};
    rest.left = cut.right + Scaled(gap);
    return cut;
}

}  // namespace demo
