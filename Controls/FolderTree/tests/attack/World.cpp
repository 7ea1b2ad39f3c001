// World: how the host sets up its control.
#include "attack/World.h"

#include "attack/ForeignItem.h"

namespace foldertree::attack {

using automation::KeyedCollection;
using automation::ObjectRef;
using automation::Value;
using testing::MailFolder;
using testing::ModeMailbox;
using testing::TypedFolder;

std::string StoreID() {
    return "B2" + std::string(60, '0');
}

std::string EntryID(std::string_view start) {
    return std::string(start) + std::string(40, '0');
}

namespace {

ModeMailbox MailboxFor(const Setting& setting) {
    ModeMailbox mail;
    // Calls are not logged: the log would cost more than they do.
    mail.log = nullptr;
    testing::ModeStore store{"Mailbox", StoreID(), true, {}, "Provider"};
    store.folders = {
        MailFolder("Inbox", EntryID("0001"),
                   {MailFolder("Projects", EntryID("0011"),
                               {MailFolder("Alpha", EntryID("0021"), {MailFolder("Deep", EntryID("0031"))})}),
                    MailFolder("Zoo", EntryID("0012"))}),
        TypedFolder("To do", EntryID("0004"), 3, "IPF.Task")};
    for (int i = 0; i < setting.moreFolders; ++i)
        store.folders.push_back(MailFolder("More " + std::to_string(i), EntryID(std::to_string(1100 + i))));
    mail.inboxID = EntryID("0001");
    mail.stores = {std::move(store), {"Archive", "A1", false, {MailFolder("Old mail", EntryID("0030"))}, ""}};
    mail.addressLists = {testing::AddressList("Global", "G1", {testing::AddressList("Europe", "G11")})};
    return mail;
}

void Put(KeyedCollection& collection, const ObjectRef& item, const std::string& key) {
    const Value none{automation::Missing()};
    collection.Add(Value(item), Value(key), none, none);
}

}  // namespace

World::World(const Setting& worldSetting, BorderRef worldBorder)
    : setting(worldSetting),
      border(std::move(worldBorder)),
      platform(border),
      factory(border),
      mail(MailboxFor(setting)),
      bag(border),
      savedBag(border) {
    factory.inner.On("MAPI.Session", [this] { return mail.CdoSession(); });
    factory.inner.On("NOXMAPI.NOXMAPIUtils", [this] { return mail.Utilities(); });
    bag.values["ExtendToLevel"] = Value(int32_t{setting.extendToLevel});
    bag.values["AllowIndexing"] = Value(true);
    bag.values["MultiSelect"] = Value(setting.multiSelect);
    bag.values["ShowAddressBook"] = Value(setting.showAddressBook);
    bag.values["InfoStoreAccessMode"] = Value(static_cast<int32_t>(setting.mode));

    control = ctlFolderTree::Create(platform, factory);
    life = control;
    raw = control.get();
    StartAnew();
    if (setting.holder == Holder::Control) {
        control->SelectAll();
        selection.face = control->Selection();
        selection.items = std::dynamic_pointer_cast<KeyedCollection>(selection.face);
        Put(*selection.items, ForeignItemFor("late", true), "late");
        Put(*selection.items, ForeignItemFor("0012", true), "a stranger for a row that has an item");
    } else {
        selection = NewCollection(setting.holder);
        control->SetSelection(selection.face);
        if (!setting.multiSelect) control->SetSelectedItem(OwnItem("0012"));
    }
    variable = selection.face;
}

World::~World() {
    control.reset();
}

void World::StartAnew() {
    control->UserControl_InitProperties();
    control->UserControl_ReadProperties(bag);
    control->SetSelectedItem(nullptr);
    control->SetSelection(nullptr);
    control->SetEnabled(true);
    control->Localize("<index>", "<sel>", "<name>", "<address lists>", "wait", "cancel");
    if (setting.mode == eISAccess_Outlook)
        control->SetApplication(NewSession());
    else if (setting.mode != eISAccess_CDO)
        control->SetRDOSessionRef(NewSession());
    control->RefreshList();
}

ObjectRef World::NewSession() const {
    const Abroad abroad(border);
    if (setting.mode == eISAccess_Outlook) return MakeForeign(mail.Application(), providerPlaces, border);
    return MakeForeign(mail.RdoSession(), providerPlaces, border);
}

std::string World::KeyFor(std::string_view entry) const {
    return setting.mode == eISAccess_Outlook ? EntryID(entry) : "S" + StoreID() + "|" + EntryID(entry);
}

ItemRef World::OwnItem(std::string_view entry) {
    std::string storeID;
    std::string entryID;
    {
        const Abroad abroad(border);
        if (setting.mode != eISAccess_Outlook) storeID = StoreID();
        entryID = EntryID(entry);
    }
    return control->CreateSelItem(7, storeID, entryID, "", "");
}

ObjectRef World::ForeignItemFor(std::string_view entry, bool incomplete) {
    const Abroad abroad(border);
    return std::make_shared<ForeignItem>(border, KeyFor(entry), incomplete);
}

void World::FillCollection(HostCollection& collection, bool quiet) {
    const auto addOwn = [&](std::string_view entry) {
        const ItemRef item = OwnItem(entry);
        if (item) Put(*collection.items, item, item->Key());
    };
    const auto addForeign = [&](std::string_view entry, bool incomplete) {
        if (!quiet) Put(*collection.items, ForeignItemFor(entry, incomplete), KeyFor(entry));
    };
    addOwn("0001");
    addForeign("0011", false);
    addForeign("nobody", false);
    addOwn("0004");
    addForeign("0012", true);
    addOwn("not in the tree");
    addForeign("last", true);
}

HostCollection World::NewCollection(Holder holder) {
    const Abroad abroad(border);
    HostCollection collection{nullptr, std::make_shared<KeyedCollection>()};
    FillCollection(collection, false);
    collection.face = collection.items;
    Places places = collectionPlaces;
    places.enumerable = holder != Holder::HostsOwnUnwalked;
    if (holder == Holder::HostsOwn || holder == Holder::HostsOwnUnwalked)
        collection.face = MakeForeign(collection.items, places, border);
    return collection;
}

HostCollection World::QuietCollection(Holder holder) {
    const Abroad abroad(border);
    HostCollection collection{nullptr, std::make_shared<KeyedCollection>()};
    FillCollection(collection, true);
    collection.face = collection.items;
    if (holder == Holder::HostsOwn) collection.face = MakeForeign(collection.items, collectionPlaces, border);
    return collection;
}

void World::Assign(HostCollection collection) {
    control->SetSelection(collection.face);
    Bystander bystander{std::move(collection), {}, control && control->MultiSelect()};
    for (int32_t position = 1; position <= bystander.collection.items->Count(); ++position)
        bystander.items.push_back(bystander.collection.items->Item(Value(position)).ToObject());
    bystanders.push_back(std::move(bystander));
}

int32_t World::RowNamed(std::string_view name) const {
    if (!control) return -1;
    const TreeGrid& grid = control->Grid();
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row)
        if (grid.CellView(row, colName) == name) return row;
    return -1;
}

int32_t World::UnreadRow() const {
    if (!control) return -1;
    const TreeGrid& grid = control->Grid();
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row)
        if (grid.CellView(row, colIncomplete) == "-1") return row;
    return -1;
}

}  // namespace foldertree::attack
