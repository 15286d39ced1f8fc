// An explorer over a library: authors and their books, with a pane for each.
// quorelscript explorer.js FILE
var session = new ActiveXObject("QuorelRepository.Session");
var information = session.RepositoryManager.Open(WScript.Arguments(0));

var explorer = new ActiveXObject("QuorelUtility.Explorer");
explorer.Create();
explorer.Repository = information.Repository;
explorer.Init();

explorer.AddTreeDesc("", "Group", "", "About", "", "ID:1");
var authors = explorer.AddTreeDesc("", "Group", "", "Authors", "", "authors");
var author = explorer.AddTreeDesc(authors, "Extension", "Author", "", "", "author");
explorer.AddTreeDesc(author, "Links", "Author.Wrote.Book", "", "", "book");

explorer.AddPane("authors", "", "All authors", "Authors");
explorer.AddToolbar("authors");
explorer.AddListView("authors", "Extension", "Author", "");

explorer.AddPane("author", "", "An author", "Author");
explorer.AddProperty("author", "Author");
explorer.AddSubPane("author", "Books");
explorer.AddListView("author", "Link-Target", "Author.Wrote.Book", "", "Books");

explorer.AddPane("book", "", "A book", "Book");
explorer.AddLabel("book", "  A book", true, 12);
explorer.AddProperty("book", "Book");

explorer.PopUp();
explorer.Deinit();
explorer.Destroy();
