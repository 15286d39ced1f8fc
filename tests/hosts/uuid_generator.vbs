' The identifier generator, late bound.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "uuid_generator.vbs", text
End Sub

Function NumberOf(identifier)
    NumberOf = CLng(Right(identifier, 10))
End Function

Dim generator, other, first, second, spaceName
Set generator = CreateObject("QuorelUtility.UUIDGenerator")
Set other = CreateObject("QuorelUtility.UUIDGenerator.1")

' Without Init: no tag, no namespace, counting from 1.
first = generator.GetUUID
Check Left(first, 4) = "ID::", "no tag before Init: " & first
Check NumberOf(first) = 1, "counts from 1 before Init"

Check IsEmpty(generator.Create), "Create returns an empty variant"
Check IsEmpty(generator.Init("Script")), "Init returns an empty variant"
first = generator.GetUUID()
second = generator.GetUUID()
Check Len(first) = Len("ID:04217:Script::20020303::140509::0000000002"), "length: " & first
Check Left(first, 3) = "ID:" And Mid(first, 9, 9) = ":Script::", "parts: " & first
Check IsNumeric(Mid(first, 4, 5)), "tag: " & first
Check NumberOf(first) = 2 And NumberOf(second) = 3, "counts from 2 after Init"

' A variable is a reference, and stays as it was.
spaceName = "Variable"
generator.Init spaceName
Check spaceName = "Variable", "the namespace variable is only read"
Check InStr(generator.GetUUID, ":Variable::") > 0, "a variable as namespace"

' An omitted namespace is empty, and so is an empty one.
generator.Init
Check IsNumeric(Mid(generator.GetUUID, 10, 8)), "no namespace"
generator.Init ""
Check Mid(generator.GetUUID, 9, 1) = ":" And IsNumeric(Mid(generator.GetUUID, 10, 8)), "empty namespace"

Check IsEmpty(generator.Deinit), "Deinit returns an empty variant"
Check NumberOf(generator.GetUUID) = 1, "Deinit starts over"
Check IsEmpty(generator.Destroy), "Destroy returns an empty variant"
generator.Destroy

Check other.GetUUID <> "", "the versioned identifier creates the same class"

' Names ignore case.
Check NumberOf(generator.getuuid) = 2, "names ignore case"

' Wrong calls.
On Error Resume Next
generator.NoSuchMember
Check Err.Number = 438, "wrong name: " & Err.Number
Err.Clear
generator.Init 1, 2
Check Err.Number = 450, "wrong count: " & Err.Number
Err.Clear
generator.Init generator
Check Err.Number <> 0, "an object is no namespace"
Err.Clear
generator.GetUUID = 5
Check Err.Number = 438, "a method cannot be assigned: " & Err.Number
Err.Clear
