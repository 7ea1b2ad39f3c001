// A script as host, in JScript: the control without a container, with a collection made of a plain object.
// Ends with 1 when anything differs from what the script knows of the mailbox.

var FTIContactItem = 2;
var rdoInbox = 6, rdoContacts = 10;
var failures = 0;

function expect(what, found, wanted) {
    if (found === wanted) return;
    ++failures;
    WScript.Echo(what + ": found [" + found + "], wanted [" + wanted + "]");
}

// A keyed collection of the script's own; it has no _NewEnum. Count is a function, since the control calls and gets a
// member in one, and Wine's engine cannot call a number.
function KeyedItems() {
    var entries = [];

    function position(index) {
        if (typeof index === "number" && index >= 1 && index <= entries.length) return index - 1;
        for (var i = 0; i < entries.length; ++i) {
            if (typeof index === "string" && entries[i].key.toUpperCase() === index.toUpperCase()) return i;
        }
        throw new Error(typeof index === "string" ? 5 : 9, "no such item");
    }
    this.Item = function (index) { return entries[position(index)].item; };
    this.Add = function (item, key, before) {
        var place = 0; // `before` may be "missing", which a script can do nothing with but compare it
        while (place < entries.length && before !== place + 1) ++place;
        entries.splice(place, 0, { item: item, key: key });
    };
    this.Remove = function (index) { entries.splice(position(index), 1); };
    this.Count = function () { return entries.length; };
}

function main() {
    var session = new ActiveXObject("LocalStores.Session");
    session.Open("sample");
    var store = session.Stores.DefaultStore;
    var inbox = session.GetDefaultFolder(rdoInbox);
    var contacts = session.GetDefaultFolder(rdoContacts);

    var tree = new ActiveXObject("FolderTree.ctlFolderTree");
    tree.RDOSessionRef = session;

    var items = new KeyedItems();
    var folders = [contacts, inbox];
    for (var i = 0; i < folders.length; ++i) {
        var saved = tree.CreateSelItem(21 + i, store.EntryID, folders[i].EntryID);
        saved.Index = i + 1;
        items.Add(saved, saved.Key);
    }
    tree.Selection = items;
    tree.RefreshList();

    var back = tree.Selection;
    expect("Count", back.Count(), 2);
    for (i = 0; i < folders.length; ++i) {
        var item = back.Item("S" + store.EntryID + "|" + folders[i].EntryID);
        expect("Name", item.Name, folders[i].Name);
        expect("Path", item.Path, store.Name + "\\" + folders[i].Name);
        expect("Incomplete", item.Incomplete, false);
        expect("FolderRecID", item.FolderRecID, 21 + i);
        expect("Index", item.Index, i + 1);
    }
    expect("ItemType", back.Item(1).ItemType, FTIContactItem);

    // Without a collection of the host the control makes one of the rows that are still ticked.
    tree.Selection = null;
    var own = tree.Selection;
    expect("Count of the control's own collection", own.Count, 2);
    expect("Its first item", own(1).Name, contacts.Name);
    expect("Count of the script's collection afterwards", items.Count(), 2);
}

// An error that nobody handles would end a script with 0 under some hosts.
try {
    main();
} catch (error) {
    ++failures;
    WScript.Echo("Error " + error.number + ": " + error.message);
}
if (failures > 0) {
    WScript.Echo(failures + " differences");
    WScript.Quit(1);
}
WScript.Echo("The selection came back completed.");
