' A script as host: reads the sample mailbox through each of the registered classes by late binding. Ends with 1 when
' anything differs from what the script knows of the mailbox.
Option Explicit

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
WScript.Echo "All models showed the same mailbox."

Sub Main
    Dim expected
    expected = ReadRdo("LocalStores.Session")
    Expect "folders of the RDO session", UBound(Split(expected, vbLf)) > 70, True
    Expect "folders of the application", ReadOutlook("LocalStores.Application"), expected
    Expect "folders of the CDO session", ReadCdo("LocalStores.CdoSession"), expected
    Expect "folders of MAPI.Session", ReadCdo("MAPI.Session"), expected
End Sub

Function ReadRdo(progId)
    Dim session, store, text
    Set session = CreateObject(progId)
    session.Open "sample"
    For Each store In session.Stores
        text = text & store.Name & vbLf & RdoFolders(store.IPMRootFolder.Folders)
    Next
    Expect "nested lists", session.AddressBook.AddressLists.Item(1).AddressLists.Count, 4
    ReadRdo = text
End Function

' Searches are left out, since only some of the models show them.
Function RdoFolders(folders)
    Dim folder, text
    For Each folder In folders
        If folder.FolderKind = 1 Then text = text & folder.Name & "|" & folder.EntryID & vbLf & RdoFolders(folder.Folders)
    Next
    RdoFolders = text
End Function

Function ReadOutlook(progId)
    Dim application, space, i, text
    Set application = CreateObject(progId)
    Set space = application.GetNamespace("MAPI")
    For i = 1 To space.Folders.Count
        text = text & space.Folders(i).Name & vbLf & OutlookFolders(space.Folders.Item(i).Folders)
    Next
    Expect "inbox", space.GetFolderFromID(space.GetDefaultFolder(6).EntryID).Name, "Inbox"
    ReadOutlook = text
End Function

Function OutlookFolders(folders)
    Dim i, folder, text
    For i = 1 To folders.Count
        Set folder = folders(i)
        text = text & folder.Name & "|" & folder.EntryID & vbLf & OutlookFolders(folder.Folders)
    Next
    OutlookFolders = text
End Function

Function ReadCdo(progId)
    Dim session, store, text
    Set session = CreateObject(progId)
    session.Logon "", "", False, False
    For Each store In session.InfoStores
        text = text & store.Name & vbLf & CdoFolders(store.RootFolder.Folders)
    Next
    Expect "drafts", session.GetFolder(session.Inbox.Fields(&H36D70102).Value, "").Name, "Drafts"
    Expect "address lists", session.AddressLists.Count, 13
    session.Logoff
    ReadCdo = text
End Function

Function CdoFolders(folders)
    Dim folder, text
    Set folder = folders.GetFirst
    Do Until folder Is Nothing
        If folder.Fields(&H36010003).Value = 1 Then
            text = text & folder.Name & "|" & folder.ID & vbLf & CdoFolders(folder.Folders)
        End If
        Set folder = folders.GetNext
    Loop
    CdoFolders = text
End Function

Sub Expect(what, found, wanted)
    If found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo what & ": found " & found & ", wanted " & wanted
End Sub
