// LiteralText: the literal control's own readings of texts and values. None asks the automation library, so that both
// controls agree only where two authors do.
#pragma once

#include <cstdint>
#include <string>

#include "automation/Value.h"

namespace foldertree::reference {

/// The number at the start of a cell's text, as Visual Basic's Val reads it; -1 for "True", 0 for "False" and for no
/// number. Blanks, tabs and line ends do not count anywhere, "d" is an exponent's letter too, "&H" and "&O" begin a
/// hexadecimal or octal number.
double NumberAtStart(const std::string& text);
/// Whether the whole text is a number: a sign, digits, one point, an exponent, blanks around.
bool IsNumber(const std::string& text);
/// The number as text with so many significant digits at most; with an exponent only where there is no room without.
std::string NumberText(double number, int digits);
std::string HexText(uint32_t value);
/// Halves to even. Throws Error 6 beyond 32 bits.
int32_t WholeNumber(double number);

/// The text with its capitals as small letters: A to Z, and the letters in LiteralLetters.h.
std::string Lower(const std::string& text);
/// The text with its capitals as small letters and its small letters as capitals.
std::string OtherCase(const std::string& text);
/// The text without that many letters at its start.
std::string WithoutFirst(const std::string& text, int letters);
bool SameText(const std::string& a, const std::string& b);

// Visual Basic's conversions. They throw Error 13 for what has no such value, and 6 where it does not fit.
std::string TextOf(const automation::Value& value);
double DoubleOf(const automation::Value& value);
int32_t LongOf(const automation::Value& value);
bool BooleanOf(const automation::Value& value);
/// Visual Basic's TypeName.
std::string KindOf(const automation::Value& value);

}  // namespace foldertree::reference
