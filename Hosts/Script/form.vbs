' A script whose control stands on a form: the user ticks a folder there, the script hears of it, saves and restores what was
' ticked, and closes the form while folders are read. Ends with 1 when anything is not as it should be.
Option Explicit

Const FolderTree = "FolderTree.ctlFolderTree"
Const keyHome = &H24, keyDown = &H28, keySpace = &H20

Dim failures, form, tree, listener, session, item, savedStore, savedFolder, savedName, count
failures = 0

Class ChangeListener
    Public Heard
    Public Sub Changed
        Heard = Heard + 1
    End Sub
End Class

Sub Expect(what, found, wanted)
    If found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo what & ": found [" & found & "], wanted [" & wanted & "]"
End Sub

Sub TickFirstFolder
    form.Press keyHome
    form.Press keyDown
    form.Press keySpace
End Sub

Set session = CreateObject("LocalStores.Session")
session.Open "sample"
Set form = CreateObject("ScriptForm.Form")
Set listener = New ChangeListener
listener.Heard = 0
Set form.Listener = listener

' Create, load, tick by keyboard, hear of it.
Set tree = form.Show(FolderTree)
tree.AllowIndexing = True
tree.ExtendToLevel = 2
Set tree.RDOSessionRef = session
tree.RefreshList
Expect "Changed before the user did anything", listener.Heard, 0
TickFirstFolder
Expect "Changed after a tick", listener.Heard, 1
Expect "Count after a tick", tree.Selection.Count, 1
Set item = tree.Selection.Item(1)
savedStore = item.StoreID
savedFolder = item.EntryID
savedName = item.Name

' Save and restore: the form keeps the settings, the script the identifiers.
Set item = Nothing
Set tree = Nothing
form.Close
Set tree = form.Show(FolderTree)
Expect "AllowIndexing of the next form", tree.AllowIndexing, True
Expect "ExtendToLevel of the next form", tree.ExtendToLevel, 2
tree.MultiSelect = False
Set tree.RDOSessionRef = session
tree.RefreshList
tree.SelectedItem = tree.CreateSelItem(7, savedStore, savedFolder)
Expect "The folder that was ticked", tree.SelectedItem.Name, savedName
Expect "Changed while the script restores", listener.Heard, 1

' Close during a refresh.
tree.ExtendToLevel = 0
Set session = CreateObject("LocalStores.Session")
session.Open "sample?delay=20&rows=3"
Set tree.RDOSessionRef = session
form.CloseIn 100
tree.RefreshList
Expect "The form is open after that", form.IsOpen, False
Expect "The whole mailbox was read", tree.ListCount > 60, False
Set tree = Nothing

If failures > 0 Then WScript.Quit 1
WScript.Echo "The form came to its end."
