// A script host that loads another C++ runtime after the control and the local stores.

var session = new ActiveXObject("LocalStores.Session");
var tree = new ActiveXObject("FolderTree.ctlFolderTree");

function use() {
    var failed = false;
    try {
        session.Open("Z:\\no\\such\\file.pst");
    } catch (error) {
        failed = true;
    }
    if (!failed) WScript.Quit(1);

    // A session that is none: the control catches what it answers.
    tree.RDOSessionRef = new ActiveXObject("Scripting.Dictionary");
    tree.RefreshList();
    if (tree.ListCount !== 0) WScript.Quit(2);

    tree.RDOSessionRef = session;
    tree.ExtendToLevel = 0;
    tree.RefreshList();
    if (tree.ListCount < 60) WScript.Quit(3);
}

session.Open("sample");
use();
new ActiveXObject("ForeignRuntime.Loader").Load();
use();
WScript.Echo("The runtime came last and did no harm.");
