// Program: the options of the attack programs, and how findings are told.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace foldertree::attack {

struct Options {
    bool full = false;  ///< everything, else the tests with their sample
    size_t part = 0;    ///< of `parts`, from 0: for several processes side by side
    size_t parts = 1;
    uint32_t seed = 1;
    size_t sample = 0;  ///< 0: as the test thinks best
    std::string replay;
};

/// Of this process.
const Options& TheOptions();

struct Program {
    std::function<bool()> playAll;                        ///< returns whether all was well
    std::function<bool(const std::string& text)> replay;  ///< one finding in this process
};

/// Reads the options, then plays what they ask for, or the tests. Returns the exit code.
int RunProgram(int argc, char** argv, const Program& program);

/// Every `parts`-th, from `part` on.
template <class Each>
std::vector<Each> MyPart(const std::vector<Each>& all) {
    std::vector<Each> mine;
    for (size_t number = TheOptions().part; number < all.size(); number += TheOptions().parts)
        mine.push_back(all[number]);
    return mine;
}

class StopWatch {
  public:
    double Seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count(); }
    /// A line of progress, which ends in " s".
    void Tell(size_t done, size_t of) const;

  private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// Findings of one kind are told once, with their number and one example.
class Tally {
  public:
    void Add(const std::string& kind, const std::string& example);
    size_t Count() const { return count_; }
    std::string Report() const;

  private:
    struct Kind {
        size_t count = 0;
        std::string example;
    };
    size_t count_ = 0;
    std::map<std::string, Kind> kinds_;
};

}  // namespace foldertree::attack
