' A diagram, described by a host; nothing of it is shown.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "diagram.vbs", text
End Sub

Dim diagram, box, link
Set diagram = CreateObject("QuorelDiagramWindow.Diagram")
On Error Resume Next
diagram.AddStandardButtons
Check Err.Number = 91, "before Create it is error 91, not " & Err.Number
On Error GoTo 0

diagram.Create
diagram.LabelFont "Courier New", 15
diagram.SectionFont "Courier New", 10
diagram.AddStandardButtons
diagram.createNode "A", "<<MetaClass>> " & vbCrLf & "A", 0, 0, 3000, 1500
diagram.createNode "B", "B", 0, 0, 3000, 1500
Set box = diagram.getNode("A")
box.AddProperty "Age", "String", "Integer", True
box.AddProperty "Born", "String", 7, False
box.AlignToText True
diagram.CreateLink "L", "<<MetaAssoc>> L", "A", "B"
Set link = diagram.getLink("L")
link.AddProperty "Since", "String", Empty, True
link.AlignToText True
diagram.Layout "%HIERARCHY%"

On Error Resume Next
Set box = diagram.getNode("C")
Check Err.Number = 9 And Err.Description = "The diagram has no box ""C""", "an unknown box: " & Err.Description
Err.Clear
diagram.CreateLink "M", "M", "A", "C"
Check Err.Number = 9 And InStr(Err.Description, """C""") > 0, "a missing end: " & Err.Description
Err.Clear
Set link = diagram.getLink("M")
Check Err.Number = 9, "nothing was made of it: " & Err.Number
Err.Clear
diagram.Layout "%CIRCLE%"
Check Err.Number = 5 And InStr(Err.Description, "%HIERARCHY%") > 0, "another layout: " & Err.Description
Err.Clear
diagram.nodePicture = "C:\nowhere\picture.wmf"
Check Err.Number = 53, "a missing picture is error 53, not " & Err.Number
On Error GoTo 0

diagram.Destroy
diagram.Destroy
On Error Resume Next
diagram.PopUp
Check Err.Number = 91, "after Destroy it is error 91, not " & Err.Number
On Error GoTo 0
WScript.Echo "diagram.vbs: ok"
