// KeyHash: the hash of a row key, whole or from its two parts.
#include "rows/KeyHash.h"

#include <bit>

#include "automation/TextHash.h"

namespace foldertree {

using automation::HashText;

namespace {

uint64_t HashParts(std::string_view key) {
    const size_t bar = key.find('|');
    if (bar == key.npos) return HashText(key);
    return JoinKeyHash(HashKeyStart(key.substr(0, bar)), HashText(key.substr(bar + 1)));
}

}  // namespace

uint64_t HashKeyStart(std::string_view start) {
    constexpr size_t enough = 128;
    return HashText(start.size() > enough ? start.substr(start.size() - enough) : start);
}

uint64_t JoinKeyHash(uint64_t start, uint64_t rest) {
    return automation::MixHash(std::rotl(start, 29) ^ rest);
}

uint64_t HashKey(std::string_view key) {
    if (automation::IsAscii(key)) return HashParts(key);
    return HashParts(automation::FoldCase(key));
}

}  // namespace foldertree
