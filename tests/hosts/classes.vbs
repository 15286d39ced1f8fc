' Every class of the contract can be created, and nothing else.
Option Explicit

Dim name
For Each name In Array("Nothing", "Standard", "CBoolean")
    On Error Resume Next
    CreateObject "QuorelUtility." & name
    If Err.Number <> 429 Then
        On Error GoTo 0
        Err.Raise 1000, "classes.vbs", name & ": error " & Err.Number
    End If
    Err.Clear
    On Error GoTo 0
Next
For Each name In Array("UUIDGenerator", "NameEdit", "Settings", "Options", "Explorer", "MatrixBrowser", "Progress", "ProgressBar", "PropertyEditor", "SixPane", "HTExplorer", "SelectItem")
    CreateObject("QuorelUtility." & name).Destroy
Next
For Each name In Array("Blob", "DirectoryChooser", "SettingEntry")
    CreateObject "QuorelUtility." & name
Next
