' Classes of the contract that are not offered cannot be created.
Option Explicit

Dim name
For Each name In Array("SelectItem", "HTExplorer", "Blob", _
                       "DirectoryChooser", "Nothing")
    On Error Resume Next
    CreateObject "QuorelUtility." & name
    If Err.Number <> 429 Then
        On Error GoTo 0
        Err.Raise 1000, "classes.vbs", name & ": error " & Err.Number
    End If
    Err.Clear
    On Error GoTo 0
Next
For Each name In Array("UUIDGenerator", "NameEdit", "Settings", "Options", "Explorer", "MatrixBrowser", "Progress", "ProgressBar", "PropertyEditor", "SixPane")
    CreateObject("QuorelUtility." & name).Destroy
Next
