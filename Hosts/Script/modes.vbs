' A script as host of the access modes that need no RDO session: a mail client's application, and a CDO session that the
' control logs on to by itself. Ends with 1 when the tree differs from what the script reads of the mail by itself.
Option Explicit

Const accessOutlook = 2
Const accessCdo = 3
Const FTIContactItem = 2

Dim failures
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
WScript.Echo "Both modes showed the contacts."

Sub Main
    Dim mail, tree, byClient, bySession
    Set mail = CreateObject("LocalStores.Application")
    mail.Open "sample"
    Set tree = CreateObject("FolderTree.ctlFolderTree")
    tree.ExtendToLevel = 0

    ' The mail client's object model: what the script finds by walking it is what the tree shows.
    tree.InfoStoreAccessMode = accessOutlook
    tree.RefreshList
    Expect "rows without an application", tree.ListCount, 0
    Set tree.Application = mail
    tree.RefreshList
    Expect "rows of the mail client", tree.ListCount, CountOf(mail.GetNamespace("MAPI").Folders)
    Set byClient = Contacts(tree)
    Expect "contact folders of the mail client", byClient.Count, ContactsIn(mail.GetNamespace("MAPI").Folders)

    ' The CDO session, which the control creates and logs on to.
    tree.InfoStoreAccessMode = accessCdo
    tree.RefreshList
    Expect "the control has a CDO session", tree.CDOSession Is Nothing, False
    If tree.ListCount < 60 Then Expect "rows of the CDO session", tree.ListCount, "60 or more"
    tree.KillCollection tree.Selection
    Set bySession = Contacts(tree)
    Dim path
    For Each path In bySession.Keys
        Expect "the mail client shows " & path & " too", byClient.Exists(path), True
    Next
    ' One folder of contacts has a class of its own, which tells a CDO session nothing.
    Expect "contact folders of the CDO session", bySession.Count, byClient.Count - 1

    ' Ticks are taken back, and nodes that hold nothing of the selection closed.
    tree.CollapseToSelection
    tree.SelectNone
    Expect "items after SelectNone", tree.Selection.Count, 0
End Sub

' The paths of the contact folders that the tree selects.
Function Contacts(tree)
    Dim item
    Set Contacts = CreateObject("Scripting.Dictionary")
    tree.SelectByType FTIContactItem, False
    For Each item In tree.Selection
        Expect item.Path & ": type", item.ItemType, FTIContactItem
        Contacts.Add item.Path, item.Key
    Next
End Function

Function CountOf(folders)
    Dim folder
    CountOf = 0
    For Each folder In folders
        CountOf = CountOf + 1 + CountOf(folder.Folders)
    Next
End Function

' A store itself is a folder of mail.
Function ContactsIn(folders)
    Dim folder
    ContactsIn = 0
    For Each folder In folders
        If folder.DefaultItemType = FTIContactItem Then ContactsIn = ContactsIn + 1
        ContactsIn = ContactsIn + ContactsIn(folder.Folders)
    Next
End Function

Sub Expect(what, found, wanted)
    If found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo what & ": found [" & found & "], wanted [" & wanted & "]"
End Sub
