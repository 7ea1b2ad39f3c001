// SampleMailbox: from the tables to stores.
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

struct Options {
    Manners manners;
    bool leavesAnswerForLists = true;
    int32_t moreFolders = 0;
};

/// Numbered folders below `top`, each with up to a hundred children: the first hundred are the top's own, the next
/// hundred the first one's, and so on.
void AddNumberedFolders(Folder& top, const StoreUid& uid, int32_t count) {
    constexpr size_t childrenOfEach = 100;
    const uint64_t firstId = Fingerprint("numbered folders");
    std::vector<Folder*> made{&top};
    made.reserve(static_cast<size_t>(count) + 1);
    for (size_t number = 1; number <= static_cast<size_t>(count); ++number) {
        auto folder = std::make_unique<Folder>();
        folder->name = "Folder " + std::to_string(number);
        folder->containerClass = "IPF.Note";
        folder->id = MakeFolderId(uid, firstId + number);
        made.push_back(&made[(number - 1) / childrenOfEach]->Add(std::move(folder)));
    }
}

/// Takes the line and those below it that belong to it, and leaves `lines` behind them.
AddressList TakeList(std::span<const SampleList>& lines, const std::string& parentPath, const Options& options) {
    static const StoreUid uid = UidOfText("sample address book");
    const SampleList& line = lines.front();
    lines = lines.subspan(1);
    const std::string path = parentPath + "\\" + line.name;
    AddressList list;
    list.name = line.name;
    list.role = line.role;
    list.id = MakeFolderId(uid, Fingerprint(path));
    while (!lines.empty() && lines.front().level > line.level) list.children.push_back(TakeList(lines, path, options));
    list.hasEntries = list.children.empty();
    list.answersForLists = !list.children.empty() || options.leavesAnswerForLists;
    return list;
}

std::vector<AddressList> MakeAddressBook(const Options& options) {
    std::vector<AddressList> lists;
    for (auto lines = SampleAddressLists(); !lines.empty();) lists.push_back(TakeList(lines, "", options));
    return lists;
}

std::shared_ptr<Store> MakeStore(const SampleStore& sample, const Options& options) {
    const StoreUid uid = UidOfText(std::string("sample mailbox: ") + sample.name);
    StoreDescription store;
    store.name = sample.name;
    store.providerName = sample.providerName;
    store.id = MakeStoreId("sample mailbox", uid);
    store.kind = sample.kind;
    store.isDefault = sample.isDefault;
    store.path = "sample";
    store.manners = options.manners;
    // The address book is the server's: it comes with the mailbox.
    if (sample.isDefault) store.addressLists = MakeAddressBook(options);
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
    if (sample.kind == StoreKind::PublicFolders) AddNumberedFolders(*store.ipmRoot, uid, options.moreFolders);
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

struct Option {
    std::string_view name;
    void (*set)(Options& options, std::string_view path, std::string_view value);
};

/// A switch has one value only.
void Expect(std::string_view path, std::string_view value, std::string_view expected) {
    if (value != expected) throw NoSuchStore(path, "an option's value is not \"" + std::string(expected) + "\"");
}

constexpr Option knownOptions[] = {
    {"delay",
     [](Options& options, std::string_view path, std::string_view value) {
         options.manners.tableDelay = std::chrono::milliseconds(OptionValue(path, value));
     }},
    {"rows",
     [](Options& options, std::string_view path, std::string_view value) {
         // A table that gives nothing would have no end.
         options.manners.rowsPerRead = std::max(OptionValue(path, value), 1);
     }},
    {"folders",
     [](Options& options, std::string_view path, std::string_view value) {
         options.moreFolders = OptionValue(path, value);
         if (static_cast<size_t>(options.moreFolders) > maxFolders)
             throw NoSuchStore(path, "these are too many folders");
     }},
    {"count",
     [](Options& options, std::string_view path, std::string_view value) {
         Expect(path, value, "unknown");
         options.manners.countsFolders = false;
     }},
    {"lists",
     [](Options& options, std::string_view path, std::string_view value) {
         Expect(path, value, "refuse");
         options.leavesAnswerForLists = false;
     }},
};

/// "?delay=20&rows=5" after the name.
Options ReadOptions(std::string_view path) {
    Options options;
    std::string_view rest = path.substr(name.size());
    while (!rest.empty()) {
        rest.remove_prefix(1);
        const std::string_view text = rest.substr(0, rest.find('&'));
        rest.remove_prefix(text.size());
        const size_t equals = std::min(text.find('='), text.size());
        const auto option = std::find_if(std::begin(knownOptions), std::end(knownOptions),
                                         [&](const Option& known) { return known.name == text.substr(0, equals); });
        if (option == std::end(knownOptions)) throw NoSuchStore(path, "there is no such option");
        option->set(options, path, text.substr(std::min(equals + 1, text.size())));
    }
    return options;
}

}  // namespace

bool IsSamplePath(std::string_view path) {
    return path == name || (path.starts_with(name) && path[name.size()] == '?');
}

StoreList SampleMailbox(std::string_view path) {
    const Options options = ReadOptions(path);
    StoreList stores;
    for (const SampleStore& sample : SampleStores()) stores.push_back(MakeStore(sample, options));
    return stores;
}

}  // namespace localstores
