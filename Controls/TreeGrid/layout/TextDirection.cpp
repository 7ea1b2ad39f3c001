// TextDirection: which way a text is read.
#include "layout/TextDirection.h"

#include <algorithm>
#include <iterator>

#include "automation/Text.h"

namespace foldertree {
namespace {

struct Range {
    char32_t first, last;
};

// The blocks of the Unicode standard whose letters are read from right to left, and its mark that says so.
constexpr Range rightToLeft[] = {{0x0590, 0x065F}, {0x066D, 0x06EF}, {0x06FA, 0x08FF},   {0x200F, 0x200F},
                                 {0xFB1D, 0xFDFF}, {0xFE70, 0xFEFC}, {0x10800, 0x10FFF}, {0x1E800, 0x1EFFF}};
// What is read with what stands beside it: digits, punctuation, signs.
constexpr Range neutral[] = {{0x0000, 0x0040}, {0x005B, 0x0060}, {0x007B, 0x00A9}, {0x00AB, 0x00B4}, {0x00B6, 0x00B9},
                             {0x00BB, 0x00BF}, {0x00D7, 0x00D7}, {0x00F7, 0x00F7}, {0x0660, 0x066C}, {0x06F0, 0x06F9},
                             {0x2000, 0x200D}, {0x2010, 0x2070}, {0x2074, 0x207E}, {0x2080, 0x208E}, {0x20A0, 0x20CF},
                             {0x2190, 0x2BFF}, {0x3000, 0x3004}, {0xFEFF, 0xFEFF}};

template <size_t count>
bool IsIn(const Range (&ranges)[count], char32_t character) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [=](const Range& range) { return character >= range.first && character <= range.last; });
}

}  // namespace

bool ReadsRightToLeft(std::string_view text, bool otherwise) {
    for (size_t at = 0; at < text.size();) {
        const char32_t character = automation::NextCharacter(text, at);
        if (IsIn(rightToLeft, character)) return true;
        if (!IsIn(neutral, character)) return false;
    }
    return otherwise;
}

}  // namespace foldertree
