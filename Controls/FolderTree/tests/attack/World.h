// World: a loaded control with its host and its mail client, all of which stand behind one border.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "attack/Border.h"
#include "attack/ForeignBag.h"
#include "attack/ForeignFactory.h"
#include "attack/ForeignPlatform.h"
#include "attack/Setting.h"
#include "automation/KeyedCollection.h"
#include "ctlFolderTree.h"
#include "modes/ModeMailbox.h"

namespace foldertree::attack {

/// A collection, and what is in it when one looks past its border.
struct HostCollection {
    automation::ObjectRef face;
    std::shared_ptr<automation::KeyedCollection> items;
};

/// A collection that the host has handed over in the middle of a member, and what was in it then.
struct Bystander {
    HostCollection collection;
    std::vector<automation::ObjectRef> items;
    bool multiSelect = false;
};

/// The identifiers of the default store and of a folder: as long as real ones, so that they need memory of their own.
std::string StoreID();
std::string EntryID(std::string_view start);

class World {
  public:
    World(const Setting& setting, BorderRef border);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// Settings, sessions and a load, as after the start of a host; nothing is selected.
    void StartAnew();
    /// A session as the host hands it over in this mode.
    automation::ObjectRef NewSession() const;
    /// Items that match rows and items that do not, the control's and the host's own.
    HostCollection NewCollection(Holder holder);
    /// Such a collection with quiet items only.
    HostCollection QuietCollection(Holder holder);
    /// The host assigns a collection now and remembers what is in it.
    void Assign(HostCollection collection);
    /// An item of the control for a folder of the default store, whose identifier starts like that.
    ItemRef OwnItem(std::string_view entry);
    automation::ObjectRef ForeignItemFor(std::string_view entry, bool incomplete);
    /// The key of that folder's row.
    std::string KeyFor(std::string_view entry) const;
    /// -1 when there is none, or no control.
    int32_t RowNamed(std::string_view name) const;
    /// The first row whose folders have not been read; -1 when there is none.
    int32_t UnreadRow() const;

    const Setting& setting;
    BorderRef border;
    ForeignPlatform platform;
    ForeignFactory factory;
    testing::ModeMailbox mail;
    ForeignBag bag;       ///< with the setting's values
    ForeignBag savedBag;  ///< for what the control saves
    std::shared_ptr<ctlFolderTree> control;
    std::weak_ptr<ctlFolderTree> life;  ///< of the control
    ctlFolderTree* raw = nullptr;       ///< for a member that runs while the host lets go of `control`
    HostCollection selection;           ///< what the control works on
    automation::ObjectRef variable;     ///< the host's own, for KillCollection
    std::vector<Bystander> bystanders;

  private:
    void FillCollection(HostCollection& collection, bool quiet);
};

}  // namespace foldertree::attack
