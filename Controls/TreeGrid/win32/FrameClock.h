// FrameClock: keeps window updates down to what an eye can follow.
#pragma once

#include <chrono>

namespace foldertree {

/// Says when the next frame may be drawn: at most about 60 a second.
class FrameClock {
  public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds frame{16};

    bool Due(Clock::time_point now = Clock::now()) const { return now - last_ >= frame; }
    void Drawn(Clock::time_point now = Clock::now()) { last_ = now; }

  private:
    Clock::time_point last_{};
};

}  // namespace foldertree
