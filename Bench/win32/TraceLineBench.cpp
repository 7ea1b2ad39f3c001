// TraceLineBench: what one trace line costs on the debugger channel with nobody listening, as
// under Wine, where nobody can be asked.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <string>

int main() {
    constexpr int lines = 20'000;
    const std::string line = "ctlFolderTree:           EntryID [long]: " + std::string(92, 'A');
    const auto start = std::chrono::steady_clock::now();
    for (int each = 0; each < lines; ++each) OutputDebugStringA(line.c_str());
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
    std::printf("OutputDebugStringA, %zu characters: %.1f microseconds a line\n", line.size(), taken.count() / lines);
    return 0;
}
