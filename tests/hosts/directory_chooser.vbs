' The directory chooser's values, late bound. Its dialog is driven by the tests from outside.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "directory_chooser.vbs", text
End Sub

Dim chooser, value
Set chooser = CreateObject("QuorelUtility.DirectoryChooser")
Check chooser.Directory = "", "no directory"
Check chooser.Canceled = False, "not cancelled"
Check chooser.Caption = "Select Directory", "caption: " & chooser.Caption
Check chooser.ShowCreateButton = True, "offers new folders"
chooser.Directory = "C:\Models"
chooser.Caption = "Where?"
Check chooser.Directory = "C:\Models" And chooser.Caption = "Where?", "what was set comes back"
For Each value In Array(1, -1, 7, True)
    chooser.ShowCreateButton = value
    Check chooser.ShowCreateButton = True, "any number but zero is true"
Next
chooser.ShowCreateButton = 0
Check chooser.ShowCreateButton = False, "zero is false"
On Error Resume Next
chooser.Canceled = True
Check Err.Number <> 0, "cannot be set"
