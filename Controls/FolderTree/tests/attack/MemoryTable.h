// MemoryTable: every member in every setting, with each of its allocations failing once, and from then on.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "attack/Members.h"
#include "attack/Snapshot.h"
#include "automation_testing/FailingMemory.h"

namespace foldertree::attack {

/// What came of an allocation that failed.
enum class Outcome {
    Same,     ///< all is as if there had been memory, and nothing is traced
    Told,     ///< a line of the trace tells of it
    Silent,   ///< nothing is traced, and something is not as it would have been: always a finding
    Escaped,  ///< the error left the member, which only a gesture and the making of a control allow
};

struct MemoryScenario {
    const Setting* setting;
    const Member* member;
    Expectations expected;
    int64_t allocations = 0;

    std::string Name() const { return std::string(setting->name) + "; " + member->name; }
};

struct Failure {
    uint16_t scenario;
    bool andAllAfter;
    int64_t allocation;  ///< from 1
};

class MemoryTable {
  public:
    /// Counts the allocations by a run of each scenario.
    MemoryTable();

    const std::vector<MemoryScenario>& Scenarios() const { return scenarios_; }
    const std::vector<Failure>& All() const { return all_; }
    /// About `size` of them, the same for the same seed, from each scenario some.
    std::vector<Failure> Sample(size_t size, uint32_t seed) const;

    struct Result {
        Findings findings;
        Outcome outcome = Outcome::Same;
        std::string trace;  ///< the lines that came, for a replay
    };
    Result Run(const Failure& failure) const;

    /// "setting; member; allocation" or "...; allocation on", which Read() understands.
    std::string Write(const Failure& failure) const;
    std::optional<Failure> Read(const std::string& text) const;

  private:
    std::vector<MemoryScenario> scenarios_;
    std::vector<Failure> all_;
    std::map<const Setting*, std::vector<std::string>> freshTrees_;
};

}  // namespace foldertree::attack
