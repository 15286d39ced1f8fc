' An explorer over a repository of its own: what it is told, what it refuses, what it asks.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "explorer.vbs", text
End Sub

Sub ExpectError(number, what)
    Check Err.Number = number, what & ": " & Err.Number & " " & Err.Description
    Err.Clear
End Sub

Dim files, path, repository, explorer, books, id, variable
Set repository = CreateObject("QuorelRepository.Repository")
Set files = CreateObject("Scripting.FileSystemObject")
path = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName)
repository.Create path
repository.MakeDynamicMetaClass "Book"
repository.MakeDynamicMetaClass "Author"
repository.MakeDynamicMetaAssoc "Author.Wrote.Book"
repository.MakeLink "Author.Wrote.Book", "", "ID:3", repository.MakeNode("Author", "Tolkien", "ID:2"), _
    repository.MakeNode("Book", "The Hobbit", "ID:1")

Set explorer = CreateObject("QuorelUtility.Explorer")
On Error Resume Next
explorer.Init
ExpectError 91, "Init before Create"
explorer.PopUp
ExpectError 91, "PopUp before Create"
explorer.AddPane "pane", "", ""
ExpectError 91, "AddPane before Create"
On Error GoTo 0

explorer.Create
explorer.Path = "C:\data"
Check explorer.Path = "C:\data", "Path"
Set explorer.Repository = repository
Check explorer.Repository.MetaNodes.Count = 2, "Repository"
explorer.Init

variable = "Group"
books = explorer.AddTreeDesc("", variable, "", "Authors", "", "none")
Check books <> "" And variable = "Group", "AddTreeDesc"
id = explorer.AddTreeDesc(books, "Extension", "Author", "", "", "author")
explorer.AddTreeDesc id, "Links", "Author.Wrote.Book", "", "", "book"
explorer.AddPane "author", "", "An author", "Data"
explorer.AddSubPane "author", "Books"
explorer.AddToolbar "author"
explorer.AddProperty "author", "Author"
explorer.AddListView "author", "Link-Target", "Author.Wrote.Book", "", "Books"
explorer.AddPane "book", "", "A book"
explorer.AddLabel "book", "A book"
explorer.AddLabel "book", "In bold", True, 15
explorer.AddSeparator "book"
explorer.AddProperty "book", "Book"
explorer.AddCombo "author", "Book", "Author.Wrote.Book", "", "Books"

On Error Resume Next
explorer.AddTreeDesc "nobody", "Group", "", "", "", ""
ExpectError 9, "an unknown parent"
explorer.AddLabel "nowhere", "text"
ExpectError 9, "an unknown pane"
explorer.AddLabel "author", "text", False, 8, "nowhere"
ExpectError 9, "an unknown sub pane"
explorer.AddSubPane "author", "Books"
ExpectError 457, "a sub pane that is there"
explorer.AddListView "author", "Extension", "Planet", ""
Check Err.Number <> 0, "an unknown type"
Err.Clear
explorer.AddPane
ExpectError 450, "too few arguments"
explorer.NoSuchMember
ExpectError 438, "a wrong name"
On Error GoTo 0

explorer.PopUp False
WScript.Sleep 100
explorer.Conceal
explorer.PopUp False
explorer.Deinit
explorer.Destroy
explorer.Destroy
On Error Resume Next
explorer.Conceal
ExpectError 91, "Conceal after Destroy"
On Error GoTo 0

repository.Close
files.DeleteFile path
