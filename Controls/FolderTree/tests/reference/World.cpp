// World: what each event does, and the comparison of two worlds.
#include "reference/World.h"

#include <algorithm>

#include "automation/Collection.h"
#include "reference/LiteralItems.h"
#include "reference/LiteralText.h"
#include "reference/Texts.h"

namespace foldertree::reference {

using automation::Error;
using automation::ObjectRef;
using automation::Value;

namespace {

constexpr size_t heldItems = 8;
constexpr size_t heldCollections = 3;
constexpr size_t mostFolders = 30;

size_t Index(int choice, size_t count) {
    return static_cast<size_t>(choice < 0 ? -choice : choice) % count;
}

/// "Error in X (12): ..." becomes "Error in X (?): ...": which source line failed is no behaviour.
std::string WithoutSourceLine(std::string line) {
    const size_t error = line.find("Error in ");
    if (error == std::string::npos) return line;
    const size_t open = line.find('(', error);
    const size_t close = line.find("): ", error);
    if (open == std::string::npos || close == std::string::npos) return line;
    return line.replace(open + 1, close - open - 1, "?");
}

constexpr int32_t numbers[] = {0, 1, 2, 3, 5, -4, 100, INT32_MAX};

template <size_t count>
const auto& Choose(const auto(&choices)[count], int choice) {
    return choices[Index(choice, count)];
}

}  // namespace

World::World(const MakeControl& make) : control_(make(*this, factory_)) {}

void World::Happen(const Event& event) {
    if (event.place == Place::Now)
        Do(event);
    else
        waiting_.push_back(event);
}

void World::Due(Place place) {
    Sequence due;
    for (Event& event : waiting_)
        if (event.place == place && --event.wait <= 0) due.push_back(event);
    std::erase_if(waiting_, [place](const Event& event) { return event.place == place && event.wait <= 0; });
    for (const Event& event : due) Do(event);
}

void World::Do(const Event& event) {
    if (closed_) return;
    Note("event " + Write({event}));
    try {
        if (event.kind <= Kind::Cancel)
            DoUser(event);
        else if (event.kind < Kind::ReadSelection)
            DoHost(event);
        else if (event.kind < Kind::AddFolder)
            DoItems(event);
        else
            DoProvider(event);
    } catch (const ControlGone&) {
        // What the literal control was doing has ended.
    } catch (const Error& error) {
        Returned("host saw error " + std::to_string(error.Number()));
    }
}

// What is there to choose from

int32_t World::Row(int choice) const {
    const int32_t rows = control_->RowCount() - 1;
    return rows < 1 ? -1 : 1 + static_cast<int32_t>(Index(choice, static_cast<size_t>(rows)));
}

ObjectRef World::KeptItem(int choice) const {
    return items_.empty() ? nullptr : items_[Index(choice, items_.size())];
}

ObjectRef World::KeptCollection(int choice) const {
    return collections_.empty() ? nullptr : collections_[Index(choice, collections_.size())];
}

void World::Keep(const ObjectRef& item) {
    if (item == nullptr || std::find(items_.begin(), items_.end(), item) != items_.end()) return;
    if (items_.size() < heldItems)
        items_.push_back(item);
    else
        items_[nextItem_++ % heldItems] = item;
}

void World::KeepCollection(const ObjectRef& collection) {
    if (collection == nullptr || std::find(collections_.begin(), collections_.end(), collection) != collections_.end())
        return;
    if (collections_.size() < heldCollections)
        collections_.push_back(collection);
    else
        collections_[nextCollection_++ % heldCollections] = collection;
}

// The user

void World::DoUser(const Event& event) {
    const auto note = [&](bool done) { Returned(done ? "taken" : "refused"); };
    if (event.kind == Kind::Cancel) return control_->cmdCancel_Click();
    const int32_t row = Row(event.a);
    if (row < 0) return;
    switch (event.kind) {
        case Kind::Tick:
            return note(control_->ToggleTick(row));
        case Kind::TypeNumber:
            if (!control_->MayEditIndex(row)) return note(false);
            return note(control_->CommitIndex(row, TypedText(event.b)));
        case Kind::CommitNumber:
            return note(control_->CommitIndex(row, TypedText(event.b)));
        case Kind::DoubleClick:
            return control_->DoubleClick(row);
        case Kind::OpenNode:
            return control_->SetNode(row, true);
        case Kind::CloseNode:
            return control_->SetNode(row, false);
        default:
            return control_->SetCurrentRow(row);
    }
}

// The host

void World::DoHost(const Event& event) {
    const bool flag = event.a % 2 != 0;
    switch (event.kind) {
        case Kind::Refresh:
            return control_->RefreshList();
        case Kind::SetMode:
            return control_->SetInfoStoreAccessMode(event.a % 6 - (event.a % 6 == 5 ? 6 : 0));
        case Kind::SetMultiSelect:
            return control_->SetMultiSelect(!flag);
        case Kind::SetAllowIndexing:
            return control_->SetAllowIndexing(!flag);
        case Kind::SetShowAddressBook:
            return control_->SetShowAddressBook(flag);
        case Kind::SetHighlight:
            return control_->SetHighlight(2 + event.b % 3, flag);
        case Kind::SetExtendToLevel:
            return control_->SetExtendToLevel(event.a % 5);
        case Kind::SetEnabled:
            return control_->SetEnabled(event.a % 4 != 0);
        case Kind::SetSession:
            return control_->SetRDOSessionRef(event.a % 4 == 0 ? nullptr : RdoSession(mail_, *this));
        case Kind::SetApplication:
            return control_->SetApplication(event.a % 4 == 0 ? nullptr : OutlookApplication(mail_, *this));
        case Kind::LoadSettings: {
            const auto bit = [&](int number) { return (event.a >> number & 1) != 0; };
            return control_->Load({.enabled = true,
                                   .highlightContacts = bit(0),
                                   .highlightJournals = bit(1),
                                   .highlightTasks = bit(2),
                                   .multiSelect = !(bit(3) && bit(6)),
                                   .allowIndexing = !bit(4),
                                   .showAddressBook = bit(5),
                                   .extendToLevel = event.b % 4,
                                   .mode = event.c % 4});
        }
        default:
            return control_->Localize("No", event.a % 2 ? "" : "Pick", "Folder",
                                      event.b % 2   ? AnyText(event.a)
                                      : event.a % 3 ? "Lists"
                                                    : "Books",
                                      "Wait", "Stop");
    }
}

void World::MakeItem(const Event& event) {
    const int32_t row = Row(event.a);
    std::string storeID = row < 0 ? "B2" : control_->CellText(row, colStoreID);
    std::string entryID = row < 0 ? "0001" : control_->CellText(row, colEntryID);
    std::string listID = row < 0 ? "" : control_->CellText(row, colAddressListID);
    switch (event.b % 8) {
        case 0:  // under the other form of its identifier
            if (entryID.size() > 2) entryID.replace(0, 2, "EF");
            break;
        case 1:  // of no row
            entryID = "00EE";
            break;
        case 2:
            return Keep(control_->CreateSelItem(event.c, "", entryID, "", ""));
        case 3:  // in other letters
            entryID = OtherCase(entryID);
            storeID = OtherCase(storeID);
            listID = OtherCase(listID);
            break;
        case 4:
            entryID = AnyText(event.a + event.c);
            break;
        default:
            break;
    }
    Keep(control_->CreateSelItem(event.c, storeID, entryID, event.c % 2 ? "EF01" : AnyText(event.a), listID));
}

void World::DoItems(const Event& event) {
    switch (event.kind) {
        case Kind::ReadSelection: {
            const ObjectRef collection = control_->Selection();
            Returned(collection == nullptr ? "no selection" : "selection");
            KeepCollection(collection);
            if (collection == nullptr) return;
            const automation::Collection items(collection);
            if (const int32_t count = items.Count(); count > 0) Keep(items.Item(1 + event.a % count).ToObject());
            return;
        }
        case Kind::AssignSelection: {
            ObjectRef collection;
            const int choice = event.a % 8;
            if (choice == 1) collection = control_->NewCollection();
            if (choice == 2) collection = std::make_shared<LiteralCollection>(event.b % 2 == 0);
            if (choice > 2) collection = KeptCollection(event.b);
            KeepCollection(collection);
            return control_->SetSelection(collection);
        }
        case Kind::ReadSelectedItem: {
            const ObjectRef item = control_->SelectedItem();
            Returned(item == nullptr ? "no item" : "item");
            return Keep(item);
        }
        case Kind::AssignSelectedItem: {
            const ObjectRef item = event.a % 6 == 0 ? nullptr : KeptItem(event.b);
            if (dynamic_cast<ForeignItem*>(item.get()) != nullptr) return;
            return control_->SetSelectedItem(item);
        }
        case Kind::MakeItem:
            return MakeItem(event);
        case Kind::MakeForeignItem: {
            const int32_t row = Row(event.a);
            auto item = std::make_shared<ForeignItem>();
            item->key = row < 0 || event.b % 3 == 0 ? "SX|Y" : control_->CellText(row, colKey);
            item->alternateKey = event.b % 3 == 0 && row >= 0 ? control_->CellText(row, colKey) : "";
            if (event.b % 4 == 1) item->key = OtherCase(item->key);
            if (event.b % 4 == 2) item->alternateKey = AnyText(event.a);
            item->tellsTexts = event.c % 3 == 0;
            item->selected = event.c % 2 == 0;
            return Keep(item);
        }
        case Kind::LookUp: {
            const int32_t row = Row(event.a);
            if (row < 0) return;
            const ObjectRef item =
                event.b % 4 == 0   ? control_->GetAdListItem(control_->CellText(row, colAddressListID), "")
                : event.b % 4 == 1 ? control_->GetMsgItem(control_->CellText(row, colStoreID), AnyText(event.c))
                : event.b % 4 == 2
                    ? control_->GetMsgItem(OtherCase(control_->CellText(row, colStoreID)),
                                           OtherCase(control_->CellText(row, colEntryID)))
                    : control_->GetMsgItem(control_->CellText(row, colStoreID), control_->CellText(row, colEntryID));
            Returned(item == nullptr ? "not found" : "found");
            return Keep(item);
        }
        case Kind::AddToCollection: {
            const ObjectRef item = KeptItem(event.a);
            const ObjectRef collection = KeptCollection(event.b);
            if (item == nullptr || collection == nullptr) return;
            std::string key = TextOf(item->Get("Key"));
            if (event.c % 16 == 1) key = "the host's own key";
            if (event.c % 16 == 2) key = "";
            if (event.c % 16 == 3) key = AnyText(event.a + event.b);
            if (event.c % 16 == 5) key = OtherCase(key);
            const automation::Collection items(collection);
            if (event.c % 4 == 0 && items.Count() > 0) return items.Add(item, key, 1 + event.c % items.Count());
            return items.Add(item, key);
        }
        case Kind::RemoveFromCollection: {
            const ObjectRef collection = KeptCollection(event.a);
            if (collection == nullptr) return;
            const automation::Collection items(collection);
            if (const int32_t count = items.Count(); count > 0) items.Remove(1 + event.b % count);
            return;
        }
        case Kind::NumberItem:
            if (const ObjectRef item = KeptItem(event.a)) item->Put("Index", Choose(numbers, event.b));
            return;
        case Kind::KillCollection: {
            ObjectRef collection = KeptCollection(event.a);
            control_->KillCollection(collection);
            return Returned(collection == nullptr ? "killed" : "still there");
        }
        case Kind::SelectNone:
            return control_->SelectNone();
        case Kind::SelectAll:
            return control_->SelectAll();
        case Kind::SelectByType:
            return control_->SelectByType(event.a % 8 - (event.a % 8 == 7 ? 8 : 0), event.b % 2 != 0);
        case Kind::Close:
            control_->Close();
            closed_ = true;
            return;
        case Kind::CollapseToSelection:
            return control_->CollapseToSelection();
        case Kind::CollapseToType:
            return control_->CollapseToType(event.a % 7);
        default:
            return Returned(control_->CDOSession() == nullptr ? "no CDO session" : "CDO session");
    }
}

// The provider

void World::DoProvider(const Event& event) {
    const std::vector<MailFolderRef> all = mail_->Folders();
    const std::vector<MailFolderRef> folders = mail_->FoldersBelowRoots();
    const auto any = [&](int choice) { return all[Index(choice, all.size())]; };
    switch (event.kind) {
        case Kind::AddFolder: {
            if (folders.size() >= mostFolders) return;
            auto folder = std::make_shared<MailFolder>();
            folder->folderClass = event.b;
            // Now and then an identifier that another folder has already.
            folder->id = event.c == 0 && !folders.empty() ? any(event.b)->id : mail_->nextID++ % 0xF0;
            folder->name = event.b % 3 == 0 ? AnyText(event.b + event.c) : "Folder " + std::to_string(folder->id);
            auto& siblings = any(event.a)->children;
            siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(Index(event.c, siblings.size() + 1)),
                            folder);
            return;
        }
        case Kind::AddManyFolders: {
            if (folders.size() >= mostFolders) return;
            MailFolder& parent = *any(event.a);
            for (int i = 0; i < 200 + event.b * 8; ++i) {
                auto folder = std::make_shared<MailFolder>();
                folder->id = 0x1000 + i;
                folder->name = "Many " + std::to_string(i);
                folder->folderClass = i % 6;
                parent.children.push_back(folder);
            }
            return;
        }
        case Kind::RemoveFolder:
            if (folders.empty()) return;
            for (const MailFolderRef& parent : all)
                std::erase(parent->children, folders[Index(event.a, folders.size())]);
            return;
        case Kind::ChangeFolder: {
            if (folders.empty()) return;
            MailFolder& folder = *folders[Index(event.a, folders.size())];
            switch (event.b % 7) {
                case 0:
                    folder.name = event.c % 4 == 0 ? "Renamed " + std::to_string(event.a) : AnyText(event.a + event.c);
                    return;
                case 1:
                    folder.folderClass = event.c;
                    return;
                case 2:
                    folder.kind = 1 + event.c % 2;
                    return;
                case 3:
                    folder.hasLongID = event.c % 3 != 0;
                    return;
                case 4:
                    folder.hasShortID = event.c % 3 != 0;
                    return;
                case 5:
                    folder.textID = event.c % 4 == 0 ? "" : AnyText(event.a + event.c);
                    return;
                default:
                    folder.odd = {};
                    return;
            }
        }
        case Kind::MakeFolderOdd: {
            MailOddities& odd = any(event.a)->odd;
            switch (event.b % 9) {
                case 0:
                    odd.tableFails = event.c % 7;
                    return;
                case 1:
                    odd.rowCount = event.c % 5;
                    return;
                case 2:
                    odd.rowsPerCall = event.c % 4;
                    return;
                case 3:
                    odd.row = event.c % 6;
                    odd.value = event.a;
                    return;
                case 4:
                    odd.lowerBound = event.c % 3 - 1;
                    return;
                case 5:
                    odd.openFails = event.c % 2 != 0;
                    return;
                case 6:
                    odd.count = event.c % 4;
                    return;
                case 7:
                    odd.noCollection = event.c % 3 == 0;
                    return;
                default:
                    odd.nothingInside = event.c % 3 == 0;
                    return;
            }
        }
        case Kind::ChangeStore: {
            MailStore& store = *mail_->stores[Index(event.a, mail_->stores.size())];
            switch (event.b % 6) {
                case 0:
                    store.isDefault = event.c % 2 != 0;
                    return;
                case 1:
                    store.provider = event.c % 3;
                    return;
                case 2:
                    mail_->logonFails = event.c % 3 == 0;
                    return;
                case 3:
                    store.name = AnyText(event.a + event.c);
                    return;
                case 4:
                    store.id = event.c % 2 ? AnyText(event.a + event.c) : OtherCase(store.id);
                    return;
                default:
                    mail_->inbox = event.c % 3 == 0 ? AnyText(event.a) : event.c % 3 == 1 ? "0001" : "";
                    return;
            }
        }
        case Kind::ChangeLists: {
            const std::vector<MailListRef> lists = mail_->AllLists();
            MailList& list = *lists[Index(event.a, lists.size())];
            if (event.b % 4 == 0) list.countFails = event.c % 3;
            if (event.b % 4 == 1) list.deliverFails = event.c % 2 != 0;
            if (event.b % 4 == 2) list.id = event.c % 2 ? "E" + std::to_string(event.c % 5) : AnyText(event.c);
            if (event.b % 4 == 3) list.name = AnyText(event.a + event.c);
            return;
        }
        default:
            failAt_ = calls_ + 1 + event.a;
            return;
    }
}

