// foldertree-dump: prints the tree that the control shows of local stores.
#include <cstdio>
#include <exception>
#include <string>

#include "ConsolePlatform.h"
#include "Options.h"
#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "ctlFolderTree.h"
#include "localstores/OutlookApplication.h"
#include "localstores/RdoSession.h"

namespace {

using foldertree::ctlFolderTree;
using foldertree::TreeGrid;

constexpr const char* columnNames[foldertree::gridColumnCount] = {
    "colSel",     "colIndex",   "colName",         "(reserved)",     "colRowKind",       "colIncomplete", "colItemType",
    "colStoreID", "colEntryID", "colEntryIDShort", "colFolderRecID", "colAddressListID", "colPath",       "colKey"};

automation::ObjectRef OpenSession(const std::vector<std::string>& stores) {
    automation::ObjectRef session = localstores::MakeRdoSession();
    for (const std::string& store : stores) session->Get("Open", store);
    return session;
}

/// An item as a host keeps it between two runs: the identifiers inside the key and no more.
foldertree::ItemRef ItemOfKey(ctlFolderTree& control, const std::string& key) {
    if (key.starts_with("L")) return control.CreateSelItem(0, "", "", "", key.substr(1));
    // A mail client's folders have keys without a store.
    if (!key.starts_with("S")) return control.CreateSelItem(0, "", key, "", "");
    const size_t bar = key.find('|');
    if (bar == std::string::npos)
        throw std::runtime_error("not a row key: " + key +
                                 "\nA key is S<store>|<folder>, L<address list> or, in mode 2, the folder alone.");
    return control.CreateSelItem(0, key.substr(1, bar - 1), key.substr(bar + 1), "", "");
}

void Select(ctlFolderTree& control, const std::vector<std::string>& keys) {
    if (keys.empty()) return;
    const auto items = std::make_shared<automation::KeyedCollection>();
    for (const std::string& key : keys) {
        const foldertree::ItemRef item = ItemOfKey(control, key);
        item->SetIndex(items->Count() + 1);
        automation::Collection(items).Add(item, item->Key());
    }
    control.SetSelection(items);
    // Left incomplete: the tree has no such row.
    for (int32_t position = 1; position <= items->Count(); ++position)
        if (items->Item(position).ToObject()->Get("Incomplete").ToBoolean())
            throw std::runtime_error("no row has the key " + keys[static_cast<size_t>(position - 1)]);
}

void Run(ctlFolderTree& control, const Step& step) {
    const auto itemType = static_cast<foldertree::enuFTIItemType>(step.itemType);
    switch (step.kind) {
        case Step::Kind::SelectAll:
            return control.SelectAll();
        case Step::Kind::SelectNone:
            return control.SelectNone();
        case Step::Kind::SelectByType:
            return control.SelectByType(itemType, false);
        case Step::Kind::AddByType:
            return control.SelectByType(itemType, true);
        case Step::Kind::CollapseToSelection:
            return control.CollapseToSelection();
        case Step::Kind::CollapseToType:
            return control.CollapseToType(itemType);
    }
}

void PrintFound(ctlFolderTree& control, const std::string& key) {
    const foldertree::ItemRef wanted = ItemOfKey(control, key);
    const foldertree::ItemRef found = control.GetMsgItem(wanted->StoreID(), wanted->EntryID());
    if (found == nullptr) throw std::runtime_error("the lookup finds no folder " + key);
    std::printf("%s\n", found->Path().c_str());
}

void Expand(ctlFolderTree& control, const std::string& path) {
    const int32_t row = control.Grid().FindRow(path, control.Grid().FixedRowCount(), foldertree::colPath);
    if (row == -1) throw std::runtime_error("no row has the path " + path);
    foldertree::GridInteraction(control.Grid(), control).SetNode(row, true);
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) switch (c) {
            case '\t':
                escaped += "\\t";
                break;
            case '\n':
                escaped += "\\n";
                break;
            case '\\':
                escaped += "\\\\";
                break;
            default:
                escaped += c;
        }
    return escaped;
}

void PrintRow(const TreeGrid& grid, int32_t row) {
    using foldertree::CellSetting;
    std::string line = std::to_string(grid.RowOutlineLevel(row)) + '\t' + std::to_string(grid.NodeState(row)) + '\t' +
                       std::to_string(grid.CellFormat(CellSetting::Bold, row, foldertree::colName));
    char color[16];
    std::snprintf(color, sizeof color, "\t0x%08X", grid.CellFormat(CellSetting::BackColor, row, foldertree::colName));
    line += color;
    for (int col = 0; col < grid.ColCount(); ++col) line += '\t' + Escaped(grid.CellText(row, col));
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stdout);
}

void Print(const TreeGrid& grid) {
    std::fputs("level\tstate\tbold\tback", stdout);
    for (const char* name : columnNames) std::printf("\t%s", name);
    std::fputc('\n', stdout);
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) PrintRow(grid, row);
}

void Dump(const Options& options) {
    ConsolePlatform platform(options.trace);
    ConsoleFactory factory;
    // Before the control is told of a mode: all object models show what the session has opened, and in CDO mode the
    // control logs on at once.
    const automation::ObjectRef session = OpenSession(options.stores);
    const auto control = ctlFolderTree::Create(platform, factory);
    control->UserControl_InitProperties();
    control->SetInfoStoreAccessMode(static_cast<foldertree::enuInfoStoreAccessMode>(options.mode));
    control->SetRDOSessionRef(session);
    control->SetApplication(localstores::MakeOutlookApplication());
    control->SetExtendToLevel(options.level);
    control->SetShowAddressBook(options.addressBook);
    control->SetHighlightContactFolders(options.highlightContacts);
    control->SetHighlightJournalFolders(options.highlightJournal);
    control->SetHighlightTaskFolders(options.highlightTasks);
    control->RefreshList();
    for (const std::string& path : options.expand) Expand(*control, path);
    Select(*control, options.select);
    for (const Step& step : options.steps) Run(*control, step);
    if (options.find.empty())
        Print(control->Grid());
    else
        PrintFound(*control, options.find);
    control->Close();
}

}  // namespace

int main(int argumentCount, char** arguments) {
    try {
        const Options options = ParseOptions(argumentCount, arguments);
        if (options.help)
            std::fputs(usage, stdout);
        else if (options.version)
            std::printf("foldertree-dump %s\n", FOLDERTREE_VERSION);
        else
            Dump(options);
        return 0;
    } catch (const std::invalid_argument& error) {
        std::fprintf(stderr, "foldertree-dump: %s\n%s", error.what(), usage);
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "foldertree-dump: %s\n", error.what());
        return 1;
    }
}
