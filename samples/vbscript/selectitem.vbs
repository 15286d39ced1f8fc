' Offers the nodes of a type in columns with check boxes, and prints those that were checked.
' quorelscript selectitem.vbs FILE METANODE
Option Explicit
Dim repository, metaNode, dialog, property, names(7), texts(7), count, i, node

Set repository = CreateObject("QuorelRepository.RepositoryManager").Open(WScript.Arguments(0)).Repository
Set metaNode = repository.MetaNodes(WScript.Arguments(1))

Set dialog = CreateObject("QuorelUtility.SelectItem")
dialog.Create
dialog.Caption = "Select " & metaNode.name
dialog.Statement = "Check what is to be printed, then press OK."
dialog.AsListView True
dialog.AddColumn "Name", 3000
count = 0
For Each property In metaNode.Properties
    If count < 7 Then
        dialog.AddColumn property.name, 1300
        names(count) = property.name
        count = count + 1
    End If
Next
For Each node In metaNode.Extension
    For i = 0 To 6
        texts(i) = ""
        If i < count Then texts(i) = node.GetProperty(names(i)) & ""
    Next
    dialog.AddItem node.name, node, texts(0), texts(1), texts(2), texts(3), texts(4), texts(5), texts(6)
Next
dialog.PopUp

If dialog.IsOk Then
    WScript.Echo dialog.Selection.Count & " checked"
    For Each node In dialog.Selection
        WScript.Echo node.name
    Next
Else
    WScript.Echo "cancelled"
End If
dialog.Destroy
