' A script host that has loaded another C++ runtime before the control and the local stores.
Option Explicit

Dim loader, session, tree
Set loader = CreateObject("ForeignRuntime.Loader")
loader.Load

Set session = CreateObject("LocalStores.Session")
On Error Resume Next
session.Open "Z:\no\such\file.pst"
If Err.Number = 0 Then WScript.Quit 1
On Error GoTo 0
session.Open "sample"

' A session that is none: the control catches what it answers.
Set tree = CreateObject("FolderTree.ctlFolderTree")
Set tree.RDOSessionRef = CreateObject("Scripting.Dictionary")
tree.RefreshList
If tree.ListCount <> 0 Then WScript.Quit 2

Set tree.RDOSessionRef = session
tree.ExtendToLevel = 0
tree.RefreshList
If tree.ListCount < 60 Then WScript.Quit 3
WScript.Echo "The runtime came first and did no harm."