// ControlPlatform and CallSink

std::string World::PanelText() const {
    return std::string(panel_ ? "panel " : "no panel ") + (busyPointer_ ? "busy " : "idle ") +
           std::to_string(static_cast<int64_t>(value_)) + "/" + std::to_string(static_cast<int64_t>(maximum_)) + " " +
           path_;
}

void World::Yield() {
    Note("yield at " + std::to_string(control_->RowCount()) + " rows, " + PanelText());
    Due(Place::InYield);
}

void World::SetWaitCaptions(std::string_view pleaseWait, std::string_view cancel) {
    Note("captions " + std::string(pleaseWait) + " " + std::string(cancel));
}

void World::SetProgress(double maximum, double value) {
    AskedByControl();
    maximum_ = maximum;
    value_ = value;
}

void World::RaiseChanged() {
    Note("changed");
    Due(Place::InChanged);
}

void World::PropertyChanged(std::string_view name) {
    Note("property " + std::string(name));
    Due(Place::InProperty);
}

void World::TraceLine(std::string_view line) {
    Note(WithoutSourceLine(std::string(line)));
}

void World::Called(const std::string& object, std::string_view member) {
    // A call that was under way may be followed by others up to the next yield.
    if (closed_) return;
    const int number = ++calls_;
    Note("call " + object + "." + std::string(member));
    Due(Place::InCall);
    if (number == failAt_) throw Error(automation::errors::unspecified, "The call failed.");
}

