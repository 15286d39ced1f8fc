' The reference repository, late bound: collections, properties, results by reference.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "repository.vbs", text
End Sub

Dim files, file, repository, node, other, link, removed, count, element
Set files = CreateObject("Scripting.FileSystemObject")
file = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName)
Set repository = CreateObject("QuorelRepository.Repository")
repository.Create file
repository.MakeDynamicMetaClass "Book"
repository.MakeDynamicMetaAssoc "Book.Cites.Book"
Set node = repository.MakeNode("Book", "First", "ID:1")
Set other = repository.MakeNode("Book", "Second", "ID:2")
Set link = repository.MakeLink("Book.Cites.Book", "", "ID:3", node, other)

Check repository.MetaNodes.Count = 1, "one meta node"
Check repository.MetaNodes("Book").name = "Book", "by name"
Check repository.MetaNodes("Book").Extension("ID:2").name = "Second", "by identifier"
count = 0
For Each element In repository.MetaNodes("Book").Extension
    count = count + 1
    Check element.Parent.name = "Book", "the parent of an instance"
Next
Check count = 2, "for each"

Check node.Outgoing_("Book.Cites.Book").Count = 1, "outgoing"
Check link.target Is other, "objects are themselves"
node.name = "Renamed"
Check repository.MetaNodes("Book").Extension("ID:1").name = "Renamed", "names are written"

removed = False
node.Outgoing_("Book.Cites.Book").Remove "ID:3", removed
Check removed = True, "Remove tells that it removed"
removed = True
node.Outgoing_("Book.Cites.Book").Remove "ID:unknown", removed
Check removed = False, "Remove tells that it did not"

On Error Resume Next
node.NoSuchProperty = 1
Check Err.Number = 438, "wrong name: " & Err.Number
Err.Clear
On Error GoTo 0

repository.Close
files.DeleteFile file
