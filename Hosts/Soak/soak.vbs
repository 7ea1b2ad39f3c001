' soak.vbs CYCLES: a script that uses the control over and over, on a form that comes from ScriptForm.dll: create, load, tick,
' expand, save, destroy. It ends with 1 when, from the 50th cycle on, anything has grown that its process holds.
Option Explicit

Const warmUpCycles = 50
Const keyHome = &H24, keyRight = &H27, keyDown = &H28, keySpace = &H20

Dim failures, gauge, cycles, cycle
failures = 0

Class ChangeListener
    Public Heard
    Private Sub Class_Initialize
        Heard = 0
    End Sub
    Public Sub Changed
        Heard = Heard + 1
    End Sub
End Class

Sub Expect(what, found, wanted)
    If found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo what & ": found [" & found & "], wanted [" & wanted & "]"
End Sub

Sub RunCycle
    Dim form, listener, session, tree, rows
    Set session = CreateObject("LocalStores.Session")
    session.Open "sample"
    Set form = CreateObject("ScriptForm.Form")
    Set listener = New ChangeListener
    Set form.Listener = listener
    Set tree = form.Show("FolderTree.ctlFolderTree")
    tree.ExtendToLevel = 1
    Set tree.RDOSessionRef = session
    tree.RefreshList
    rows = tree.ListCount
    form.Press keyHome
    form.Press keyDown
    form.Press keySpace
    form.Press keyRight
    Expect "Changed after a tick", listener.Heard, 1
    Expect "The opened folder shows what is below it", tree.ListCount > rows, True
    Expect "Count of the selection", tree.Selection.Count, 1
    Set tree = Nothing
    form.Close ' which saves the settings
End Sub

cycles = CLng(WScript.Arguments(0))
Set gauge = CreateObject("ScriptForm.Gauge")
For cycle = 1 To cycles
    If cycle = warmUpCycles + 1 Then gauge.Begin
    RunCycle
Next
WScript.Echo "cycles of a script: " & cycles & ", compared from " & warmUpCycles & " on"
WScript.Echo gauge.Report
If gauge.HasGrown Or failures > 0 Then WScript.Quit 1
WScript.Echo "Nothing has grown."
