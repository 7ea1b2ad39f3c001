// PstReading: one reading of a PST file: how its errors are told, and what it may cost.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "automation/Error.h"
#include "pst/ProcessMemory.h"

namespace localstores {

/// A few bytes in a damaged file can ask for more than any machine has. Real files stay far below.
struct PstLimits {
    std::chrono::milliseconds time = std::chrono::minutes(2);
    size_t memory = size_t{1} << 30;                   ///< bytes by which the process grows meanwhile
    size_t (*memoryInUse)() noexcept = ProcessMemory;  ///< what tells how large it is
};

/// Outlives all that reads through it. Used on one thread.
class PstReading {
  public:
    /// `path` is the file as the user named it.
    PstReading(std::string_view path, const PstLimits& limits);

    /// Whether the reading has cost more than it may; once it has, it stays so. Asked at each access to the file, so
    /// also within a call of libpff.
    bool IsSpent() noexcept;

    /// The error with which a reading ends that cannot go on for the reason; where a limit is what ended it, that.
    automation::Error Failure(std::string_view reason) const;
    /// Throws the error of a limit that was passed.
    void CheckLimits();

  private:
    enum class Spent { Nothing, Time, Memory };

    std::string path_;
    PstLimits limits_;
    std::chrono::steady_clock::time_point start_;
    size_t memoryAtStart_;
    Spent spent_ = Spent::Nothing;
};

}  // namespace localstores
