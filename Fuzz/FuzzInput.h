// FuzzInput: the bytes of one fuzz input, taken piece by piece, and how a target tells that it found something.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace fuzz {

/// Ends the program, which is how a fuzzer learns of a finding, unless the condition holds.
inline void Must(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "Finding: not true that %s\n", what);
    std::abort();
}

/// What is asked for beyond the end is zero, so that every input is a whole one.
class FuzzInput {
  public:
    FuzzInput(const uint8_t* data, size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

    bool AtEnd() const { return rest_.empty(); }
    std::string_view Rest() const { return rest_; }

    template <class Number>
    Number Take() {
        Number number{};
        const std::string_view bytes = TakeText(sizeof number);
        if (!bytes.empty()) std::memcpy(&number, bytes.data(), bytes.size());
        return number;
    }
    uint8_t TakeByte() { return Take<uint8_t>(); }

    /// Fewer where there are not so many left.
    std::string_view TakeText(size_t size) {
        const std::string_view text = rest_.substr(0, size);
        rest_.remove_prefix(text.size());
        return text;
    }

  private:
    std::string_view rest_;
};

}  // namespace fuzz
