' Asks for a name and makes a node of that name in a repository file.
' quorelscript nameedit.vbs FILE METANODE
Option Explicit
Dim dialog, generator, repository

Set dialog = CreateObject("QuorelUtility.NameEdit")
dialog.Create
dialog.Caption "New " & WScript.Arguments(1)
dialog.Question "&Name of the new node:"
dialog.name = "Unnamed"
dialog.PopUp
If dialog.IsOk Then
    Set generator = CreateObject("QuorelUtility.UUIDGenerator")
    generator.Create
    generator.Init "Sample"
    Set repository = CreateObject("QuorelRepository.RepositoryManager").Open(WScript.Arguments(0)).Repository
    repository.MakeNode WScript.Arguments(1), dialog.name, generator.GetUUID
    WScript.Echo "Made " & dialog.name
Else
    WScript.Echo "Nothing was made"
End If
dialog.Destroy
