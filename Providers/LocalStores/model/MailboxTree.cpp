// MailboxTree: the folders by their full names, made as the names are met, parents first.
#include "model/MailboxTree.h"

#include <algorithm>
#include <map>
#include <utility>

#include "automation/Text.h"
#include "localstores/OpenFailure.h"
#include "model/FilePath.h"
#include "model/ModifiedUtf7.h"
#include "model/StoreLimits.h"

namespace localstores {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view mailClass = "IPF.Note";

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

class TreeBuilder {
  public:
    TreeBuilder(const StoreUid& uid, const MailboxNames& mailboxes)
        : uid_(uid), path_(mailboxes.path), separator_(mailboxes.separator), root_(std::make_unique<Folder>()) {
        root_->type = FolderType::Root;
        // No mailbox has this name, since it can be no directory's.
        root_->id = MakeFolderId(uid_, Fingerprint("/"));
    }

    void AddMailbox(std::string_view fullName) {
        Folder* parent = root_.get();
        int depth = 1;
        for (size_t end = 0, start = 0; end != std::string_view::npos; start = end + 1, ++depth) {
            CheckLevel(path_, depth);
            end = fullName.find(separator_, start);
            const std::string_view level = fullName.substr(start, end - start);
            const std::string name = CanonicalName(fullName.substr(0, end));
            const auto known = byFullName_.find(name);
            parent = known != byFullName_.end() ? known->second : &Make(*parent, name, level);
        }
    }

    std::unique_ptr<Folder> TakeRoot() { return std::move(root_); }
    Folder* Find(std::string_view fullName) const {
        const auto found = byFullName_.find(CanonicalName(fullName));
        return found == byFullName_.end() ? nullptr : found->second;
    }

  private:
    /// The inbox is the one mailbox whose name has no case.
    std::string CanonicalName(std::string_view fullName) const {
        const std::string_view top = fullName.substr(0, fullName.find(separator_));
        if (!automation::EqualNoCase(top, "INBOX")) return std::string(fullName);
        return "INBOX" + std::string(fullName.substr(top.size()));
    }

    Folder& Make(Folder& parent, const std::string& fullName, std::string_view level) {
        CheckFolderCount(path_, byFullName_.size() + 1);
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
    char separator_;
    std::unique_ptr<Folder> root_;
    std::map<std::string, Folder*> byFullName_;
};

std::map<DefaultFolder, Folder*> ConventionalFolders(const TreeBuilder& tree) {
    static const std::pair<DefaultFolder, const char*> conventions[] = {{DefaultFolder::Inbox, "INBOX"},
                                                                        {DefaultFolder::Drafts, "Drafts"},
                                                                        {DefaultFolder::SentMail, "Sent"},
                                                                        {DefaultFolder::SentMail, "Sent Items"},
                                                                        {DefaultFolder::SentMail, "Sent Messages"},
                                                                        {DefaultFolder::DeletedItems, "Trash"},
                                                                        {DefaultFolder::Junk, "Junk"},
                                                                        {DefaultFolder::Outbox, "Outbox"},
                                                                        {DefaultFolder::Outbox, "Unsent Messages"}};
    std::map<DefaultFolder, Folder*> folders;
    for (const auto& [which, name] : conventions)
        if (Folder* folder = tree.Find(name)) folders.emplace(which, folder);
    return folders;
}

fs::path Canonical(const fs::path& directory) {
    std::error_code error;
    fs::path whole = fs::canonical(directory, error);
    return error ? directory : whole;
}

std::vector<fs::directory_entry> Entries(const fs::path& directory, std::error_code& error) {
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(*entry);
    std::sort(entries.begin(), entries.end());
    return entries;
}

std::string PlaceOf(const fs::path& directory) {
    std::string place = TextOf(Canonical(directory));
    std::replace(place.begin(), place.end(), static_cast<char>(fs::path::preferred_separator), '/');
    return place;
}

}  // namespace

std::shared_ptr<Store> MakeMailboxStore(const MailboxNames& mailboxes) {
    const fs::path whole = Canonical(mailboxes.directory);
    const StoreUid uid = UidOfText(TextOf(whole));
    TreeBuilder tree(uid, mailboxes);
    for (const std::string& name : mailboxes.names) tree.AddMailbox(name);

    StoreDescription store;
    store.name = Readable(TextOf(whole.filename()));
    store.providerName = mailboxes.providerName;
    store.id = MakeStoreId(mailboxes.providerName, uid);
    store.path = mailboxes.path;
    store.defaultFolders = ConventionalFolders(tree);
    store.root = tree.TakeRoot();
    store.root->name = store.name;
    store.ipmRoot = store.root.get();
    return std::make_shared<Store>(std::move(store));
}

std::vector<fs::directory_entry> SortedEntries(const fs::path& directory, std::string_view path) {
    std::error_code error;
    auto entries = Entries(directory, error);
    if (error) throw DamagedStore(path, "the directory cannot be read (" + error.message() + ")");
    return entries;
}

std::vector<fs::directory_entry> SortedEntries(const fs::path& directory) {
    std::error_code ignored;
    return Entries(directory, ignored);
}

DirectoryWalk::DirectoryWalk(const fs::path& root, std::string_view path) : path_(path) {
    beingRead_.Add(PlaceOf(root));
}

bool DirectoryWalk::MayEnter(const fs::directory_entry& directory, int depth) {
    CheckLevel(path_, depth);
    std::error_code ignored;
    return !directory.is_symlink(ignored) || beingRead_.Add(PlaceOf(directory.path()));
}

}  // namespace localstores
