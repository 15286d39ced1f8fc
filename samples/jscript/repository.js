// Makes a small repository with dynamic types and reads it back.
// quorelscript repository.js FILE      (FILE must not exist)
var manager = new ActiveXObject("QuorelRepository.RepositoryManager");
var repository = manager.Create(WScript.Arguments(0)).Repository;

// Dynamic types end with the session unless they are made persistent.
repository.MakeDynamicMetaClass("Shelf", "Holds books").IsPersistent = true;
repository.MakeDynamicMetaClass("Book", "").IsPersistent = true;
repository.MakeDynamicMetaAssoc("Shelf.Holds.Book", "").IsPersistent = true;
repository.MetaNodes("Book").MakeMetaProperty("Genre", "Enumeration", "", ["Novel", "Poetry"]);

var shelf = repository.MakeNode("Shelf", "A", "shelf-1");
var titles = ["Emma", "Persuasion"];
for (var i = 0; i < titles.length; i++) {
    var book = repository.MakeNode("Book", titles[i], "book-" + i);
    book.Genre = "Novel";
    repository.MakeLink("Shelf.Holds.Book", "", "link-" + i, shelf, book);
}
for (var links = new Enumerator(shelf.Outgoing_("Shelf.Holds.Book")); !links.atEnd(); links.moveNext()) {
    var target = links.item().target;
    WScript.Echo(target.name + ", a " + target.Genre);
}
try {
    repository.DeleteDynamicMetaClass("Shelf");
} catch (error) {
    WScript.Echo((error.number & 0xFFFF) + " " + error.message);
}
// Remove returns what it also sets its second argument to; this language has no arguments by reference.
WScript.Echo("removed: " + repository.MetaLinks("Shelf.Holds.Book").Extension.Remove("link-0", false));
WScript.Echo("left: " + shelf.Outgoing_("Shelf.Holds.Book").Count);
manager.Close();
