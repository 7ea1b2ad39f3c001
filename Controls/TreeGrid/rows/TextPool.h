// TextPool: the texts that many cells share, each stored once with the number that it reads as.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "automation/TextHash.h"
#include "rows/InternTable.h"

namespace foldertree {

/// The number that a cell's text reads as: the leading number as Visual Basic's Val reads it, -1 for "True", 0 for
/// "False" and where there is no number.
double NumberOfText(std::string_view text);

/// One shared text.
class PooledText {
  public:
    PooledText() = default;
    explicit PooledText(std::string_view text) : text_(text), number_(NumberOfText(text)) {}
    static uint64_t Hash(std::string_view text) { return automation::HashText(text); }
    bool operator==(std::string_view text) const { return text_ == text; }

    const std::string& Text() const { return text_; }
    double Number() const { return number_; }
    /// HashKeyStart of the prefix and the text; nothing when the text is not ASCII or has the separator, so that a key
    /// that starts with them must be hashed as a whole. Every call must have the same arguments. Needs no memory.
    std::optional<uint64_t> KeyPartHash(char prefix, char separator) const noexcept;

  private:
    std::string text_;
    double number_ = 0;
    mutable uint64_t keyPartHash_ = 0;
    mutable enum : uint8_t { unknown, usable, unusable } keyPart_ = unknown;
};

class TextPool : public InternTable<PooledText, std::string_view> {
  public:
    TextPool() : InternTable(std::string_view()) {}  // text 0 is the empty one
};

}  // namespace foldertree
