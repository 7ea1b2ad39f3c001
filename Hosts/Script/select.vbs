' A script as host: the control without a container reads the sample mailbox, is handed a saved selection and gives it
' back completed. Ends with 1 when anything differs from what the script knows of the mailbox.
Option Explicit

Const FTIMailItem = 0
Const FTIContactItem = 2

Const rdoInbox = 6
Const rdoContacts = 10

Dim failures, session, store, tree, back
failures = 0

' An error that nobody handles would end a script with 0 under some hosts.
On Error Resume Next
Main
If Err.Number <> 0 Then
    WScript.Echo "Error " & Hex(Err.Number) & ": " & Err.Description
    WScript.Quit 1
End If
On Error GoTo 0
If failures > 0 Then
    WScript.Echo failures & " differences"
    WScript.Quit 1
End If
WScript.Echo "The selection came back completed."

' A keyed collection made by the host. A class of VBScript has no _NewEnum and no optional arguments: whoever has no place
' to give for Before sends Empty or "missing".
Class KeyedItems
    Private count_
    Private items_ ' by position, like the keys
    Private keys_

    Private Sub Class_Initialize
        count_ = 0
        Set items_ = CreateObject("Scripting.Dictionary")
        Set keys_ = CreateObject("Scripting.Dictionary")
    End Sub

    Public Property Get Count
        Count = count_
    End Property

    Public Default Property Get Item(index)
        Set Item = items_.Item(Position(index))
    End Property

    Public Sub Add(newItem, key, before)
        Dim place, i
        place = count_ + 1
        If VarType(before) <> vbError And Not IsEmpty(before) Then place = Position(before)
        For i = count_ To place Step -1
            Move i, i + 1
        Next
        Store place, newItem, key
        count_ = count_ + 1
    End Sub

    Public Sub Remove(index)
        Dim i
        For i = Position(index) To count_ - 1
            Move i + 1, i
        Next
        items_.Remove count_
        keys_.Remove count_
        count_ = count_ - 1
    End Sub

    Private Sub Move(source, target)
        Store target, items_.Item(source), keys_.Item(source)
    End Sub

    Private Sub Store(place, newItem, key)
        If items_.Exists(place) Then items_.Remove place
        items_.Add place, newItem
        keys_.Item(place) = key
    End Sub

    Private Function Position(index)
        Dim i
        If VarType(index) <> vbString Then
            If index < 1 Or index > count_ Then Err.Raise 9
            Position = CLng(index)
            Exit Function
        End If
        For i = 1 To count_
            If StrComp(keys_.Item(i), index, vbTextCompare) = 0 Then
                Position = i
                Exit Function
            End If
        Next
        Err.Raise 5
    End Function
End Class

Sub Main
    Dim inbox, contacts, customer
    Set session = CreateObject("LocalStores.Session")
    session.Open "sample"
    Set store = session.Stores.DefaultStore
    Set inbox = session.GetDefaultFolder(rdoInbox)
    Set contacts = session.GetDefaultFolder(rdoContacts)
    Set customer = Child(Child(inbox, "Customers"), "M") ' the one with an umlaut, which a script file cannot hold

    Set tree = CreateObject("FolderTree.ctlFolderTree")
    Expect "ListCount of a new control", tree.ListCount, 0
    Expect "ExtendToLevel of a new control", tree.ExtendToLevel, 1
    Expect "Selection before anything was ticked", tree.Selection Is Nothing, True

    ' Every level, so that the deep folder is found.
    Set tree.RDOSessionRef = session
    tree.ExtendToLevel = 0
    tree.RefreshList
    If tree.ListCount < 60 Then Expect "ListCount after the refresh", tree.ListCount, "60 or more"

    ' One folder by its long identifier, one by the other form of it, one that no mailbox has.
    Dim saved, items, i
    Set items = New KeyedItems
    Set saved = tree.CreateSelItem(11, store.EntryID, contacts.EntryID)
    saved.Index = 1
    items.Add saved, saved.Key, Empty
    Set saved = tree.CreateSelItem(12, store.EntryID, "EF" & Mid(customer.EntryID, 3), "", "")
    saved.Index = 2
    items.Add saved, saved.Key, Empty
    Set saved = tree.CreateSelItem(13, store.EntryID, inbox.EntryID)
    saved.Index = 3
    items.Add saved, saved.Key, Empty
    Set saved = tree.CreateSelItem(14, store.EntryID, "00112233")
    saved.Index = 4
    items.Add saved, saved.Key, Empty
    For i = 1 To 4
        Expect "Incomplete of new item " & i, items(i).Incomplete, True
        Expect "Name of new item " & i, items(i).Name, ""
    Next

    Set tree.Selection = items

    Set back = tree.Selection
    Expect "The selection is the script's own collection", back Is items, True
    Expect "Count", back.Count, 4

    ExpectItem KeyOf(contacts), contacts.Name, store.Name & "\" & contacts.Name, FTIContactItem, 11, 1
    ExpectItem KeyOf(customer), customer.Name, store.Name & "\" & inbox.Name & "\Customers\" & customer.Name, FTIMailItem, 12, 2
    ExpectItem KeyOf(inbox), inbox.Name, store.Name & "\" & inbox.Name, FTIMailItem, 13, 3

    ' What the tree does not have stays as the script made it.
    Set saved = back.Item("S" & store.EntryID & "|00112233")
    Expect "The absent folder: Incomplete", saved.Incomplete, True
    Expect "The absent folder: FolderRecID", saved.FolderRecID, 14

    Dim killed
    Set killed = back
    tree.KillCollection killed
    Expect "KillCollection empties the collection", items.Count, 0
    Expect "KillCollection sets the variable to Nothing", killed Is Nothing, True
End Sub

Sub Expect(what, found, wanted)
    If found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo what & ": found [" & found & "], wanted [" & wanted & "]"
End Sub

' The first child whose name begins so.
Function Child(folder, beginning)
    Dim candidate
    For Each candidate In folder.Folders
        If Left(candidate.Name, Len(beginning)) = beginning Then
            Set Child = candidate
            Exit Function
        End If
    Next
    Err.Raise 5, , "The sample mailbox has no folder " & beginning
End Function

Sub ExpectItem(key, name, path, itemType, record, index)
    Dim item
    Set item = back.Item(key)
    Expect name & ": Incomplete", item.Incomplete, False
    Expect name & ": Selected", item.Selected, True
    Expect name & ": Name", item.Name, name
    Expect name & ": Path", item.Path, path
    Expect name & ": ItemType", item.ItemType, itemType
    Expect name & ": FolderRecID", item.FolderRecID, record
    Expect name & ": Index", item.Index, index
    Expect name & ": Key", item.Key, key
End Sub

Function KeyOf(folder)
    KeyOf = "S" & store.EntryID & "|" & folder.EntryID
End Function
