' The file selector and the file-type table, created by a host.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "file_classes.vbs", text
End Sub

Dim types, known, selector, count, order
Set types = CreateObject("VardekFileAccess.c_FileType")
types.Add "EXE", ".exe", "Executable files (*.exe)|*.exe"
types.Add "TXT", ".txt", "Textfile (*.txt)|*.txt"
Check types("EXE").Extension = ".exe", "the extension by key"
Check types("txt").Filter = "Textfile (*.txt)|*.txt", "keys ignore case"
count = 0
order = Array("EXE", "TXT")
For Each known In types
    count = count + 1
    Check known.Key = order(count - 1), "the order of adding"
Next
Check count = 2 And types.Count = 2, "two types"
On Error Resume Next
Set known = types("NONE")
Check Err.Number = 9, "an unknown key is error 9, not " & Err.Number
Err.Clear
types.Add "exe", ".com", "Commands|*.com"
Check Err.Number = 457, "a key that is taken is error 457, not " & Err.Number
On Error GoTo 0

Set selector = CreateObject("VardekFileSelector.FileSelector")
Check IsEmpty(selector.GetAttribute("FilePath")) Or selector.GetAttribute("FilePath") = "", "nothing is selected"
selector.SetAttribute "FilePath", "C:\quorel.txt"
selector.SetAttribute "Mode", "Directory"
Check selector.GetAttribute("filepath") = "C:\quorel.txt", "attributes ignore case"
Check selector.GetAttribute("Mode") = "Directory", "the mode"
WScript.Echo "file_classes.vbs: ok"
