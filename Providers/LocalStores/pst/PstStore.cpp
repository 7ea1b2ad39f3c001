// PstStore: from the nodes of a PST file to a tree of folders.
#include "pst/PstStore.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "localstores/OpenFailure.h"
#include "model/FilePath.h"
#include "model/StoreLimits.h"
#include "pst/PffItem.h"

namespace localstores {
namespace {

constexpr std::string_view providerName = "PST file";

namespace property {
constexpr uint32_t messageClass = 0x001A;
constexpr uint32_t recordKey = 0x0FF9;
constexpr uint32_t displayName = 0x3001;
constexpr uint32_t containerClass = 0x3613;
constexpr uint32_t ipmSubtree = 0x35E0;
constexpr uint32_t outbox = 0x35E2;
constexpr uint32_t wastebasket = 0x35E3;
constexpr uint32_t sentMail = 0x35E4;
constexpr uint32_t calendar = 0x36D0;
constexpr uint32_t contacts = 0x36D1;
constexpr uint32_t journal = 0x36D2;
constexpr uint32_t notes = 0x36D3;
constexpr uint32_t tasks = 0x36D4;
constexpr uint32_t drafts = 0x36D7;
constexpr uint32_t receiveFolder = 0x6605;
}  // namespace property

using Roles = std::pair<uint32_t, DefaultFolder>;
constexpr Roles rolesInStore[] = {{property::outbox, DefaultFolder::Outbox},
                                  {property::wastebasket, DefaultFolder::DeletedItems},
                                  {property::sentMail, DefaultFolder::SentMail}};
constexpr Roles rolesInFolder[] = {
    {property::calendar, DefaultFolder::Calendar}, {property::contacts, DefaultFolder::Contacts},
    {property::journal, DefaultFolder::Journal},   {property::notes, DefaultFolder::Notes},
    {property::tasks, DefaultFolder::Tasks},       {property::drafts, DefaultFolder::Drafts}};

/// The low five bits of a node number tell the kind of node.
FolderType TypeOfNode(uint32_t node) {
    constexpr uint32_t searchFolderNode = 0x03;
    return (node & 0x1F) == searchFolderNode ? FolderType::Search : FolderType::Generic;
}

/// The node number at the end of a folder's identifier; 0, which no folder has, when it is no such identifier.
uint32_t NodeOf(const std::optional<std::vector<uint8_t>>& entryId) {
    if (!entryId || entryId->size() != 24) return 0;
    const uint8_t* last = entryId->data() + 20;
    return last[0] | static_cast<uint32_t>(last[1]) << 8 | static_cast<uint32_t>(last[2]) << 16 |
           static_cast<uint32_t>(last[3]) << 24;
}

class TreeReader {
  public:
    TreeReader(const PffFile& file, std::string_view path) : path_(path), messageStore_(file.MessageStore()) {
        const auto key = messageStore_.Properties().Binary(property::recordKey);
        if (!key || key->size() != uid_.size()) throw DamagedStore(path_, "the store has no record key");
        std::copy(key->begin(), key->end(), uid_.begin());

        const PffItem item = file.RootFolder();
        root_ = MakeFolder(item);
        root_->type = FolderType::Root;
        ReadChildren(item, *root_, 1);
        FindRoles(messageStore_.Properties(), rolesInStore);
        FindInbox(file);
    }

    const StoreUid& Uid() const { return uid_; }
    std::optional<std::string> StoreName() const { return messageStore_.Properties().Text(property::displayName); }
    std::unique_ptr<Folder> TakeRoot() { return std::move(root_); }

    Folder* IpmRoot() const {
        const uint32_t node = NodeOf(messageStore_.Properties().Binary(property::ipmSubtree));
        const auto found = byNode_.find(node);
        if (found == byNode_.end()) throw DamagedStore(path_, "the folder that holds the user's folders is missing");
        return found->second;
    }

    std::map<DefaultFolder, Folder*> DefaultFolders() const {
        std::map<DefaultFolder, Folder*> folders;
        for (const auto& [which, node] : roles_)
            if (const auto found = byNode_.find(node); found != byNode_.end()) folders.emplace(which, found->second);
        return folders;
    }

  private:
    std::unique_ptr<Folder> MakeFolder(const PffItem& item) {
        const uint32_t node = item.Node();
        auto folder = std::make_unique<Folder>();
        const PffProperties properties = item.Properties();
        folder->name = properties.Text(property::displayName).value_or("");
        folder->containerClass = properties.Text(property::containerClass);
        folder->type = TypeOfNode(node);
        folder->id = MakeShortNumberedFolderId(uid_, node);
        if (!byNode_.emplace(node, folder.get()).second)
            throw DamagedStore(path_, "the file is damaged (a folder stands in two places)");
        FindRoles(properties, rolesInFolder);
        CheckFolderCount(path_, byNode_.size());
        return folder;
    }

    void ReadChildren(const PffItem& item, Folder& folder, int depth) {
        const int count = item.FolderCount();
        if (count > 0) CheckLevel(path_, depth);
        for (int i = 0; i < count; ++i) {
            const PffItem childItem = item.FolderAt(i);
            Folder& child = folder.Add(MakeFolder(childItem));
            ReadChildren(childItem, child, depth + 1);
        }
    }

    /// Mail clients record the default folders on the inbox and on the root folder; no other folder has these
    /// properties.
    template <size_t n>
    void FindRoles(const PffProperties& properties, const Roles (&roles)[n]) {
        for (const auto& [number, which] : roles)
            if (const uint32_t node = NodeOf(properties.Binary(number)); node != 0) roles_.emplace(which, node);
    }

    /// The inbox is the folder that receives what has no folder of its own: mail, whose classes start with "IPM".
    void FindInbox(const PffFile& file) {
        constexpr uint32_t receiveFolderTable = 0x62B;
        const auto table = file.Node(receiveFolderTable);
        const int rows = table ? table->RowCount() : 0;
        for (int i = 0; i < rows; ++i) {
            const PffProperties row = table->Row(i);
            const auto folder = row.Long(property::receiveFolder);
            if (folder && row.Text(property::messageClass) == "IPM") roles_.emplace(DefaultFolder::Inbox, *folder);
        }
    }

    std::string path_;
    PffItem messageStore_;
    StoreUid uid_{};
    std::unique_ptr<Folder> root_;
    std::unordered_map<uint32_t, Folder*> byNode_;
    std::map<DefaultFolder, uint32_t> roles_;
};

}  // namespace

std::shared_ptr<Store> ReadPst(const std::filesystem::path& file, std::string_view path, const PstLimits& limits) {
    PstReading reading(path, limits);
    const PffFile pff(file, reading);
    TreeReader tree(pff, path);

    StoreDescription store;
    store.name = tree.StoreName().value_or("");
    if (store.name.empty()) store.name = TextOf(file.stem());
    store.providerName = providerName;
    store.id = MakeStoreId(providerName, tree.Uid());
    store.kind = pff.IsUnicode() ? StoreKind::PstUnicode : StoreKind::PstAnsi;
    store.path = path;
    store.defaultFolders = tree.DefaultFolders();
    store.ipmRoot = tree.IpmRoot();
    store.root = tree.TakeRoot();
    // What was taken for missing may be what was not read any more.
    reading.CheckLimits();
    return std::make_shared<Store>(std::move(store));
}

}  // namespace localstores
