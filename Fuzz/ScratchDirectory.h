// ScratchDirectory: an empty directory, in memory where the system has such, that goes with everything in it.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace fuzz {

class ScratchDirectory {
  public:
    ScratchDirectory() {
        const std::filesystem::path memory = "/dev/shm";
        std::error_code ignored;
        const auto base =
            std::filesystem::is_directory(memory, ignored) ? memory : std::filesystem::temp_directory_path();
        path_ = base / ("foldertree-fuzz-" + std::to_string(getpid()));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directory(path_);
    }
    ~ScratchDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace fuzz
