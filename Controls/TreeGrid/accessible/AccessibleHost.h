// AccessibleHost: what the accessible tree must be told, since a grid cannot know it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace foldertree {

/// Whoever owns the grid. All but DisplayName is asked often and must neither throw nor run other code.
class AccessibleHost {
  public:
    virtual ~AccessibleHost() = default;
    /// What users know the grid as; empty where nobody says. May run other code, after which anything may be gone.
    virtual std::string DisplayName() const = 0;
    /// How many numbers there are; nothing while ticked rows are not numbered.
    virtual std::optional<int32_t> Numbers() const = 0;
    /// A load or an expansion runs: no action is taken, and no row is told of.
    virtual bool Busy() const = 0;
    /// Besides the grid's own Enabled().
    virtual bool Enabled() const = 0;
};

/// Whoever shows the grid.
class AccessibleView {
  public:
    virtual ~AccessibleView() = default;
    /// Whether the grid itself has the keyboard.
    virtual bool Focused() const = 0;
    /// Whether any part of the row can be seen.
    virtual bool InView(int32_t row) const = 0;
};

/// Of a grid that nobody says more of: no name, no numbers, never busy, enabled.
const AccessibleHost& NoAccessibleHost();

}  // namespace foldertree
