// TraceChannel: the trace's way to the debugger's output.
#include "win32/com/TraceChannel.h"

#include <array>
#include <string>

#include "automation/Text.h"
#include "automation/TextHash.h"
#include "common/ErrorLines.h"
#include "win32/com/TraceReceivers.h"

namespace foldertree {

namespace {

constexpr ULONGLONG askEvery = 250;  // ms

/// The system waits for a viewer that holds its buffer: Windows 10 s a line, Wine 5 s. No viewer that takes lines needs
/// a good part of that.
constexpr ULONGLONG stuckAfter = 4000;  // ms

/// A text in the ANSI code page. A usual line needs no memory but the stack's, which is also safe where the output's
/// receiver, in this thread, makes the control write another line.
class AnsiText {
  public:
    explicit AnsiText(std::string_view text);
    const char* Data() const { return long_.empty() ? short_.data() : long_.c_str(); }

  private:
    static constexpr size_t usual = 512;  ///< bytes of UTF-8
    void Convert(std::wstring_view wide);

    std::array<char, 4 * usual> short_;  ///< no code page takes more than four bytes a character
    std::string long_;
};

AnsiText::AnsiText(std::string_view text) {
    if (text.size() < usual && automation::IsAscii(text)) {
        short_[text.copy(short_.data(), usual)] = '\0';
        return;
    }
    std::array<wchar_t, usual> some;
    std::wstring all(text.size() < usual ? 0 : text.size(), L'\0');
    wchar_t* const wide = all.empty() ? some.data() : all.data();
    size_t count = 0;
    automation::ForEachUtf16Unit(text, [&](char16_t unit) { wide[count++] = static_cast<wchar_t>(unit); });
    Convert({wide, count});
}

void AnsiText::Convert(std::wstring_view wide) {
    const int length = static_cast<int>(wide.size());
    const auto convert = [&](char* to, int room) {
        return WideCharToMultiByte(CP_ACP, 0, wide.data(), length, to, room, nullptr, nullptr);
    };
    if (wide.size() < usual) {
        const int size = convert(short_.data(), static_cast<int>(short_.size()) - 1);
        short_[static_cast<size_t>(size)] = '\0';
    } else {
        long_.resize(static_cast<size_t>(convert(nullptr, 0)));
        convert(long_.data(), static_cast<int>(long_.size()));
    }
}

void Output(std::string_view line) noexcept {
    try {
        OutputDebugStringA(AnsiText(line).Data());
    } catch (...) {
        // For want of memory a long line is lost; the load goes on.
    }
}

void OutputStuck() noexcept {
    try {
        std::string line("ctlFolderTree: ");
        line.append(errorLines::trace.opening).append("0): [0x800705B4] The receiver of the trace takes no lines.");
        Output(line);
    } catch (...) {
    }
}

}  // namespace

bool TraceChannel::IsHeard() noexcept {
    const ULONGLONG now = GetTickCount64();
    if (now >= askAgainAt_) {
        hasReceiver_ = TraceHasReceiver();
        isStuck_ = isStuck_ && hasReceiver_;
        askAgainAt_ = now + askEvery;
    }
    return hasReceiver_ && !isStuck_;
}

void TraceChannel::Write(std::string_view line) noexcept {
    const ULONGLONG start = GetTickCount64();
    Output(line);
    if (isStuck_ || GetTickCount64() - start < stuckAfter) return;
    isStuck_ = true;
    OutputStuck();
}

}  // namespace foldertree
