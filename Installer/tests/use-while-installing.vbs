' A host that has the control open while an installer runs: use-while-installing.vbs MSI [FILE]. With FILE it keeps that
' file for itself meanwhile.
Set tree = CreateObject("FolderTree.ctlFolderTree")
Set session = CreateObject("LocalStores.Session")
session.Open "sample"
Set tree.RDOSessionRef = session
tree.RefreshList
If WScript.Arguments.Count > 1 Then
    Const forAppending = 8
    Set locked = CreateObject("Scripting.FileSystemObject").OpenTextFile(WScript.Arguments(1), forAppending)
End If
status = CreateObject("WScript.Shell").Run("msiexec /i """ & WScript.Arguments(0) & """ /qn", 0, True)
tree.RefreshList
tree.SelectAll
WScript.Echo "Installer " & status & ", " & tree.Selection.Count & " items selected"
