// Maildir: finding the mailboxes.
#include "maildir/Maildir.h"

#include <algorithm>
#include <string>
#include <vector>

#include "localstores/OpenFailure.h"
#include "model/FilePath.h"
#include "model/MailboxTree.h"

namespace localstores {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view providerName = "Maildir";
constexpr char point = '.';

bool IsDirectory(const fs::directory_entry& entry) {
    std::error_code ignored;
    return entry.is_directory(ignored);
}

std::string NameOf(const fs::directory_entry& entry) {
    return TextOf(entry.path().filename());
}

bool IsPointMailbox(const fs::directory_entry& entry) {
    const std::string name = NameOf(entry);
    if (name.size() < 2 || name.front() != point) return false;
    // A server moves a mailbox under this name while it deletes it.
    if (name == "..DOVECOT-TRASHED") return false;
    return IsDirectory(entry);
}

/// Not hidden, and no part of the mailbox that it stands in.
bool IsPlainDirectory(const fs::directory_entry& entry) {
    const std::string name = NameOf(entry);
    if (name.front() == point || name == "cur" || name == "new" || name == "tmp") return false;
    return IsDirectory(entry);
}

bool IsPlainMailbox(const fs::directory_entry& entry) {
    return IsPlainDirectory(entry) && IsMaildir(entry.path());
}

/// The mailboxes in plain directories, each before those in it.
class NestedMailboxes {
  public:
    NestedMailboxes(const fs::path& directory, std::string_view path) : walk_(directory, path) {
        AddFrom(SortedEntries(directory, path), "", 1);
    }

    std::vector<std::string> Take() { return std::move(names_); }

  private:
    void AddFrom(const std::vector<fs::directory_entry>& entries, const std::string& prefix, int depth) {
        for (const auto& entry : entries) {
            if (!IsPlainDirectory(entry)) continue;
            const bool isMailbox = IsMaildir(entry.path());
            // A link to anything but a mailbox may lead anywhere, to a whole disk even.
            std::error_code ignored;
            if ((entry.is_symlink(ignored) && !isMailbox) || !walk_.MayEnter(entry, depth)) continue;
            const std::string name = prefix + NameOf(entry);
            if (isMailbox) names_.push_back(name);
            AddFrom(SortedEntries(entry.path()), name + '/', depth + 1);
        }
    }

    DirectoryWalk walk_;
    std::vector<std::string> names_;
};

template <class Condition>
bool HoldsAny(const fs::path& directory, std::string_view path, Condition&& condition) {
    const auto entries = SortedEntries(directory, path);
    return std::any_of(entries.begin(), entries.end(), condition);
}

}  // namespace

bool IsMaildir(const fs::path& directory) {
    std::error_code ignored;
    return fs::is_directory(directory / "cur", ignored) && fs::is_directory(directory / "new", ignored);
}

bool HoldsNestedMaildirs(const fs::path& directory, std::string_view path) {
    if (!IsMaildir(directory)) return HoldsAny(directory, path, IsPlainMailbox);
    return !HoldsAny(directory, path, IsPointMailbox) && !NestedMailboxes(directory, path).Take().empty();
}

std::shared_ptr<Store> ReadMaildir(const fs::path& directory, std::string_view path) {
    std::vector<std::string> names{"INBOX"};
    for (const auto& entry : SortedEntries(directory, path))
        if (IsPointMailbox(entry)) names.push_back(NameOf(entry).substr(1));
    return MakeMailboxStore({directory, path, providerName, point, std::move(names)});
}

std::shared_ptr<Store> ReadNestedMaildir(const fs::path& directory, std::string_view path) {
    std::vector<std::string> names = NestedMailboxes(directory, path).Take();
    if (IsMaildir(directory)) names.insert(names.begin(), "INBOX");
    return MakeMailboxStore({directory, path, providerName, '/', std::move(names)});
}

}  // namespace localstores
