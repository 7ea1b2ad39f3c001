' Uses the installed control and the installed mail stores; its last line proves that it did not just end.
Set session = CreateObject("LocalStores.Session")
session.Open "sample"
Set tree = CreateObject("FolderTree.ctlFolderTree")
Set tree.RDOSessionRef = session
tree.RefreshList
tree.SelectAll
Set reader = CreateObject("NOXMAPI.NOXMAPIUtils")
WScript.Echo tree.Selection.Count & " items selected"
