// TestFiles: the helpers of the tests.
#include "TestFiles.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>

#include "automation/Error.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace localstores {

namespace fs = std::filesystem;

TemporaryDirectory::TemporaryDirectory() {
    static std::atomic<int> number = 0;
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    path_ = fs::temp_directory_path() / ("localstores-" + std::to_string(now) + "-" + std::to_string(number++));
    fs::create_directories(path_);
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TemporaryDirectory::Utf8() const {
    const std::u8string text = path_.u8string();
    return {text.begin(), text.end()};
}

std::optional<fs::path> SamplePst() {
    const fs::path file = fs::path(FOLDERTREE_SOURCE_DIR) / "../shared/data/dist-list.pst";
    if (!fs::exists(file)) return std::nullopt;
    return fs::canonical(file);
}

std::string ReadWholeFile(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void MakeMaildir(const fs::path& directory) {
    for (const char* part : {"cur", "new", "tmp"}) fs::create_directories(directory / part);
}

void WriteWholeFile(const fs::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
}

#ifndef _WIN32
std::optional<std::string> OutputOf(const std::string& command) {
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return std::nullopt;
    std::string output;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) output += static_cast<char>(c);
    if (pclose(pipe) != 0) return std::nullopt;
    return output;
}

void AsNobody(const std::function<void()>& call) {
    constexpr uid_t nobody = 65534;
    const uid_t user = geteuid();
    ASSERT_EQ(seteuid(user == 0 ? nobody : user), 0);
    call();
    ASSERT_EQ(seteuid(user), 0);
}
#endif

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::vector<std::string> FullNames(const Folder& folder, const std::string& separator) {
    std::vector<std::string> names;
    for (const auto& child : folder.children) {
        names.push_back(child->name);
        for (const std::string& name : FullNames(*child, separator)) names.push_back(child->name + separator + name);
    }
    return names;
}

void ForEachFolder(const Folder& folder, const std::function<void(const Folder& folder, int depth)>& visit) {
    const std::function<void(const Folder&, int)> walk = [&](const Folder& each, int depth) {
        visit(each, depth);
        for (const auto& child : each.children) walk(*child, depth + 1);
    };
    walk(folder, 0);
}

std::string FailureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const automation::Error& error) {
        return error.Text();
    }
    ADD_FAILURE() << "no error was raised";
    return {};
}

uint32_t ErrorNumberOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const automation::Error& error) {
        return error.Number();
    }
    ADD_FAILURE() << "no error was raised";
    return 0;
}

}  // namespace localstores
