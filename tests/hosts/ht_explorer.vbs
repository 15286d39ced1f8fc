' The explorer that follows the metamodel, over a repository of its own, with a session that knows it by a name.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "ht_explorer.vbs", text
End Sub

Sub ExpectError(number, what)
    Check Err.Number = number, what & ": " & Err.Number & " " & Err.Description
    Err.Clear
End Sub

Dim files, path, repository, session, explorer, i
Set repository = CreateObject("QuorelRepository.Repository")
Set files = CreateObject("Scripting.FileSystemObject")
path = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName)
repository.Create path
repository.MakeDynamicMetaClass "Book"
repository.MakeDynamicMetaClass "Author"
repository.MakeDynamicMetaAssoc "Author.Wrote.Book"
repository.MakeLink "Author.Wrote.Book", "", "ID:3", repository.MakeNode("Author", "Tolkien", "ID:2"), _
    repository.MakeNode("Book", "The Hobbit", "ID:1")

Set session = CreateObject("QuorelRepository.Session")
Set explorer = CreateObject("QuorelUtility.HTExplorer")
On Error Resume Next
explorer.Init
ExpectError 91, "Init before Create"
explorer.SetupTree
ExpectError 91, "SetupTree before Create"
explorer.Populate
ExpectError 91, "Populate before Create"
i = explorer.Path
ExpectError 91, "Path before Create"
explorer.AddPane "pane", "", ""
ExpectError 438, "descriptions are made by the window"
i = explorer.RepositoryManager
ExpectError 438, "there is no RepositoryManager"
On Error GoTo 0

explorer.Create "Hierarchy", session
session.ComponentManager.AddComponent "Hierarchy", explorer
explorer.Path = "C:\data"
Check explorer.Path = "C:\data", "Path"
explorer.RepositoryFileName = path
Check explorer.RepositoryFileName = path, "RepositoryFileName"
Set explorer.PackageObject = session
Check explorer.PackageObject Is session, "PackageObject"
Set explorer.Repository = repository
Check explorer.Repository.MetaNodes.Count = 2, "Repository"
Check IsEmpty(explorer.Init), "Init answers nothing"
explorer.SetupTree
explorer.Populate
explorer.PopUp False
WScript.Sleep 100
explorer.Conceal
explorer.PopUp False
Check IsEmpty(explorer.Deinit), "Deinit answers nothing"
Check session.ComponentManager.Count = 1, "the session knows it while it lives"
explorer.Destroy
Check session.ComponentManager.Count = 0, "and no more when it ends"
explorer.Destroy
On Error Resume Next
explorer.Conceal
ExpectError 91, "Conceal after Destroy"
On Error GoTo 0

' Without a name and a session; a name of a variable's.
explorer.Create
Set explorer.Repository = repository
explorer.Init
explorer.SetupTree
explorer.Destroy

repository.Close
files.DeleteFile path
