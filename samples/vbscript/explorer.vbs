' An explorer over a library: authors and their books, publishers and theirs, with pictures beside this script's folder.
' quorelscript explorer.vbs FILE
Option Explicit
Dim session, information, explorer, pictures, authors, author, folder, publishers, publisher

Set session = CreateObject("QuorelRepository.Session")
Set information = session.RepositoryManager.Open(WScript.Arguments(0))
pictures = Left(WScript.ScriptFullName, InStrRev(WScript.ScriptFullName, "\")) & "..\pictures\"

Set explorer = CreateObject("QuorelUtility.Explorer")
explorer.Create
Set explorer.Repository = information.Repository
explorer.Init

explorer.AddPicture "author", pictures & "author.ico"
explorer.AddPicture "book", pictures & "book.png"

' The tree: what each level shows, and which pane.
explorer.AddTreeDesc "", "Group", "", information.Repository.name, "QuorelExplorer", "ID:1"
authors = explorer.AddTreeDesc("", "Group", "", "Authors", "author", "authors")
author = explorer.AddTreeDesc(authors, "Extension", "Author", "", "author", "author")
explorer.AddTreeDesc author, "Links", "Author.Wrote.Book", "", "book", "book"
publishers = explorer.AddTreeDesc("", "Group", "", "Publishers", "", "none")
publisher = explorer.AddTreeDesc(publishers, "Extension", "Publisher", "", "", "publisher")
folder = explorer.AddTreeDesc(publisher, "Folder", "", "Published", "", "published")
explorer.AddTreeDesc folder, "Links", "Publisher.Published.Book", "", "book", "book"

' The panes: one for each kind of entry.
explorer.AddPane "authors", "author", "All authors", "Authors"
explorer.AddToolbar "authors"
explorer.AddListView "authors", "Extension", "Author", "author"

explorer.AddPane "author", "author", "An author", "Author"
explorer.AddLabel "author", "  Who it is", True, 10
explorer.AddProperty "author", "Author"
explorer.AddSubPane "author", "Books"
explorer.AddToolbar "author", "Books"
explorer.AddListView "author", "Link-Target", "Author.Wrote.Book", "book", "Books"

explorer.AddPane "book", "book", "A book", "Book"
explorer.AddProperty "book", "Book"
explorer.AddSubPane "book", "Written and published by"
explorer.AddListView "book", "Link-Source", "Author.Wrote.Book", "author", "Written and published by"
explorer.AddSeparator "book", "Written and published by"
explorer.AddListView "book", "Link-Source", "Publisher.Published.Book", "", "Written and published by"

explorer.AddPane "publisher", "", "A publisher", "Publisher"
explorer.AddLabel "publisher", "  The first book"
explorer.AddCombo "publisher", "Book", "Publisher.Published.Book", ""
explorer.AddSeparator "publisher"
explorer.AddProperty "publisher", "Publisher"

explorer.AddPane "published", "book", "What a publisher has published"
explorer.AddListView "published", "Link", "Publisher.Published.Book", "book"

explorer.PopUp
explorer.Deinit
explorer.Destroy
