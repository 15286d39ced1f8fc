' The name entry dialog, late bound, without showing it.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "name_edit.vbs", text
End Sub

Sub ExpectError(number, what)
    Check Err.Number = number, what & ": " & Err.Number & " " & Err.Description
    Check Err.Description <> "", what & " has a description"
    Err.Clear
End Sub

Dim dialog, proposed, hostile
Set dialog = CreateObject("QuorelUtility.NameEdit")
dialog.Destroy

' Anything before Create is the object that is not set.
On Error Resume Next
dialog.PopUp
ExpectError 91, "PopUp before Create"
dialog.Conceal
ExpectError 91, "Conceal before Create"
dialog.Caption "x"
ExpectError 91, "Caption before Create"
dialog.name = "x"
ExpectError 91, "name before Create"
proposed = dialog.name
ExpectError 91, "reading name before Create"
proposed = dialog.IsOk
ExpectError 91, "IsOk before Create"
On Error GoTo 0

dialog.Create
dialog.Caption "New node of type Book"
proposed = "Name of node:"
dialog.Question proposed
Check proposed = "Name of node:", "the question variable is only read"
Check dialog.IsOk = False, "IsOk is false before PopUp"
proposed = "Proposed"
dialog.name = proposed
Check dialog.name = "Proposed", "the proposed name"
dialog.name = 42
Check dialog.name = "42", "a number is put as text"

' Hostile names come back as they went in.
hostile = "  א😀 & <x> "
dialog.name = hostile
Check dialog.name = hostile, "hostile names"

dialog.Conceal
Check dialog.name = hostile, "Conceal keeps the state"

On Error Resume Next
dialog.Caption
ExpectError 450, "Caption without a text"
dialog.PopUp 1
ExpectError 450, "PopUp with an argument"
dialog.Caption dialog
Check Err.Number <> 0, "an object is no caption"
Err.Clear
dialog.IsOk = True
ExpectError 438, "IsOk cannot be assigned"
On Error GoTo 0

dialog.Destroy
dialog.Destroy
On Error Resume Next
proposed = dialog.name
ExpectError 91, "name after Destroy"
