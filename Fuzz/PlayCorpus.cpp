// PlayCorpus: plays files through a fuzz target in builds without libFuzzer.
// play FILE_OR_DIRECTORY...                                 each file once
// play --mutate SECONDS SEED FOUND FILE_OR_DIRECTORY...     then changed at random, blind to what that reaches; the
// input
//                                                           that ends the program is left in the file FOUND
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

namespace fs = std::filesystem;
using Input = std::vector<uint8_t>;

std::vector<fs::path> FilesOf(const fs::path& path) {
    if (!fs::is_directory(path)) return {path};
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(path))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

/// Plays the files and returns them. Each is named before, so that whoever reads of a finding knows where it came from.
std::vector<Input> PlayFiles(char** first, char** last) {
    std::vector<Input> inputs;
    for (; first != last; ++first)
        for (const fs::path& file : FilesOf(*first)) {
            std::printf("%s\n", file.string().c_str());
            std::fflush(stdout);
            std::ifstream in(file, std::ios::binary);
            const std::string content{std::istreambuf_iterator<char>(in), {}};
            inputs.emplace_back(content.begin(), content.end());
            LLVMFuzzerTestOneInput(inputs.back().data(), inputs.back().size());
        }
    return inputs;
}

/// Changes inputs at random, the same ones for the same seed.
class Mutator {
  public:
    Mutator(std::vector<Input> inputs, unsigned seed) : inputs_(std::move(inputs)), random_(seed) {}

    Input Next() {
        Input input = inputs_[Below(inputs_.size())];
        for (size_t changes = size_t{1} << Below(5); changes > 0; --changes) Change(input);
        return input;
    }

  private:
    size_t Below(size_t end) { return end == 0 ? 0 : random_() % end; }

    void Change(Input& input) {
        constexpr size_t longest = 512;
        if (input.size() < longest && (input.empty() || Below(4) == 0)) return Insert(input);
        const size_t at = Below(input.size());
        switch (Below(4)) {
            case 0:
                input[at] = static_cast<uint8_t>(input[at] ^ 1u << Below(8));
                break;
            case 1:
                input[at] = static_cast<uint8_t>(random_());
                break;
            case 2:
                input.erase(input.begin() + static_cast<std::ptrdiff_t>(at));
                break;
            case 3:
                // Ends of ranges are where conversions go wrong.
                for (size_t i = at; i < std::min(input.size(), at + 4); ++i) input[i] = i % 4 == 3 ? 0x7F : 0xFF;
                break;
        }
    }

    /// A few bytes of another input, or of the same one.
    void Insert(Input& input) {
        const Input& other = inputs_[Below(inputs_.size())];
        const size_t from = Below(other.size());
        const size_t size = std::min(other.size() - from, 1 + Below(16));
        Input piece(other.begin() + static_cast<std::ptrdiff_t>(from),
                    other.begin() + static_cast<std::ptrdiff_t>(from + size));
        if (piece.empty()) piece.push_back(static_cast<uint8_t>(random_()));
        input.insert(input.begin() + static_cast<std::ptrdiff_t>(Below(input.size() + 1)), piece.begin(), piece.end());
    }

    std::vector<Input> inputs_;
    std::mt19937 random_;
};

Input playing;
const char* foundFile = nullptr;

/// The end of the program: what it played is all that matters now.
void KeepInput(int signal) {
    if (std::FILE* file = std::fopen(foundFile, "wb")) {
        std::fwrite(playing.data(), 1, playing.size(), file);
        std::fclose(file);
        std::fprintf(stderr, "Ended by signal %d; the input is in %s\n", signal, foundFile);
    }
    std::_Exit(1);
}

void PlayMutations(std::vector<Input> inputs, int seconds, unsigned seed) {
    for (const int signal : {SIGABRT, SIGSEGV, SIGFPE, SIGILL}) std::signal(signal, KeepInput);
    Mutator mutator(std::move(inputs), seed);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    size_t played = 0;
    for (; std::chrono::steady_clock::now() < end; ++played) {
        playing = mutator.Next();
        LLVMFuzzerTestOneInput(playing.data(), playing.size());
    }
    std::printf("%zu changed inputs played in %d seconds\n", played, seconds);
}

}  // namespace

int main(int count, char** arguments) {
    const bool mutates = count > 4 && std::string(arguments[1]) == "--mutate";
    if (mutates) foundFile = arguments[4];
    std::vector<Input> inputs = PlayFiles(arguments + (mutates ? 5 : 1), arguments + count);
    std::printf("%zu inputs played\n", inputs.size());
    if (inputs.empty()) return 1;
    if (mutates)
        PlayMutations(std::move(inputs), std::atoi(arguments[2]), static_cast<unsigned>(std::atoi(arguments[3])));
    return 0;
}
