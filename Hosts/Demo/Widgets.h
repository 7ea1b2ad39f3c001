// Widgets: making and placing the form's child windows.
#pragma once

#include <windows.h>

#include <string>

namespace demo {

/// A length given for 96 pixels an inch, at the screen's resolution.
int Scaled(int length);
/// The system's message font, shared by all widgets; never deleted.
HFONT FormFont();

HWND AddWidget(HWND parent, const wchar_t* windowClass, const wchar_t* text, DWORD style, int id, DWORD exStyle = 0);
void Place(HWND widget, const RECT& place);

std::wstring WindowText(HWND window);

/// A group box without its frame and caption: where its content goes.
RECT InsideGroup(RECT group);

/// Cuts a strip of the given size off the named side of `rest`, with the usual gap after it.
RECT CutTop(RECT& rest, int height);
RECT CutLeft(RECT& rest, int width);

}  // namespace demo
