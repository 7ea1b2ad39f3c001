// InputClock: tells input that waited while nobody could answer it from input that came in time.
#pragma once

#include <windows.h>

namespace foldertree {

/// Watches a load, which answers input only where it yields. Times are those of messages (milliseconds, wrapping
/// around).
class InputClock {
  public:
    /// A stretch without an answer that a user notices.
    static constexpr DWORD noticed = 100;

    /// Messages are about to be handled, or were just handled.
    void Answered(DWORD now) { answered_ = now; }
    /// Whether it is so long that nobody answered that what the user did meanwhile was done in the dark.
    bool Blocked(DWORD now) const { return now - answered_ > noticed; }
    /// When messages were handled last.
    DWORD Since() const { return answered_; }

  private:
    DWORD answered_ = 0;
};

}  // namespace foldertree
