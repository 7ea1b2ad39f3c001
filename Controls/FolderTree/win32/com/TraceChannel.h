// TraceChannel: the trace's way to the debugger's output.
#pragma once

#include <windows.h>

#include <string_view>

namespace foldertree {

/// Asks whether there is a receiver when a call from outside begins and four times a second while one runs, so that a
/// viewer that is started in the middle of a load hears it from then on.
class TraceChannel {
  public:
    /// The next question is not answered from memory.
    void AskAnew() noexcept { askAgainAt_ = 0; }
    bool IsHeard() noexcept;
    /// The line is UTF-8, written in the system's ANSI code page. It is written whether it is heard or not. A receiver
    /// that does not take it costs seconds; an error line tells of that, and there is silence until the receiver goes.
    void Write(std::string_view line) noexcept;

  private:
    ULONGLONG askAgainAt_ = 0;
    bool hasReceiver_ = false;
    bool isStuck_ = false;  ///< the receiver has not taken a line in its time
};

}  // namespace foldertree
