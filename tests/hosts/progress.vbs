' The progress windows, late bound.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "progress.vbs", text
End Sub

Sub ExpectError(number, what)
    Check Err.Number = number, what & ": " & Err.Number & " " & Err.Description
    Check Err.Description <> "", what & " has a description"
    Err.Clear
End Sub

Dim progress, bar, start, most, words, i
Set progress = CreateObject("QuorelUtility.Progress")
progress.Destroy
progress.Conceal
Check progress.getOverflow() = 0, "no overflow without a window"
On Error Resume Next
progress.Init 0, 4
ExpectError 91, "Init before Create"
progress.text = "x"
ExpectError 91, "text before Create"
progress.incValue
ExpectError 91, "incValue before Create"
progress.PopUp
ExpectError 91, "PopUp before Create"
words = progress.Title
ExpectError 450, "Title is write-only"
On Error GoTo 0

progress.Create
start = -1
most = 4
progress.Init start, most
Check start = -1 And most = 4, "the host's variables stay"
progress.Caption = "Caption"
progress.Title = "Title"
words = "Line"
progress.newText words
progress.newTitle words
progress.newCaption words
Check words = "Line", "the texts are only read"
progress.PopUp
progress.incValue
progress.incValue 2
Check progress.getOverflow() = 0, "a bar of three has been filled"
progress.incValue
progress.incValue 5
Check progress.getOverflow() = 2, "a full bar counts what comes"
progress.Init 1, 20000, 0
Check progress.getOverflow() = 0, "Init forgets the overflow"
For i = 1 To 19999
    progress.incValue
Next
Check progress.getOverflow() = 0, "all steps fit"
progress.incValue
Check progress.getOverflow() = 1, "and not one more"
progress.Init 2147483647, 2147483647, -2147483647
progress.Init -2147483647, -2147483647, 2147483647
progress.incValue 2147483647
progress.Conceal
progress.Destroy
progress.Destroy

Set bar = CreateObject("QuorelUtility.ProgressBar")
On Error Resume Next
bar.Value 1
ExpectError 91, "Value before Create"
bar.Conceal
ExpectError 91, "Conceal before Create"
On Error GoTo 0
bar.Create
bar.Value 7
bar.min 4
bar.max 10
bar.Information "Reading"
bar.PopUp
For i = 4 To 10
    bar.Value i
Next
bar.Conceal
bar.Destroy
WScript.Echo "progress.vbs: ok"
