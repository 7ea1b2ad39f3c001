// Mbox: finding the mailboxes.
#include "mbox/Mbox.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "model/FilePath.h"
#include "model/MailboxTree.h"

namespace localstores {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view providerName = "mbox";
constexpr std::string_view subfoldersEnding = ".sbd";
constexpr std::string_view indexEnding = ".msf";

std::string NameOf(const fs::directory_entry& entry) {
    return TextOf(entry.path().filename());
}

bool IsSideFile(std::string_view name) {
    constexpr std::string_view endings[] = {indexEnding, ".dat", ".html", ".json", ".lock", ".sqlite"};
    return name.front() == '.' || std::any_of(std::begin(endings), std::end(endings),
                                              [&](std::string_view ending) { return name.ends_with(ending); });
}

bool BeginsAsMbox(const fs::path& file) {
    constexpr std::string_view beginning = "From ";
    char buffer[beginning.size()];
    std::ifstream in(file, std::ios::binary);
    return in.read(buffer, sizeof buffer) && std::string_view(buffer, sizeof buffer) == beginning;
}

bool IsFile(const fs::directory_entry& entry) {
    std::error_code ignored;
    return entry.is_regular_file(ignored);
}

bool IsEmptyFile(const fs::directory_entry& entry) {
    std::error_code error;
    return IsFile(entry) && entry.file_size(error) == 0 && !error;
}

bool IsMbox(const fs::directory_entry& entry) {
    if (!IsFile(entry) || IsSideFile(NameOf(entry))) return false;
    return IsEmptyFile(entry) || BeginsAsMbox(entry.path());
}

bool HoldsSubfolders(const fs::directory_entry& entry) {
    const std::string name = NameOf(entry);
    std::error_code ignored;
    return name.front() != '.' && name.ends_with(subfoldersEnding) && entry.is_directory(ignored);
}

bool HasIndex(const fs::directory_entry& entry) {
    std::error_code ignored;
    return fs::exists(PathOf(TextOf(entry.path()) + std::string(indexEnding)), ignored);
}

/// Whether the entry shows that mailboxes are kept here: an empty file alone may be anything.
bool ProvesMboxes(const fs::directory_entry& entry) {
    return HoldsSubfolders(entry) || (IsMbox(entry) && (!IsEmptyFile(entry) || HasIndex(entry)));
}

/// The mailboxes of a tree, each before those below it.
class Mboxes {
  public:
    Mboxes(const fs::path& directory, std::string_view path) : walk_(directory, path) {
        AddFrom(SortedEntries(directory, path), "", 1);
    }

    std::vector<std::string> Take() { return std::move(names_); }

  private:
    void AddFrom(const std::vector<fs::directory_entry>& entries, const std::string& prefix, int depth) {
        for (const auto& entry : entries) {
            const std::string name = prefix + NameOf(entry);
            if (IsMbox(entry)) names_.push_back(name);
            if (!HoldsSubfolders(entry) || !walk_.MayEnter(entry, depth)) continue;
            const std::string folder = name.substr(0, name.size() - subfoldersEnding.size());
            AddFrom(SortedEntries(entry.path()), folder + '/', depth + 1);
        }
    }

    DirectoryWalk walk_;
    std::vector<std::string> names_;
};

}  // namespace

bool HoldsMboxes(const fs::path& directory, std::string_view path) {
    const auto entries = SortedEntries(directory, path);
    return std::any_of(entries.begin(), entries.end(), ProvesMboxes);
}

std::shared_ptr<Store> ReadMboxes(const fs::path& directory, std::string_view path) {
    return MakeMailboxStore({directory, path, providerName, '/', Mboxes(directory, path).Take()});
}

}  // namespace localstores
