// LiteralText: the plain readings of texts that the literal control needs.
#pragma once

#include <cstdint>
#include <string>

namespace foldertree::reference {

/// The number at the start of a cell's text; -1 for "True", 0 for "False" and for no number.
double NumberAtStart(const std::string& text);
/// Whether the whole text is a number: a sign, digits, one point, an exponent, blanks around.
bool IsNumber(const std::string& text);
std::string Lower(std::string text);  ///< A to Z only: the sequences use no other letters
bool SameText(const std::string& a, const std::string& b);
std::string HexText(uint32_t value);
/// Halves to even. Throws Error 6 beyond 32 bits.
int32_t WholeNumber(double number);

}  // namespace foldertree::reference
