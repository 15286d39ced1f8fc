' The property editor, late bound, without showing it modally.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "property_editor.vbs", text
End Sub

Sub ExpectError(number, what)
    Check Err.Number = number, what & ": " & Err.Number & " " & Err.Description
    Check Err.Description <> "", what & " has a description"
    Err.Clear
End Sub

Class MetaNode
    Public Properties
End Class

Class Callback
End Class

Dim editor, path, value, metaNode, callbackObject, nothingYet
Set editor = CreateObject("QuorelUtility.PropertyEditor")
editor.Destroy

On Error Resume Next
editor.Init Nothing
ExpectError 91, "Init before Create"
editor.Deinit
ExpectError 91, "Deinit before Create"
editor.PopUp False
ExpectError 91, "PopUp before Create"
editor.Conceal
ExpectError 91, "Conceal before Create"
value = editor.OK
ExpectError 91, "OK before Create"
value = editor.Cancelled
ExpectError 91, "Cancelled before Create"
value = editor.Caption
ExpectError 91, "Caption before Create"
editor.ReadOnly = True
ExpectError 91, "ReadOnly before Create"
Set editor.repObject = editor
ExpectError 91, "repObject before Create"
Set editor.CallbackObject = editor
ExpectError 91, "CallbackObject before Create"
On Error GoTo 0

path = "C:\Models"
editor.Create path
Check path = "C:\Models", "the path variable is only read"
Check editor.OK = False, "OK is false before PopUp"
Check editor.Cancelled = True, "Cancelled is true before PopUp"
Check editor.Caption = "Property Editor", "the caption"
editor.Caption = "Anna"
Check editor.Caption = "Anna", "another caption"
Check editor.ReadOnly = False, "editable at first"
editor.ReadOnly = True
Check editor.ReadOnly = True, "read-only"
Check editor.CallbackObject Is Nothing, "no callback at first"
Set callbackObject = New Callback
Set editor.CallbackObject = callbackObject
Check editor.CallbackObject Is callbackObject, "the callback is the host's"
Set editor.CallbackObject = Nothing
Check editor.repObject Is Nothing, "no object at first"

' What Init cannot do comes back to the host.
Set nothingYet = Nothing
On Error Resume Next
editor.Init nothingYet
ExpectError 91, "Init without a meta object"
Set metaNode = New MetaNode
editor.Init metaNode
Check Err.Number <> 0, "Init with a meta object without properties"
Err.Clear
editor.OK = True
ExpectError 438, "OK cannot be assigned"
editor.Create
ExpectError 450, "Create without a path"
On Error GoTo 0

' A repository with everything that the editor asks for.
Dim fileSystem, file, repository, person, anna
Set fileSystem = CreateObject("Scripting.FileSystemObject")
file = fileSystem.BuildPath(fileSystem.GetSpecialFolder(2), "quorel_property_editor.quorel")
If fileSystem.FileExists(file) Then fileSystem.DeleteFile file
Set repository = CreateObject("QuorelRepository.RepositoryManager").Create(file).Repository
Set person = repository.MakeMetaNode("Person")
person.MakeMetaProperty "Age", "Integer"
Set anna = repository.MakeNode("Person", "Anna", "p1")
anna.Age = 40

editor.Create "C:\"
editor.Init person
Set editor.repObject = anna
Check editor.repObject Is anna, "the object is the host's"
editor.PopUp False
editor.Conceal
editor.Deinit
Check editor.repObject Is Nothing, "Deinit releases the object"
editor.Init person
Set editor.repObject = anna
editor.Destroy
editor.Destroy
Check anna.Age = 40, "nothing was written"
repository.Close
