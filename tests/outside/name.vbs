' Asks for one name and prints what came of it.
Option Explicit
Dim dialog
Set dialog = CreateObject("QuorelUtility.NameEdit")
dialog.Create
dialog.Caption "New node of type Book"
dialog.Question "Name of node:"
dialog.name = "Proposed"
dialog.PopUp
WScript.Echo CStr(dialog.IsOk) & ":" & dialog.name
dialog.Destroy
