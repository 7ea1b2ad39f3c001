// TextHash: word-wise hashing, four words at a time.
#include "automation/TextHash.h"

#include <bit>
#include <cstring>

#include "automation/Text.h"

namespace automation {

namespace {

constexpr uint64_t highBits = 0x8080808080808080;
constexpr uint64_t caseBits = 0x2020202020202020;
constexpr uint64_t multiplier = 0x9E3779B97F4A7C15;

uint64_t Load(const char* bytes) {
    uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

uint64_t Step(uint64_t state, uint64_t word) {
    return std::rotl(state ^ (word & ~caseBits), 29) * multiplier;
}

uint64_t HashShort(std::string_view text) {
    uint64_t word = 0;
    if (!text.empty()) std::memcpy(&word, text.data(), text.size());
    return MixHash(Step(multiplier ^ (text.size() << 8), word));
}

}  // namespace

uint64_t MixHash(uint64_t state) {
    state = (state ^ (state >> 32)) * multiplier;
    return state ^ (state >> 32);
}

bool IsAscii(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    uint64_t seen = 0;
    for (; end - at >= 32; at += 32) seen |= Load(at) | Load(at + 8) | Load(at + 16) | Load(at + 24);
    for (; end - at >= 8; at += 8) seen |= Load(at);
    for (; at != end; ++at) seen |= static_cast<unsigned char>(*at);
    return (seen & highBits) == 0;
}

uint64_t HashText(std::string_view text) {
    if (text.size() < 8) return HashShort(text);
    const char* at = text.data();
    const char* const end = at + text.size();
    uint64_t a = multiplier ^ (text.size() << 8);
    if (text.size() >= 32) {
        // Four independent states keep the multiplier busy; one state would wait for itself.
        uint64_t b = 1, c = 2, d = 3;
        for (; end - at >= 32; at += 32) {
            a = Step(a, Load(at));
            b = Step(b, Load(at + 8));
            c = Step(c, Load(at + 16));
            d = Step(d, Load(at + 24));
        }
        a = MixHash(a ^ std::rotl(b, 16) ^ std::rotl(c, 32) ^ std::rotl(d, 48));
    }
    for (; end - at >= 8; at += 8) a = Step(a, Load(at));
    return MixHash(Step(a, Load(end - 8)));  // the rest, together with bytes that were seen already
}

size_t CaselessHash::operator()(std::string_view text) const {
    if (IsAscii(text)) return static_cast<size_t>(HashText(text));
    // Character by character, so that nothing is folded aside: a hash is wanted where memory has run out, too.
    uint64_t state = multiplier;
    for (size_t position = 0; position < text.size();)
        state = std::rotl(state ^ FoldCharacter(NextCharacter(text, position)), 29) * multiplier;
    return static_cast<size_t>(MixHash(state));
}

}  // namespace automation
