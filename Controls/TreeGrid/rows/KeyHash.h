// KeyHash: the hash of a row key, whole or from its two parts.
#pragma once

#include <cstdint>
#include <string_view>

namespace foldertree {

/// The hash of a row key: equal for keys that are equal without regard to case, in all scripts.
uint64_t HashKey(std::string_view key);

/// The hash of an ASCII key from the HashKeyStart of what stands before its first "|" and the HashText of what stands
/// behind it. The start names a store: it is long, the same for all rows of the store, and stores differ in its end.
uint64_t JoinKeyHash(uint64_t start, uint64_t rest);
uint64_t HashKeyStart(std::string_view start);

}  // namespace foldertree
