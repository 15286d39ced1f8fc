' Makes a small repository, reads it back and takes it apart again.
' quorelscript repository.vbs FILE      (FILE must not exist)
Option Explicit
Dim session, information, repository, author, book, wrote, link, removed, item, property

Set session = CreateObject("QuorelRepository.Session")
Set information = session.RepositoryManager.Create(WScript.Arguments(0))
Set repository = information.Repository
repository.Description = "Books and who wrote them"

' The metamodel: two meta nodes, a meta link, typed properties.
repository.MakeMetaNode "Author"
Set book = repository.MakeMetaNode("Book", "A printed work")
book.MakeMetaProperty "Pages", "Integer"
book.MakeMetaProperty "Binding", "Enumeration", "", Array("Hardcover", "Paperback")
book.MakeMetaProperty "Published", "Date"
repository.MakeMetaLink "Author.Wrote.Book", "Author", "Book"

' Nodes and a link.
Set author = repository.MakeNode("Author", "Jane Austen", "author-1")
Set book = repository.MakeNode("Book", "Emma", "book-1")
book.Pages = 474
book.SetProperty "Binding", "Hardcover"
book.Published = DateSerial(1815, 12, 23)
Set wrote = repository.MakeLink("Author.Wrote.Book", "", "link-1", author, book)

For Each item In repository.MetaNodes("Book").Extension
    WScript.Echo item.name & ": " & item.Pages & " pages, " & item.Prop_("Binding") & ", " & Year(item.Published)
    For Each property In item.Parent.Properties
        WScript.Echo "  " & property.name & " is of the type " & property.datatype
    Next
Next
For Each link In author.Outgoing_("Author.Wrote.Book")
    WScript.Echo link.source.name & " wrote " & link.target.name
Next

' A mistake is an error with a number, a text and a source.
On Error Resume Next
book.Pages = "many"
WScript.Echo Err.Number & " " & Err.Description & " (" & Err.Source & ")"
Err.Clear
repository.MetaNodes("Book").Extension.Remove "book-1", removed
WScript.Echo Err.Number & " " & Err.Description
On Error GoTo 0

repository.MetaLinks("Author.Wrote.Book").Extension.Remove "link-1", removed
WScript.Echo "link removed: " & removed
repository.MetaNodes("Book").Extension.Remove "book-1", removed
WScript.Echo "book removed: " & removed & ", books left: " & repository.MetaNodes("Book").Extension.Count
session.RepositoryManager.Close
