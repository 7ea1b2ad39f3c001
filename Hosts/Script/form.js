// A script in JScript whose control stands on a form: the user ticks a folder there, the script hears of it, saves and
// restores what was ticked, and closes the form while folders are read. Ends with 1 when anything is not as it should be.

var folderTree = "FolderTree.ctlFolderTree";
var keyHome = 0x24, keyDown = 0x28, keySpace = 0x20;
var failures = 0;

function expect(what, found, wanted) {
    if (found === wanted) return;
    ++failures;
    WScript.Echo(what + ": found [" + found + "], wanted [" + wanted + "]");
}

function tickFirstFolder(form) {
    form.Press(keyHome);
    form.Press(keyDown);
    form.Press(keySpace);
}

function main() {
    var session = new ActiveXObject("LocalStores.Session");
    session.Open("sample");
    var form = new ActiveXObject("ScriptForm.Form");
    var heard = 0;
    form.Listener = { Changed: function () { ++heard; } };

    // Create, load, tick by keyboard, hear of it.
    var tree = form.Show(folderTree);
    tree.AllowIndexing = true;
    tree.ExtendToLevel = 2;
    tree.RDOSessionRef = session;
    tree.RefreshList();
    expect("Changed before the user did anything", heard, 0);
    tickFirstFolder(form);
    expect("Changed after a tick", heard, 1);
    expect("Count after a tick", tree.Selection.Count, 1);
    var item = tree.Selection.Item(1);
    var saved = { store: item.StoreID, folder: item.EntryID, name: item.Name };

    // Save and restore: the form keeps the settings, the script the identifiers.
    item = null;
    tree = null;
    form.Close();
    tree = form.Show(folderTree);
    expect("AllowIndexing of the next form", tree.AllowIndexing, true);
    expect("ExtendToLevel of the next form", tree.ExtendToLevel, 2);
    tree.MultiSelect = false;
    tree.RDOSessionRef = session;
    tree.RefreshList();
    tree.SelectedItem = tree.CreateSelItem(7, saved.store, saved.folder);
    expect("The folder that was ticked", tree.SelectedItem.Name, saved.name);
    expect("Changed while the script restores", heard, 1);

    // Close during a refresh.
    var slow = new ActiveXObject("LocalStores.Session");
    slow.Open("sample?delay=20&rows=3");
    tree.ExtendToLevel = 0;
    tree.RDOSessionRef = slow;
    form.CloseIn(100);
    tree.RefreshList();
    expect("The form is open after that", form.IsOpen, false);
    expect("The whole mailbox was read", tree.ListCount > 60, false);
}

// An error that nobody handles would end a script with 0 under some hosts.
try {
    main();
} catch (error) {
    ++failures;
    WScript.Echo("Error " + error.number + ": " + error.message);
}
if (failures > 0) WScript.Quit(1);
WScript.Echo("The form came to its end.");
