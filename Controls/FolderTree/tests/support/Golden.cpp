// Golden: reading and writing of the files.
#include "support/Golden.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace foldertree::testing {

void ExpectGolden(const std::string& name, const std::vector<std::string>& lines) {
    const std::filesystem::path folder = FOLDERTREE_SOURCE_DIR "/Controls/FolderTree/tests/goldens";
    const std::filesystem::path expectedPath = folder / name;
    const std::filesystem::path newPath = folder / (name + ".new");

    std::vector<std::string> expected;
    std::ifstream file(expectedPath, std::ios::binary);
    for (std::string line; std::getline(file, line);) expected.push_back(line);
    std::filesystem::remove(newPath);
    if (lines == expected) return;

    std::ofstream out(newPath, std::ios::binary);
    for (const std::string& line : lines) out << line << "\n";
    EXPECT_EQ(lines, expected) << "differs from " << name << "; read " << newPath << " and rename it if it is right";
}

}  // namespace foldertree::testing
