// FontText: a COM font object as one line of text, and back.
#pragma once

#include <ocidl.h>

#include <string>
#include <string_view>

#include "ComObject.h"

namespace demo {

/// Name, size in 1/10000 point, weight, character set, italic, underlined, struck out; separated by "|".
std::string FontToText(IFont* font);
/// A new font; null when the text does not describe one.
ComPtr<IFont> FontFromText(std::string_view text);
/// The font that Windows uses for messages.
ComPtr<IFont> SystemMessageFont();

}  // namespace demo
