// KeyHash: the hash of a row key, whole or from its two parts.
#include "rows/KeyHash.h"

#include <bit>

#include "automation/TextHash.h"

namespace foldertree {

using automation::HashText;

namespace {

uint64_t HashParts(std::string_view key, char separator) {
    const size_t bar = key.find(separator);
    if (bar == key.npos) return HashText(key);
    return JoinKeyHash(HashKeyStart(key.substr(0, bar)), HashText(key.substr(bar + 1)));
}

}  // namespace

uint64_t HashKeyStart(std::string_view start) noexcept {
    return HashText(start.size() > keyStartBytes ? start.substr(start.size() - keyStartBytes) : start);
}

uint64_t JoinKeyHash(uint64_t start, uint64_t rest) noexcept {
    return automation::MixHash(std::rotl(start, 29) ^ rest);
}

uint64_t HashKey(std::string_view key, char separator) noexcept {
    // No character beyond ASCII folds to an ASCII one, so the two kinds of keys never are equal.
    if (automation::IsAscii(key)) return HashParts(key, separator);
    return automation::CaselessHash()(key);
}

}  // namespace foldertree
