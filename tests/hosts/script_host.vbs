' What the script host itself offers.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "script_host.vbs", text
End Sub

Dim started, argument, dictionary
Check WScript.Arguments.Count = 0, "no arguments"
For Each argument In WScript.Arguments
    Check False, "no arguments to enumerate"
Next
Check LCase(WScript.ScriptName) = "script_host.vbs", WScript.ScriptName
Check LCase(Right(WScript.ScriptFullName, 16)) = "\script_host.vbs", WScript.ScriptFullName

started = Timer
WScript.Sleep 200
Check Timer - started >= 0.15 Or Timer < started, "Sleep sleeps"

Set dictionary = WScript.CreateObject("Scripting.Dictionary")
dictionary.Add "key", 5
Check dictionary("key") = 5, "CreateObject"

On Error Resume Next
WScript.CreateObject "QuorelNobody.Nothing"
Check Err.Number = 429, "an unknown class: " & Err.Number
Err.Clear
argument = WScript.Arguments(0)
Check Err.Number = 9, "no such argument: " & Err.Number
Err.Clear
WScript.Sleep "long"
Check Err.Number = 13, "a wrong type: " & Err.Number
Err.Clear
WScript.Sleep
Check Err.Number = 450, "a missing argument: " & Err.Number
Err.Clear
On Error GoTo 0

WScript.Echo "said", 1, True, "and done"
WScript.Quit 0
