// TypeAhead: finds a row by the beginning of its name, as a user types it.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "rows/TreeGrid.h"

namespace foldertree {

/// The word that is being typed. It is looked for at the beginning of the names of the shown rows, without regard to
/// case and accents, from the cursor down and from the top on again. A word that begins passes over the cursor's row,
/// so one letter again and again goes through its rows; a word of more than one letter may stay where it is. Cost: a
/// character looks at the names from the cursor to the row that it finds, at the worst at those of all shown rows once.
/// What a shorter word has not found is not looked for again.
class TypeAhead {
  public:
    using Clock = std::chrono::steady_clock;
    using Now = std::function<Clock::time_point()>;
    /// A longer one between two characters ends the word.
    static constexpr std::chrono::milliseconds pause{1000};

    explicit TypeAhead(Now now = Clock::now) : now_(std::move(now)) {}

    /// Whether a word is being typed, so that the next character belongs to it, be it one that means something else.
    bool Started() const;
    /// Adds a character. The row that is found, or 0: the cursor is to stay.
    int32_t Add(const TreeGrid& grid, char32_t character);
    /// The user does something else.
    void End() { word_.clear(); }

  private:
    void Append(char32_t letter);

    Now now_;
    Clock::time_point last_;
    std::string word_;  ///< its letters without case and accents
    char32_t first_ = 0;
    bool oneLetter_ = false;  ///< the first one again and again
    bool lost_ = false;       ///< no row begins like it
};

}  // namespace foldertree