// Comparison

std::string World::Describe(const ObjectRef& item) const {
    if (item == nullptr) return "nothing";
    if (const auto* foreign = dynamic_cast<const ForeignItem*>(item.get()))
        return "foreign " + foreign->key + " #" + std::to_string(foreign->index);
    SeenItem seen;
    if (control_->SeeItem(item, seen) == nullptr) return "no item";
    return seen.key + " short " + seen.keyShort + " alternate " + seen.keyAlternate + " of " + seen.storeID + " " +
           seen.entryID + " " + seen.entryIDShort + " " + seen.addressListID + " '" + seen.name + "' '" + seen.path +
           "' #" + std::to_string(seen.index) + " type " + std::to_string(seen.itemType) + " record " +
           std::to_string(seen.folderRecID) + (seen.selected ? " selected" : "") +
           (seen.incomplete ? " incomplete" : "") + (seen.isAddressList ? " list" : "");
}

std::vector<std::string> World::DescribeHeld() const {
    std::vector<std::string> lines;
    for (const ObjectRef& item : items_) lines.push_back("item " + Describe(item));
    for (const ObjectRef& collection : collections_) {
        const automation::Collection view(collection);
        const int32_t count = view.Count();
        lines.push_back("collection of " + std::to_string(count));
        for (int32_t position = 1; position <= count; ++position) {
            const ObjectRef item = view.Item(position).ToObject();
            const auto held = std::find(items_.begin(), items_.end(), item);
            lines.push_back("  " + (held == items_.end() ? "" : "held " + std::to_string(held - items_.begin()) + " ") +
                            Describe(item));
        }
    }
    if (closed_) return lines;
    const ObjectRef selected = control_->SelectedItem();
    lines.push_back("selected " + Describe(selected));
    lines.push_back("rows " + std::to_string(control_->ListCount()) + " buffered " +
                    std::to_string(control_->BufferedToLevel()) + (control_->Refreshing() ? " refreshing" : ""));
    lines.push_back(PanelText());
    return lines;
}

