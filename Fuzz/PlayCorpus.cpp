// PlayCorpus: plays files through a fuzz target once, for builds without libFuzzer: play FILE_OR_DIRECTORY...
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const fs::path& path) {
    if (!fs::is_directory(path)) return {path};
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(path))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

void Play(const fs::path& file) {
    // Named before it is played: whoever reads of a finding knows where it came from.
    std::printf("%s\n", file.string().c_str());
    std::fflush(stdout);
    std::ifstream in(file, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(in), {}};
    // A copy of exactly this size, so that a read beyond the end is seen.
    const std::vector<uint8_t> bytes(content.begin(), content.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

}  // namespace

int main(int count, char** arguments) {
    size_t played = 0;
    for (int i = 1; i < count; ++i)
        for (const fs::path& file : FilesOf(arguments[i])) {
            Play(file);
            ++played;
        }
    std::printf("%zu inputs played\n", played);
    return played > 0 ? 0 : 1;
}
