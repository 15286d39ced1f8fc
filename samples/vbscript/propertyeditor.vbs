' Edits the properties of the first node of a type. Numbers below zero are refused, and what was changed is told.
' quorelscript propertyeditor.vbs FILE METANODE
Option Explicit
Dim repository, metaNode, node, editor

Class Callback
    Public Sub CreatePropertyControl(ByRef prop, ByRef handled)
    End Sub
    Public Sub PropertyControlCreated(ByRef prop, control)
        control.ToolTipText = prop.Description
    End Sub
    Public Sub PropertyValidate(ByRef prop, oldValue, newValue, ByRef valid)
        If prop.datatype = "Integer" And newValue < 0 Then
            prop.Message = prop.name & " cannot be negative."
            valid = False
        End If
    End Sub
    Public Sub PropertyChanged(ByRef prop, ByRef oldText, ByRef newText, value, ByRef cancel)
        WScript.Echo prop.name & ": " & oldText & " -> " & newText
    End Sub
    Public Sub NewProperty(ByRef prop)
        WScript.Echo prop.name & " is set now"
    End Sub
    Public Sub PropertyDeleted(ByRef prop)
        WScript.Echo prop.name & " is not set any more"
    End Sub
End Class

Set repository = CreateObject("QuorelRepository.RepositoryManager").Open(WScript.Arguments(0)).Repository
Set metaNode = repository.MetaNodes(WScript.Arguments(1))
For Each node In metaNode.Extension
    Exit For
Next

Set editor = CreateObject("QuorelUtility.PropertyEditor")
editor.Create "C:\"
editor.Caption = node.name
Set editor.CallbackObject = New Callback
editor.Init metaNode
Set editor.repObject = node
editor.PopUp
If editor.OK Then WScript.Echo "Saved" Else WScript.Echo "Cancelled"
editor.Deinit
editor.Destroy
