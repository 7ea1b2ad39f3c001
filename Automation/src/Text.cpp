// Text: characters of UTF-8, case folding and UTF-16. Lone surrogates are three-byte characters like any other.
#include "automation/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "AccentRanges.h"
#include "FoldRanges.h"

namespace automation {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}
bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

/// Without a branch in the loop, so that long identifiers cost little.
bool AllAscii(std::string_view text) {
    unsigned char all = 0;
    for (const char character : text) all |= static_cast<unsigned char>(character);
    return all < 0x80;
}

/// The size of the equal beginning of both texts, up to the start of a character. Keys of one store differ only behind
/// some five hundred characters.
size_t EqualCharacters(std::string_view a, std::string_view b) {
    const size_t size = std::min(a.size(), b.size());
    size_t equal = 0;
    for (uint64_t wordA = 0, wordB = 0; equal + sizeof wordA <= size; equal += sizeof wordA) {
        std::memcpy(&wordA, a.data() + equal, sizeof wordA);
        std::memcpy(&wordB, b.data() + equal, sizeof wordB);
        if (wordA != wordB) break;
    }
    while (equal > 0 && !IsAscii(a[equal - 1])) --equal;
    return equal;
}

struct Decoded {
    char32_t character;
    size_t length;
    bool wellFormed;
};

/// How many bytes a lead byte promises, and the least character that needs so many; 0 for a byte that leads nothing.
struct Lead {
    size_t length;
    char32_t bits;
    char32_t least;
};

Lead ReadLead(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1Fu, 0x80};
    if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0Fu, 0x800};
    if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07u, 0x10000};
    return {0, 0, 0};
}

Decoded Decode(std::string_view text, size_t position) {
    constexpr Decoded malformed{replacement, 1, false};
    const Lead lead = ReadLead(static_cast<unsigned char>(text[position]));
    if (lead.length == 0 || text.size() - position < lead.length) return malformed;
    char32_t character = lead.bits;
    for (size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(text[position + i]);
        if ((byte & 0xC0) != 0x80) return malformed;
        character = (character << 6) | (byte & 0x3Fu);
    }
    if (character < lead.least || character > 0x10FFFF) return malformed;
    return {character, lead.length, true};
}

bool SameCharacter(std::string_view a, size_t atA, const Decoded& inA, std::string_view b, size_t atB,
                   const Decoded& inB) {
    if (inA.wellFormed != inB.wellFormed) return false;
    if (!inA.wellFormed) return a[atA] == b[atB];
    return FoldCharacter(inA.character) == FoldCharacter(inB.character);
}

/// An accent that follows its letter, as some systems write names.
bool IsCombiningAccent(char32_t c) {
    return c >= 0x0300 && c <= 0x036F;
}

/// The next letter, past accents that stand alone; 0 at the end of the text.
char32_t NextBaseLetter(std::string_view text, size_t& position) {
    while (position < text.size())
        if (const char32_t letter = BaseLetter(NextCharacter(text, position))) return letter;
    return 0;
}

}  // namespace

char32_t NextCharacter(std::string_view text, size_t& position) {
    const Decoded decoded = Decode(text, position);
    position += decoded.length;
    return decoded.character;
}

void AppendCharacter(std::string& text, char32_t character) {
    const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto appendTail = [&](int shift) { append(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        appendTail(0);
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        appendTail(6);
        appendTail(0);
    } else if (character <= 0x10FFFF) {
        append(0xF0 | (character >> 18));
        appendTail(12);
        appendTail(6);
        appendTail(0);
    } else {
        AppendCharacter(text, replacement);
    }
}

size_t CharacterCount(std::string_view text) {
    size_t count = 0;
    for (size_t position = 0; position < text.size(); ++count) NextCharacter(text, position);
    return count;
}

size_t OffsetOfCharacter(std::string_view text, size_t count) {
    size_t position = 0;
    for (; count > 0 && position < text.size(); --count) NextCharacter(text, position);
    return position;
}

char32_t FoldCharacter(char32_t character) {
    if (character < 0x80) return static_cast<unsigned char>(FoldAscii(static_cast<char>(character)));
    const FoldRange* range =
        std::lower_bound(std::begin(foldRanges), std::end(foldRanges), character,
                         [](const FoldRange& candidate, char32_t wanted) { return candidate.last < wanted; });
    if (range == std::end(foldRanges) || character < range->first) return character;
    if ((character - range->first) % static_cast<char32_t>(range->step) != 0) return character;
    return static_cast<char32_t>(static_cast<int32_t>(character) + range->delta);
}

std::string FoldAscii(std::string_view text) {
    std::string folded(text);
    for (char& character : folded) character = FoldAscii(character);
    return folded;
}

std::string FoldCase(std::string_view text) {
    if (AllAscii(text)) return FoldAscii(text);
    std::string folded;
    folded.reserve(text.size());
    for (size_t position = 0; position < text.size();) {
        if (IsAscii(text[position])) {
            folded.push_back(FoldAscii(text[position++]));
            continue;
        }
        const Decoded decoded = Decode(text, position);
        if (decoded.wellFormed)
            AppendCharacter(folded, FoldCharacter(decoded.character));
        else
            folded.push_back(text[position]);
        position += decoded.length;
    }
    return folded;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    size_t atA = EqualCharacters(a, b);
    size_t atB = atA;
    while (atA < a.size() && atB < b.size()) {
        if (IsAscii(a[atA]) && IsAscii(b[atB])) {
            if (FoldAscii(a[atA++]) != FoldAscii(b[atB++])) return false;
            continue;
        }
        const Decoded inA = Decode(a, atA);
        const Decoded inB = Decode(b, atB);
        if (!SameCharacter(a, atA, inA, b, atB, inB)) return false;
        atA += inA.length;
        atB += inB.length;
    }
    return atA == a.size() && atB == b.size();
}

char32_t BaseLetter(char32_t character) {
    const char32_t folded = FoldCharacter(character);
    if (folded < 0x80) return folded;
    if (IsCombiningAccent(folded)) return 0;
    const AccentRange* range =
        std::lower_bound(std::begin(accentRanges), std::end(accentRanges), folded,
                         [](const AccentRange& candidate, char32_t wanted) { return candidate.last < wanted; });
    return range == std::end(accentRanges) || folded < range->first ? folded : range->base;
}

bool StartsWithBaseLetters(std::string_view text, std::string_view start) {
    size_t atText = 0;
    for (size_t atStart = 0; const char32_t letter = NextBaseLetter(start, atStart);)
        if (NextBaseLetter(text, atText) != letter) return false;
    return true;
}

std::u16string ToUtf16(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    ForEachUtf16Unit(text, [&](char16_t unit) { result.push_back(unit); });
    return result;
}

std::string FromUtf16(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (IsHighSurrogate(character) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            character = 0x10000 + ((character - 0xD800) << 10) + (text[++i] - 0xDC00u);
        AppendCharacter(result, character);
    }
    return result;
}

}  // namespace automation
