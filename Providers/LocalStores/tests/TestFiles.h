// TestFiles: directories to throw away, the sample PST file, and programs to compare with.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "localstores/Store.h"

namespace localstores {

/// A new empty directory that is removed with everything in it at the end.
class TemporaryDirectory {
  public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::string Utf8() const;

  private:
    std::filesystem::path path_;
};

/// The sample PST file beside the repository, where there is one.
std::optional<std::filesystem::path> SamplePst();

std::string ReadWholeFile(const std::filesystem::path& file);
/// Makes the directory a mailbox of the Maildir kind; those above it are made where they are missing.
void MakeMaildir(const std::filesystem::path& directory);
void WriteWholeFile(const std::filesystem::path& file, const std::string& content);

#ifndef _WIN32
/// What the shell command prints on its standard output; nothing when it fails.
std::optional<std::string> OutputOf(const std::string& command);

/// Runs the call as the present user, or as nobody where that is root, who may read everything.
void AsNobody(const std::function<void()>& call);
#endif
std::vector<std::string> Lines(const std::string& text);

/// All folders below the folder, parents first, with their full names; levels are separated by `separator`.
std::vector<std::string> FullNames(const Folder& folder, const std::string& separator);

/// Calls `visit` with every folder of the tree, the folder itself first, and its depth (0).
void ForEachFolder(const Folder& folder, const std::function<void(const Folder& folder, int depth)>& visit);

/// The text of the error with which the call fails; fails the test when it does not.
std::string FailureOf(const std::function<void()>& call);
/// Its number.
uint32_t ErrorNumberOf(const std::function<void()>& call);

}  // namespace localstores
