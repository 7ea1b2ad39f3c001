// modApplication: small helpers that the store readers share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/Object.h"

namespace foldertree {

/// The `Value` of the source's `Fields` item for a MAPI property tag; Empty when the source lacks the property or
/// anything fails. Never throws automation::Error.
automation::Value GetFieldValue(const automation::ObjectRef& source, int32_t propertyTag);

/// Two upper-case hexadecimal digits a byte, in order.
std::string BytesToHex(const automation::Bytes& bytes);

/// The upper-case hexadecimal text of the value's 32 bits, cut or zero-padded to `width` digits.
std::string HexPadded(size_t width, uint32_t value);

/// `text` padded on the left with the first character of `pad` up to `width` characters; a longer text keeps its
/// rightmost characters. Counts characters, not bytes.
std::string PadLeft(std::string_view text, size_t width, std::string_view pad);

/// Upper-case hexadecimal text without leading zeros.
std::string Hex(uint32_t value);

}  // namespace foldertree
