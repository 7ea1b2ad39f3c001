// Maildir: from directory names to a tree of folders.
#include "maildir/Maildir.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "automation/Text.h"
#include "localstores/OpenFailure.h"
#include "maildir/ModifiedUtf7.h"
#include "model/FilePath.h"

namespace localstores {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view providerName = "Maildir";
constexpr std::string_view mailClass = "IPF.Note";
constexpr char separator = '.';

/// A byte that is no UTF-8 becomes a replacement character, so that every name can be shown.
std::string Readable(std::string_view name) {
    std::string readable;
    for (size_t i = 0; i < name.size();) automation::AppendCharacter(readable, automation::NextCharacter(name, i));
    return readable;
}

std::string DisplayName(std::string_view level) {
    const auto decoded = FromModifiedUtf7(level);
    return decoded ? *decoded : Readable(level);
}

/// The folders of one tree by their full names, made as the names are met, parents first.
class TreeBuilder {
  public:
    TreeBuilder(const StoreUid& uid, std::string_view path) : uid_(uid), path_(path) {
        root_ = std::make_unique<Folder>();
        root_->type = FolderType::Root;
        // No mailbox has this name, since it can be no directory's.
        root_->id = MakeFolderId(uid_, Fingerprint("/"));
        Make(*root_, "INBOX", "INBOX");
    }

    void AddMailbox(std::string_view fullName) {
        Folder* parent = root_.get();
        for (size_t end = 0, start = 0; end != std::string_view::npos; start = end + 1) {
            end = fullName.find(separator, start);
            const std::string_view level = fullName.substr(start, end - start);
            const std::string name = CanonicalName(fullName.substr(0, end));
            const auto known = byFullName_.find(name);
            parent = known != byFullName_.end() ? known->second : &Make(*parent, name, level);
        }
    }

    std::unique_ptr<Folder> TakeRoot() { return std::move(root_); }
    Folder* Find(const std::string& fullName) const {
        const auto found = byFullName_.find(fullName);
        return found == byFullName_.end() ? nullptr : found->second;
    }

  private:
    /// The inbox is the one mailbox whose name has no case.
    static std::string CanonicalName(std::string_view fullName) {
        const std::string_view top = fullName.substr(0, fullName.find(separator));
        if (!automation::EqualNoCase(top, "INBOX")) return std::string(fullName);
        return "INBOX" + std::string(fullName.substr(top.size()));
    }

    Folder& Make(Folder& parent, const std::string& fullName, std::string_view level) {
        if (byFullName_.size() >= maxFolders) throw DamagedStore(path_, "it has too many folders");
        auto folder = std::make_unique<Folder>();
        folder->name = DisplayName(level);
        folder->containerClass = mailClass;
        folder->id = MakeFolderId(uid_, Fingerprint(fullName));
        Folder& made = parent.Add(std::move(folder));
        byFullName_.emplace(fullName, &made);
        return made;
    }

    StoreUid uid_;
    std::string path_;
    std::unique_ptr<Folder> root_;
    std::map<std::string, Folder*> byFullName_;
};

bool IsMailbox(const fs::directory_entry& entry, const std::string& name) {
    if (name.size() < 2 || name.front() != separator) return false;
    // A server moves a mailbox under this name while it deletes it.
    if (name == "..DOVECOT-TRASHED") return false;
    std::error_code ignored;
    return entry.is_directory(ignored);
}

/// In the order of their names, since directories list their entries in no order.
std::vector<std::string> MailboxNames(const fs::path& directory, std::string_view path) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = TextOf(entry->path().filename());
        if (IsMailbox(*entry, name)) names.push_back(name.substr(1));
    }
    if (error) throw DamagedStore(path, "the directory cannot be read (" + error.message() + ")");
    std::sort(names.begin(), names.end());
    return names;
}

bool LooksLikeMaildir(const fs::path& directory) {
    std::error_code ignored;
    return fs::is_directory(directory / "cur", ignored) && fs::is_directory(directory / "new", ignored);
}

std::map<DefaultFolder, Folder*> ConventionalFolders(const TreeBuilder& tree) {
    static const std::pair<DefaultFolder, const char*> conventions[] = {{DefaultFolder::Inbox, "INBOX"},
                                                                        {DefaultFolder::Drafts, "Drafts"},
                                                                        {DefaultFolder::SentMail, "Sent"},
                                                                        {DefaultFolder::SentMail, "Sent Items"},
                                                                        {DefaultFolder::SentMail, "Sent Messages"},
                                                                        {DefaultFolder::DeletedItems, "Trash"},
                                                                        {DefaultFolder::Junk, "Junk"}};
    std::map<DefaultFolder, Folder*> folders;
    for (const auto& [which, name] : conventions)
        if (Folder* folder = tree.Find(name)) folders.emplace(which, folder);
    return folders;
}

}  // namespace

std::shared_ptr<Store> ReadMaildir(const fs::path& directory, std::string_view path) {
    if (!LooksLikeMaildir(directory))
        throw NoSuchStore(path, "the directory is no Maildir, it lacks the sub-directories \"cur\" and \"new\"");
    std::error_code error;
    fs::path whole = fs::canonical(directory, error);
    if (error) whole = directory;
    const StoreUid uid = UidOfText(TextOf(whole));

    TreeBuilder tree(uid, path);
    for (const std::string& name : MailboxNames(directory, path)) tree.AddMailbox(name);

    StoreDescription store;
    store.name = Readable(TextOf(whole.filename()));
    store.providerName = providerName;
    store.id = MakeStoreId(providerName, uid);
    store.path = path;
    store.defaultFolders = ConventionalFolders(tree);
    store.root = tree.TakeRoot();
    store.root->name = store.name;
    store.ipmRoot = store.root.get();
    return std::make_shared<Store>(std::move(store));
}

}  // namespace localstores
