// PstTarget: fuzzes PST files. The input is a list of patches to a sound file: the size to which it is cut (3 bytes, 0
// for all of it), then five bytes for each patch: what to do, where (3 bytes), and a value.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "FuzzInput.h"
#include "ScratchDirectory.h"
#include "StoreChecks.h"
#include "automation/Error.h"
#include "localstores/OpenStores.h"

namespace {

namespace fs = std::filesystem;

constexpr size_t blockSize = 512;

std::string SoundFile() {
    const fs::path file = fs::path(FOLDERTREE_SOURCE_DIR) / "../shared/data/dist-list.pst";
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "Skipped: the sample file dist-list.pst is not beside the repository.\n");
        std::exit(77);
    }
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Fills from `at`, up to the end of the file.
void Fill(std::string& file, size_t at, size_t size, uint8_t value) {
    const size_t end = std::min(file.size(), at + size);
    std::fill(file.begin() + static_cast<std::ptrdiff_t>(at), file.begin() + static_cast<std::ptrdiff_t>(end),
              static_cast<char>(value));
}

/// Overwrites what is at `to` with what is at `from`.
void Copy(std::string& file, size_t from, size_t to, size_t size) {
    const std::string piece = file.substr(from, std::min(size, file.size() - to));
    file.replace(to, piece.size(), piece);
}

void Patch(std::string& file, fuzz::FuzzInput& input) {
    const uint8_t action = input.TakeByte();
    const size_t low = input.Take<uint16_t>();
    const size_t at = (low | static_cast<size_t>(input.TakeByte()) << 16) % file.size();
    const size_t block = at / blockSize * blockSize;
    const uint8_t value = input.TakeByte();
    switch (action % 8) {
        case 0:
            file[at] = static_cast<char>(value);
            break;
        case 1:
            file[at] = static_cast<char>(file[at] ^ 1 << value % 8);
            break;
        case 2:
            file[at] = static_cast<char>(file[at] + value);
            break;
        case 3:
            return Fill(file, at, 4, value % 2 == 0 ? 0 : 0xFF);
        case 4:
            return Fill(file, at / 8 * 8, 8, value);
        case 5:
            return Copy(file, (at + value * 8u) % file.size(), at, 8);
        case 6:
            return Fill(file, block, blockSize, value);
        case 7:
            return Copy(file, value * blockSize % file.size(), block, blockSize);
    }
}

std::string DamagedFile(fuzz::FuzzInput input) {
    static const std::string sound = SoundFile();
    std::string file = sound;
    const size_t low = input.Take<uint16_t>();
    const size_t size = low | static_cast<size_t>(input.TakeByte()) << 16;
    while (!input.AtEnd()) Patch(file, input);
    if (size != 0 && size < file.size()) file.resize(size);
    return file;
}

}  // namespace

/// Where two columns of a damaged table have one number, libpff forgets the first of them. Nothing that we call gives
/// these 24 bytes back; docs/stores.md says what that costs.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libpff_column_definition_initialize";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const fuzz::ScratchDirectory scratch;
    static const std::string path = (scratch.Path() / "damaged.pst").string();
    const std::string content = DamagedFile({data, size});
    std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
    try {
        for (const auto& store : localstores::OpenStores(path)) fuzz::CheckStore(*store);
    } catch (const automation::Error& error) {
        fuzz::Must(error.Text().find(path) != std::string::npos, "a refusal names the file");
    }
    return 0;
}
