// Store: one message store with its folders, read completely when it is opened.
#pragma once

#include <chrono>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "localstores/AddressList.h"
#include "localstores/Folder.h"

namespace localstores {

enum class StoreKind { Unknown = 0, PstAnsi = 1, PstUnicode = 2, PrimaryExchange = 3, PublicFolders = 5 };

/// The default folders by the numbers that mail clients give them.
enum class DefaultFolder {
    DeletedItems = 3,
    Outbox = 4,
    SentMail = 5,
    Inbox = 6,
    Calendar = 9,
    Contacts = 10,
    Journal = 11,
    Notes = 12,
    Tasks = 13,
    Drafts = 16,
    Junk = 23
};

/// How a store answers, for trying out what a slow or a stingy server does to a program.
struct Manners {
    std::chrono::milliseconds tableDelay{0};                    ///< each read of table rows waits so long
    int32_t rowsPerRead = std::numeric_limits<int32_t>::max();  ///< one read of table rows gives no more
    bool countsFolders = true;                                  ///< false: a CDO session cannot count them
};

struct StoreDescription {
    std::string name;
    std::string providerName;  ///< may be empty
    EntryId id;
    StoreKind kind = StoreKind::Unknown;
    bool isDefault = false;
    std::string path;              ///< where the store was read from, as the user named it
    std::unique_ptr<Folder> root;  ///< everything, also what users never see
    Folder* ipmRoot = nullptr;     ///< the folder below which the user's own folders stand; in the tree of `root`
    std::map<DefaultFolder, Folder*> defaultFolders;  ///< in the tree of `root`
    std::vector<AddressList> addressLists;            ///< most stores bring none
    Manners manners;
};

/// Folder pointers stay valid as long as the store.
class Store {
  public:
    /// Throws automation::Error when two folders share one identifier.
    explicit Store(StoreDescription description);

    const std::string& Name() const { return description_.name; }
    const std::string& ProviderName() const { return description_.providerName; }
    const EntryId& Id() const { return description_.id; }
    StoreKind Kind() const { return description_.kind; }
    bool IsDefault() const { return description_.isDefault; }
    void SetDefault(bool isDefault) { description_.isDefault = isDefault; }
    const std::string& Path() const { return description_.path; }
    const Manners& HowItAnswers() const { return description_.manners; }
    const Folder& Root() const { return *description_.root; }
    const Folder& IpmRoot() const { return *description_.ipmRoot; }
    const std::vector<AddressList>& AddressLists() const { return description_.addressLists; }

    /// Null when the store has no such folder.
    const Folder* Default(DefaultFolder which) const;
    /// Takes both forms of an identifier; null when no folder has it.
    const Folder* Find(const EntryId& id) const;

  private:
    void Index(const Folder& folder);

    StoreDescription description_;
    std::unordered_map<std::string_view, const Folder*> byId_;  ///< by the bytes of the long form, the folder's own
};

}  // namespace localstores
