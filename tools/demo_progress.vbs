' Works for some seconds without serving messages and shows how far it is, in either window.
Option Explicit
Dim step, progress, bar

Set progress = CreateObject("QuorelUtility.Progress")
progress.Create
progress.Caption = "Demo"
progress.Title = "Counting to 50"
progress.Init 0, 50
progress.PopUp
For step = 1 To 50
    WScript.Sleep 100
    progress.text = "Number " & step
    progress.incValue
Next
progress.Conceal
progress.Destroy

Set bar = CreateObject("QuorelUtility.ProgressBar")
bar.Create
bar.Information "Counting to 30"
bar.min 0
bar.max 30
bar.PopUp
For step = 1 To 30
    WScript.Sleep 100
    bar.Value step
Next
bar.Conceal
bar.Destroy
