// KeyHash: the hash of a row key, whole or from its two parts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace foldertree {

/// The hash of a row key: equal for keys that are equal without regard to case, in all scripts. The separator is the
/// character at which the key falls into two parts, see JoinKeyHash. Needs no memory.
uint64_t HashKey(std::string_view key, char separator) noexcept;

/// The hash of an ASCII key from the HashKeyStart of what stands before its first separator and the HashText of what
/// stands behind it. The start may be long and the same for many rows, and starts differ in their end: no more than
/// the last keyStartBytes of it are hashed.
uint64_t JoinKeyHash(uint64_t start, uint64_t rest) noexcept;
inline constexpr size_t keyStartBytes = 128;
uint64_t HashKeyStart(std::string_view start) noexcept;

}  // namespace foldertree
