// TraceLog: what this process writes to the debugger output, kept for the trace pane and a file.
#pragma once

#include <cstdint>
#include <cstdio>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

namespace demo {

/// The newest lines of the process's debugger output. There is one, since the process has one such output. Other
/// readers, such as a debug-output viewer, still get every line.
class TraceLog {
  public:
    static constexpr size_t lineLimit = 2000;

    static TraceLog& Instance();

    /// Begins to listen; `file` may be empty. False when the file cannot be written.
    bool Start(const std::wstring& file);
    void Stop();
    /// Called with every line, in the middle of the call that writes it; it must not write lines itself.
    void SetListener(std::function<void(const std::wstring&)> listener);

    /// A line of the demo's own, through the debugger output like the control's.
    static void Note(std::wstring_view text);

    /// How many lines there were since the start; the last `lineLimit` of them are kept.
    uint64_t Total() const;
    size_t KeptCount() const;
    /// Line `index` of the kept ones, the oldest is 0; empty when out of range.
    std::wstring Line(size_t index) const;
    void Clear();

    void Add(std::wstring line);

  private:
    TraceLog() = default;

    mutable std::mutex mutex_;
    std::deque<std::wstring> lines_;
    uint64_t total_ = 0;
    std::function<void(const std::wstring&)> listener_;
    FILE* file_ = nullptr;
    void* handler_ = nullptr;
};

}  // namespace demo
