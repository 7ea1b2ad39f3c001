// SampleMailbox: from the table of folders to stores.
#include "sample/SampleMailbox.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "localstores/OpenFailure.h"
#include "sample/SampleFolders.h"

namespace localstores {
namespace {

std::unique_ptr<Folder> MakeFolder(const SampleFolder& line, const StoreUid& uid, const std::string& path) {
    auto folder = std::make_unique<Folder>();
    folder->name = line.name;
    if (line.containerClass != nullptr) folder->containerClass = line.containerClass;
    folder->type = line.type;
    folder->id = MakeFolderId(uid, Fingerprint(path));
    return folder;
}

std::unique_ptr<Folder> MakeRoot(const StoreUid& uid, Folder*& ipmRoot) {
    auto root = std::make_unique<Folder>();
    root->type = FolderType::Root;
    root->id = MakeFolderId(uid, Fingerprint("root"));

    auto top = std::make_unique<Folder>();
    top->name = "Top of Information Store";
    top->id = MakeFolderId(uid, Fingerprint("root\\top"));
    ipmRoot = &root->Add(std::move(top));

    // What every real store keeps out of its users' sight.
    auto finder = std::make_unique<Folder>();
    finder->name = "Finder";
    finder->id = MakeFolderId(uid, Fingerprint("root\\finder"));
    root->Add(std::move(finder));
    return root;
}

std::shared_ptr<Store> MakeStore(const SampleStore& sample, const Manners& manners) {
    const StoreUid uid = UidOfText(std::string("sample mailbox: ") + sample.name);
    StoreDescription store;
    store.name = sample.name;
    store.providerName = sample.providerName;
    store.id = MakeStoreId("sample mailbox", uid);
    store.kind = sample.kind;
    store.isDefault = sample.isDefault;
    store.path = "sample";
    store.manners = manners;
    store.root = MakeRoot(uid, store.ipmRoot);

    // The folders on the way to the present line, and their paths; a line belongs to the last folder of the level
    // above.
    std::vector<Folder*> open{store.ipmRoot};
    std::vector<std::string> paths{""};
    for (const SampleFolder& line : sample.folders) {
        open.resize(line.level);
        paths.resize(line.level);
        // A folder's identifier is made of its path, so that more folders in the table change no other folder's.
        const std::string path = paths.back() + "\\" + line.name;
        Folder& folder = open.back()->Add(MakeFolder(line, uid, path));
        if (line.role) store.defaultFolders.emplace(*line.role, &folder);
        open.push_back(&folder);
        paths.push_back(path);
    }
    return std::make_shared<Store>(std::move(store));
}

constexpr std::string_view name = "sample";

int32_t OptionValue(std::string_view path, std::string_view text) {
    int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 0)
        throw NoSuchStore(path, "an option's value is no number");
    return number;
}

/// "?delay=20&rows=5" after the name.
Manners ReadOptions(std::string_view path) {
    Manners manners;
    std::string_view rest = path.substr(name.size());
    while (!rest.empty()) {
        rest.remove_prefix(1);
        const std::string_view option = rest.substr(0, rest.find('&'));
        rest.remove_prefix(option.size());
        if (option.starts_with("delay="))
            manners.tableDelay = std::chrono::milliseconds(OptionValue(path, option.substr(6)));
        else if (option.starts_with("rows="))
            manners.rowsPerRead = std::max(OptionValue(path, option.substr(5)), 1);
        else
            throw NoSuchStore(path, "there is no such option");
    }
    return manners;
}

}  // namespace

bool IsSamplePath(std::string_view path) {
    return path == name || (path.starts_with(name) && path[name.size()] == '?');
}

StoreList SampleMailbox(std::string_view path) {
    const Manners manners = ReadOptions(path);
    StoreList stores;
    for (const SampleStore& sample : SampleStores()) stores.push_back(MakeStore(sample, manners));
    return stores;
}

}  // namespace localstores
