' Blob, late bound: byte arrays and strings by reference.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "blob.vbs", text
End Sub

' A repository object with one property, which is its own type and its own collection of definitions.
Class Repository
    Public Stored
    Public Description
    Public Calls

    Public Function GetProperty(name)
        Calls = Calls & "get " & name & ";"
        If name <> "Icon" Then Err.Raise 9
        GetProperty = Stored
    End Function
    Public Sub SetProperty(name, value)
        Calls = Calls & "set " & name & ";"
        Stored = value
    End Sub
    Public Function Parent()
        Set Parent = Me
    End Function
    Public Function Properties(name)
        Set Properties = Nothing
        If name = "Icon" Then Set Properties = Me
    End Function
End Class

Dim blob, bytes, text, number, files, path, item, repository, picture
Set blob = CreateObject("QuorelUtility.Blob")
Set files = CreateObject("Scripting.FileSystemObject")
path = files.GetSpecialFolder(2).Path & "\quorel_blob_vbs.bin"

' A variable receives the array.
Check IsEmpty(blob.setAsString(bytes, "000FA0")), "setAsString returns an empty variant"
Check VarType(bytes) = 8192 + 17, "an array of bytes: " & VarType(bytes)
Check blob.getAsString(bytes) = "000FA0", "and back: " & blob.getAsString(bytes)

' An empty text leaves the variable.
text = "before"
blob.setAsString text, ""
Check text = "before", "an empty text changed the variable"
Check blob.getAsString(text) = "", "a text is no array"
Check blob.getAsString(Empty) = "" And blob.getAsString(5) = "", "nor is anything else"

' Arrays of the language: their elements are enumerated.
Check blob.getAsString(Array(0, 15, 160, 255)) = "000FA0FF", "array: " & blob.getAsString(Array(0, 15, 160, 255))
Check blob.getAsString(Array()) = "", "empty array"

' Upper case goes to the caller's variable.
text = "ff"
number = blob.Dec(text)
Check number = 255 And text = "FF", "Dec ff: " & number & " " & text
text = "1g"
Check blob.Dec(text) = 17 And text = "1G", "Dec 1g"
Check blob.Dec("7fffffff") = 2147483647, "a literal"

' Failures.
On Error Resume Next
text = "80000000a"
number = blob.Dec(text)
Check Err.Number = 6, "overflow: " & Err.Number
Err.Clear
On Error GoTo 0
Check text = "80000000A", "upper case in spite of the overflow: " & text
bytes = 7
On Error Resume Next
blob.setAsString bytes, "123"
Check Err.Number = 9, "three digits: " & Err.Number
Err.Clear
Check bytes = 7, "the variable was changed by a failure"
blob.LoadFromFile path & ".missing"
Check Err.Number = 53, "missing file: " & Err.Number
Err.Clear
blob.getPropertyAsByteArray "Icon"
Check Err.Number = 91, "no object: " & Err.Number
Err.Clear
On Error GoTo 0

' Files: a byte more when loaded, a byte less when stored.
If files.FileExists(path) Then files.DeleteFile path
blob.setAsString bytes, "41424300"
Check IsEmpty(blob.StoreToFile(bytes, path)), "StoreToFile returns an empty variant"
Check files.GetFile(path).Size = 3, "stored: " & files.GetFile(path).Size
Check blob.getAsString(blob.LoadFromFile(path)) = "41424300", "loaded: " & blob.getAsString(blob.LoadFromFile(path))
blob.StoreToFile Array(120, 0), path
Check blob.getAsString(blob.LoadFromFile(path)) = "78424300", "the rest stays"
blob.StoreToFile "text", path
Check files.GetFile(path).Size = 3, "a text is not stored"

' Properties.
Set repository = New Repository
repository.Description = "Binary image"
Set blob.repObject = repository
Check blob.repObject Is repository, "the object comes back"
Check blob.setPropertyFromString("Icon", "image 0102") = "", "returns an empty text"
Check blob.getAsString(repository.Stored) = "0102", "stored by text"
Check blob.getPropertyAsString("Icon") = "image 0102", "as text: " & blob.getPropertyAsString("Icon")
Check blob.getPropertyAsString("Other") = "", "no definition"
blob.setPropertyFromByteArray "Icon", bytes
Check blob.getAsString(blob.getPropertyAsByteArray("Icon")) = "41424300", "as an array"
blob.loadPropertyFromFile "Icon", path
Check blob.getAsString(repository.Stored) = "78424300", "from a file"
Check IsEmpty(blob.setPropertyFromPicture("Icon", Nothing)), "does nothing"
Check blob.getAsString(repository.Stored) = "78424300", "and stores nothing"
' This object wants a value with SetProperty.
On Error Resume Next
blob.storePropertyToFile "Icon", path
Check Err.Number <> 0, "SetProperty with the name alone must fail here"
Err.Clear
On Error GoTo 0
files.DeleteFile path

' Pictures.
Check blob.getPropertyAsPicture("Icon") Is Nothing, "four bytes are no picture"
Check blob.PictureFromBits("text") Is Nothing, "a text is no picture"
blob.setAsString bytes, "424D3A0000000000000036000000280000000100000001000000010018000000000004000000000000000000000000000000000000000000FF00"
Set picture = blob.PictureFromBits(bytes)
Check Not picture Is Nothing, "a bitmap of one pixel"
Check picture.Type = 1 And picture.Width > 0 And picture.Height = picture.Width, "its size: " & picture.Width
repository.Stored = bytes
Check Not blob.getPropertyAsPicture("Icon") Is Nothing, "a property's picture"
