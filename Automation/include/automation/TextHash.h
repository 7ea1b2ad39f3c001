// TextHash: hashes of texts, and what hashed containers need to look texts up without regard to case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "automation/Text.h"

namespace automation {

bool IsAscii(std::string_view text);

/// A hash of the bytes that does not see the case of ASCII letters.
uint64_t HashText(std::string_view text);

/// Brings what the high bits know down into the low ones, which tables use.
uint64_t MixHash(uint64_t state);

/// Equal for texts that are equal without regard to case, in all scripts. With CaselessEqual, for hashed containers
/// that are searched by a view, without a copy of the text. Needs no memory.
struct CaselessHash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const;
};

struct CaselessEqual {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const { return EqualNoCase(a, b); }
};

}  // namespace automation
