' The selection dialog without its window shown, late bound.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "select_item.vbs", text
End Sub

Class Tree
    Public Name
End Class

Dim dialog, item, i, started, many
Set dialog = CreateObject("QuorelUtility.SelectItem")

' Without a window.
On Error Resume Next
dialog.AddItem "ash", Nothing
Check Err.Number = 91, "AddItem before Create: " & Err.Number
Err.Clear
dialog.PopUp
Check Err.Number = 91, "PopUp before Create: " & Err.Number
Err.Clear
On Error GoTo 0
dialog.Destroy

dialog.Create
dialog.Caption = "Trees"
dialog.Statement = "Which one?"
Check dialog.IsOk = False, "not OK yet"
Set item = New Tree
dialog.AddItem "ash", item
Check dialog.Selection Is Nothing, "nothing is selected"

' With check boxes the result is a collection, whatever is checked.
dialog.AsListView True
dialog.AddColumn "Tree"
dialog.AddColumn "Size", 2000
dialog.AddItem "beech", item, "tall"
dialog.AddItem "cedar", Nothing, "", "", "", "", "", "", "last"
Check dialog.Selection.Count = 0, "an empty collection"
For Each item In dialog.Selection
    Check False, "nothing is checked"
Next
On Error Resume Next
Set item = dialog.Selection(1)
Check Err.Number = 9, "no first item: " & Err.Number
Err.Clear
dialog.AddItem "elm", "no object"
Check Err.Number <> 0, "a text is no object"
Err.Clear
dialog.AddItem
Check Err.Number = 449, "the text is missing: " & Err.Number
Err.Clear
On Error GoTo 0

' A hundred thousand, three times.
For i = 1 To 3
    dialog.Destroy
    dialog.Create
    dialog.AsListView False
    For many = 1 To 100000
        dialog.AddItem "item", Nothing
    Next
Next
dialog.Destroy
dialog.Destroy
