// FrameClock: keeps updates down to what an eye, or an ear, can follow.
#pragma once

#include <chrono>

namespace foldertree {

/// Says when the next update may come: by default at most about 60 a second, as frames do.
class FrameClock {
  public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds frame{16};

    explicit FrameClock(std::chrono::milliseconds shortest = frame) : shortest_(shortest) {}

    bool Due(Clock::time_point now = Clock::now()) const { return now - last_ >= shortest_; }
    void Drawn(Clock::time_point now = Clock::now()) { last_ = now; }
    /// The next update may come at once.
    void Restart() { last_ = {}; }

  private:
    std::chrono::milliseconds shortest_;
    Clock::time_point last_{};
};

}  // namespace foldertree
