' Prints a few identifiers.
' quorelscript identifiers.vbs [NAMESPACE]
Option Explicit
Dim generator, i

Set generator = CreateObject("QuorelUtility.UUIDGenerator")
generator.Create
If WScript.Arguments.Count > 0 Then
    generator.Init WScript.Arguments(0)
Else
    generator.Init
End If
For i = 1 To 3
    WScript.Echo generator.GetUUID
Next
generator.Deinit
generator.Destroy
