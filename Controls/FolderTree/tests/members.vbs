' The control's members from a script: what a late-bound host may write, leave out and get wrong.
' Ends with 1 when anything differs; its last line says that it came to its end.
Option Explicit

Dim failures, tree, item
failures = 0
On Error Resume Next
Main
If Err.Number <> 0 Then Fail "Main", "error " & Hex(Err.Number) & " " & Err.Description, "no error"
If failures > 0 Then WScript.Quit 1
WScript.Echo "Every member did as it should."

' A collection of the host's own, as far as KillCollection needs one.
Class Pile
    Public Count
    Private Sub Class_Initialize
        Count = 3
    End Sub
    Public Sub Remove(position)
        If position <> 1 Then Err.Raise 5
        Count = Count - 1
    End Sub
End Class

Sub Main
    Set tree = CreateObject("FolderTree.ctlFolderTree")
    Properties
    Objects
    Items
    Collections
    Mistakes
    Calls
End Sub

Sub Properties
    Expect "ListCount", tree.ListCount, 0
    Expect "BufferedToLevel", tree.BufferedToLevel, 0
    tree.Enabled = False
    Expect "Enabled", tree.Enabled, False
    tree.MultiSelect = False
    Expect "MultiSelect", tree.MultiSelect, False
    tree.AllowIndexing = False
    Expect "AllowIndexing", tree.AllowIndexing, False
    tree.ShowAddressBook = False
    Expect "ShowAddressBook", tree.ShowAddressBook, False
    tree.HighlightContactFolders = False
    Expect "HighlightContactFolders", tree.HighlightContactFolders, False
    tree.HighlightJournalFolders = False
    Expect "HighlightJournalFolders", tree.HighlightJournalFolders, False
    tree.HighlightTaskFolders = False
    Expect "HighlightTaskFolders", tree.HighlightTaskFolders, False
    tree.Enabled = True
    Expect "Enabled", tree.Enabled, True
    tree.MultiSelect = True
    Expect "MultiSelect", tree.MultiSelect, True
    tree.AllowIndexing = True
    Expect "AllowIndexing", tree.AllowIndexing, True
    tree.ShowAddressBook = True
    Expect "ShowAddressBook", tree.ShowAddressBook, True
    tree.HighlightContactFolders = True
    Expect "HighlightContactFolders", tree.HighlightContactFolders, True
    tree.HighlightJournalFolders = True
    Expect "HighlightJournalFolders", tree.HighlightJournalFolders, True
    tree.HighlightTaskFolders = True
    Expect "HighlightTaskFolders", tree.HighlightTaskFolders, True
    tree.ExtendToLevel = 3
    Expect "ExtendToLevel", tree.ExtendToLevel, 3
    tree.InfoStoreAccessMode = 1
    Expect "InfoStoreAccessMode", tree.InfoStoreAccessMode, 1
    Expect "Font", IsObject(tree.Font), True
End Sub

Sub Objects
    Dim host
    Set host = New Pile
    Set tree.Application = host
    Expect "Application with Set", tree.Application Is host, True
    Set tree.Application = Nothing
    Expect "Application after Nothing", tree.Application Is Nothing, True
    tree.Application = host
    Expect "Application without Set", tree.Application Is host, True
    Set tree.Application = Nothing
    Set tree.Font = tree.Font
    Set tree.Selection = Nothing
    Expect "Selection", tree.Selection Is Nothing, True
    Set tree.SelectedItem = Nothing
    Expect "SelectedItem", tree.SelectedItem Is Nothing, True
    Expect "CDOSession where there is a CDO library", tree.CDOSession Is Nothing, Not HasClass("MAPI.Session")
End Sub

Function HasClass(progId)
    Dim made
    On Error Resume Next
    Set made = CreateObject(progId)
    HasClass = Err.Number = 0
End Function

Sub Items
    Set item = tree.CreateSelItem(5, "AB", "CD", "EF", "")
    Expect "Key", item.Key, "SAB|CD"
    Expect "EntryIDShort", item.EntryIDShort, ""
    Expect "KeyShortEntryID", item.KeyShortEntryID, "SAB|"
    Expect "FolderRecID", item.FolderRecID, 5
    Expect "Incomplete", item.Incomplete, True
    Expect "Address list", tree.CreateSelItem(5, "AB", "CD", "EF", "X1").Key, "LX1"
    Expect "No arguments", tree.CreateSelItem().Key, ""
    Expect "An argument in the middle left out", tree.CreateSelItem(5, , "CD").Key, "CD"
    item.Index = -7
    Expect "Index", item.Index, -7
    Set item = CreateObject("FolderTree.clsFolderTreeItem")
    Expect "A new item", item.Key, ""
End Sub

Sub Collections
    Dim host, variable, none
    Set host = New Pile
    Set variable = host
    tree.KillCollection variable
    Expect "Count after KillCollection", host.Count, 0
    Expect "The variable after KillCollection", variable Is Nothing, True
    tree.KillCollection Nothing
    tree.KillCollection none
    Expect "An empty variable", IsEmpty(none), True
    host.Count = 2
    tree.KillCollection (host)
    Expect "Count after KillCollection by value", host.Count, 0
End Sub

' Mistakes of the script are the script's; each must fail, and with the error that hosts know.
Sub Mistakes
    Set item = tree.CreateSelItem(1)
    On Error Resume Next
    item.Name = "x"
    ExpectError "Writing an item's Name", 438
    item.StoreID = "x"
    ExpectError "Writing an item's StoreID", 438
    tree.ListCount = 1
    ExpectError "Writing ListCount", 438
    tree.NoSuchMember
    ExpectError "A member that is not there", 438
    tree.ExtendToLevel = "deep"
    ExpectError "A text for ExtendToLevel", 13
    Set tree.SelectedItem = New Pile
    ' Windows calls it a type mismatch, Wine an interface that is missing.
    If Err.Number = 430 Then Err.Clear Else ExpectError "An object that is no item", 13
End Sub

Sub Calls
    tree.Localize "No.", "Pick", "Name", "Lists", "Wait", "Stop"
    tree.SelectNone
    tree.SelectAll
    tree.SelectByType 0
    tree.SelectByType 0, True
    tree.CollapseToSelection
    tree.CollapseToType 2
    tree.RefreshList
    Expect "GetMsgItem of an empty tree", tree.GetMsgItem("AB", "CD") Is Nothing, True
    Expect "GetAdListItem of an empty tree", tree.GetAdListItem("AB", "CD") Is Nothing, True
    Expect "ListCount after a refresh without a session", tree.ListCount, 0
End Sub

Sub Expect(what, found, wanted)
    If found <> wanted Then Fail what, found, wanted
End Sub

Sub ExpectError(what, wanted)
    If Err.Number <> wanted Then Fail what, "error " & Err.Number & " (" & Hex(Err.Number) & ")", "error " & wanted
    Err.Clear
End Sub

Sub Fail(what, found, wanted)
    failures = failures + 1
    WScript.Echo what & ": found [" & found & "], wanted [" & wanted & "]"
End Sub
