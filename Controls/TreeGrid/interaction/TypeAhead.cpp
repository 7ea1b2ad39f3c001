// TypeAhead: finds a row by the beginning of its name, as a user types it.
#include "interaction/TypeAhead.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "automation/Text.h"
#include "interaction/CursorMoves.h"

namespace foldertree {
namespace {

/// The first shown row from the position on, and on from the top, whose name starts with the letters; 0 for none.
int32_t FindName(const TreeGrid& grid, int32_t from, std::string_view letters) {
    const int col = grid.Schema().outline;
    const int32_t count = grid.VisibleCount();
    for (int32_t passed = 0; passed < count; ++passed) {
        const int32_t row = grid.VisibleRow((from + passed) % count);
        if (automation::StartsWithBaseLetters(grid.CellView(row, col), letters)) return row;
    }
    return 0;
}

int32_t CursorPosition(const TreeGrid& grid) {
    const int32_t row = CursorRow(grid);
    return row == 0 ? -1 : grid.VisiblePosition(row).value_or(-1);
}

}  // namespace

bool TypeAhead::Started() const {
    return !word_.empty() && now_() - last_ <= pause;
}

int32_t TypeAhead::Add(const TreeGrid& grid, char32_t character) {
    if (!Started()) End();
    last_ = now_();
    const char32_t letter = automation::BaseLetter(character);
    if (letter == 0 || grid.Schema().outline == GridSchema::none) return 0;
    Append(letter);
    if (lost_) return 0;
    const int32_t cursor = CursorPosition(grid);
    const std::string_view word = word_;
    const int32_t row = oneLetter_ ? FindName(grid, cursor + 1, word.substr(0, automation::OffsetOfCharacter(word, 1)))
                                   : FindName(grid, std::max(cursor, 0), word);
    lost_ = row == 0;
    return row;
}

void TypeAhead::Append(char32_t letter) {
    std::string word = word_;
    automation::AppendCharacter(word, letter);
    const bool first = word_.empty();
    if (first) first_ = letter;
    oneLetter_ = letter == first_ && (first || oneLetter_);
    lost_ = lost_ && !first;
    word_ = std::move(word);
}

}  // namespace foldertree