namespace {

std::string Quoted(const std::vector<std::string>& lines, size_t at) {
    return at < lines.size() ? "'" + lines[at] + "'" : "nothing more";
}

std::optional<std::string> LineDifference(const char* what, const std::vector<std::string>& product,
                                          const std::vector<std::string>& literal) {
    if (product == literal) return std::nullopt;
    size_t at = 0;
    while (at < product.size() && at < literal.size() && product[at] == literal[at]) ++at;
    std::string text = std::string(what) + ": the control has " + Quoted(product, at) + ", the literal one " +
                       Quoted(literal, at) + "\n  after:";
    for (size_t before = at > 12 ? at - 12 : 0; before < at; ++before) text += "\n    " + product[before];
    return text;
}

std::string CellText(const SeenCell& cell) {
    return "'" + cell.text + "' back " + std::to_string(cell.backColor) + " fore " + std::to_string(cell.foreColor) +
           (cell.bold ? " bold" : "") + " picture " + std::to_string(cell.picture) + "/" +
           std::to_string(cell.pictureAlignment);
}

std::string RowText(const SeenRow& row) {
    return "level " + std::to_string(row.level) + (row.isNode ? " node" : "") + " state " + std::to_string(row.state) +
           " height " + std::to_string(row.height);
}

std::string RowDifference(int32_t number, const SeenRow& product, const SeenRow& literal) {
    const std::string where = "row " + std::to_string(number) + " ('" + product.cells[colName].text + "')";
    for (size_t col = 0; col < product.cells.size(); ++col)
        if (product.cells[col] != literal.cells[col])
            return where + " column " + std::to_string(col) + ": the control has " + CellText(product.cells[col]) +
                   ", the literal one " + CellText(literal.cells[col]);
    return where + ": the control has " + RowText(product) + ", the literal one " + RowText(literal);
}

std::string FrameText(const SeenFrame& frame) {
    std::string text = "cursor " + std::to_string(frame.currentRow) + " colours " + std::to_string(frame.backColor) +
                       " " + std::to_string(frame.textColor) + (frame.enabled ? " enabled" : " disabled") + " columns ";
    for (const bool hidden : frame.hidden) text += hidden ? "h" : "v";
    text += " visible";
    for (const int32_t row : frame.visibleRows) text += " " + std::to_string(row);
    if (!frame.untold.empty()) text += "; " + frame.untold;
    return text;
}

}  // namespace

std::optional<std::string> World::Difference(World& product, World& literal) {
    if (auto text = LineDifference("What happened", product.log_, literal.log_)) return text;
    if (product.closed_) return LineDifference("What the host holds", product.DescribeHeld(), literal.DescribeHeld());
    if (product.control_->RowCount() != literal.control_->RowCount())
        return "The control has " + std::to_string(product.control_->RowCount()) + " rows, the literal one " +
               std::to_string(literal.control_->RowCount());
    for (int32_t row = 0; row < product.control_->RowCount(); ++row) {
        const SeenRow a = product.control_->SeeRow(row);
        const SeenRow b = literal.control_->SeeRow(row);
        if (a != b) return RowDifference(row, a, b);
    }
    const SeenFrame productFrame = product.control_->SeeFrame();
    const SeenFrame literalFrame = literal.control_->SeeFrame();
    if (productFrame != literalFrame)
        return "The control's grid has " + FrameText(productFrame) + "\nthe literal one's " + FrameText(literalFrame);
    if (product.control_->SeeSettings() != literal.control_->SeeSettings()) return "The settings differ";
    return LineDifference("What the host holds", product.DescribeHeld(), literal.DescribeHeld());
}

}  // namespace foldertree::reference
