// Texts: what the random sequences call folders, stores and lists, file items under, type, and answer with.
#pragma once

#include <string>

#include "automation/Value.h"

namespace foldertree::reference {

/// A name, an identifier or a key, in all scripts: pairs that differ in their letters' case alone, letters that have no
/// such partner, halves of surrogate pairs, nothing, and some thousand characters. Any number is a choice.
const std::string& AnyText(int choice);

/// What a user may type where a number is wanted.
inline constexpr int typedTextCount = 48;
const std::string& TypedText(int choice);

/// A value of an unexpected type.
inline constexpr int oddValueCount = 40;
automation::Value OddValue(int choice);

}  // namespace foldertree::reference
