// Clipboard: text for other programs.
#pragma once

#include <windows.h>

#include <string_view>

namespace foldertree {

/// Puts the text (UTF-8) on the clipboard in the window's name. False, and what was there may stay, when another
/// program keeps the clipboard open or memory runs out.
bool CopyToClipboard(HWND window, std::string_view text) noexcept;

}  // namespace foldertree
