// Matrix: every member x every place where foreign code runs inside it x everything that a host does there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "attack/Checks.h"
#include "attack/HostActions.h"
#include "attack/Members.h"
#include "attack/Setting.h"
#include "attack/Trap.h"

namespace foldertree::attack {

/// One member in one setting, and the places that it passes when the host does nothing there.
struct MatrixRun {
    const Setting* setting;
    const Member* member;
    std::vector<Trap::Passed> places;
};

struct Combination {
    uint16_t run;
    uint16_t place;  ///< from 0
    uint16_t action;
};

class Matrix {
  public:
    /// Finds the places by a run of each member.
    Matrix();

    const std::vector<MatrixRun>& Runs() const { return runs_; }
    const std::vector<Combination>& All() const { return all_; }
    /// About `size` of them, the same for the same seed: each kind of place with each action, each member with each
    /// kind of place, then what comes.
    std::vector<Combination> Sample(size_t size, uint32_t seed) const;

    /// Lets it happen. Returns what was wrong.
    Findings Run(const Combination& combination) const;

    /// "setting; member; place number; action", which Read() understands.
    std::string Write(const Combination& combination) const;
    std::optional<Combination> Read(const std::string& text) const;
    const Trap::Passed& PlaceOf(const Combination& combination) const {
        return runs_[combination.run].places[combination.place];
    }

  private:
    std::vector<MatrixRun> runs_;
    std::vector<Combination> all_;
    std::map<const Setting*, std::vector<std::string>> freshTrees_;
};

}  // namespace foldertree::attack
