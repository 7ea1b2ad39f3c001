// TextHash: hashes of texts for the grid's tables.
#pragma once

#include <cstdint>
#include <string_view>

namespace foldertree {

bool IsAscii(std::string_view text);

/// A hash of the bytes that does not see the case of ASCII letters.
uint64_t HashText(std::string_view text);

/// The hash of a row key: equal for keys that are equal without regard to case, in all scripts.
uint64_t HashKey(std::string_view key);

/// The hash of an ASCII key whose first "|" stands between two parts, from the HashText of the parts: the long store
/// part is the same for all rows of a store, so it need not be hashed again for each of them.
uint64_t JoinKeyHash(uint64_t before, uint64_t after);

}  // namespace foldertree
