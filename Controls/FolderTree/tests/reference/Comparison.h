// Comparison: runs sequences of events on two controls at once and cuts down a sequence after which they differ.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "reference/World.h"

namespace foldertree::reference {

struct Finding {
    size_t events = 0;  ///< how many events it took
    std::string text;   ///< in what the two then differ
};

class Comparison {
  public:
    Comparison(MakeControl product, MakeControl literal) : product_(std::move(product)), literal_(std::move(literal)) {}

    /// Compares after every event, until the control is closed. Nothing when the two never differ. Adds the number of
    /// events to `events`.
    std::optional<Finding> Run(const Sequence& sequence, int64_t& events) const;
    std::optional<Finding> Run(const Sequence& sequence) const;
    /// A shorter and simpler sequence that still makes a difference, after at most `runs` tries.
    Sequence Shrink(Sequence sequence, int runs = 2000) const;

  private:
    MakeControl product_;
    MakeControl literal_;
};

}  // namespace foldertree::reference
