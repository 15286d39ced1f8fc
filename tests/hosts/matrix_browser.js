// The matrix browser with a session and a component manager that are script objects.

function check(condition, text) {
    if (!condition) throw new Error(1000, text);
}
function errorOf(action) {
    try {
        action();
    } catch (error) {
        return error.number & 0xFFFF;
    }
    return 0;
}

var browser = new ActiveXObject("QuorelUtility.MatrixBrowser");
check(errorOf(function () { browser.PopUp(); }) === 91, "PopUp before Create");
check(errorOf(function () { browser.Path = "x"; }) === 91, "Path before Create");

var removed = [];
var session = {
    ComponentManager: {
        GetComponent: function (name) { return { name: name, ComObject: browser }; },
        RemoveComponent: function (name) { removed.push(name); }
    }
};
browser.Create("Browser", session);
browser.Init();

var files = new ActiveXObject("Scripting.FileSystemObject");
var path = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName());
var repository = new ActiveXObject("QuorelRepository.Repository");
repository.Create(path);
repository.MakeDynamicMetaClass("Book");
repository.MakeDynamicMetaAssoc("Book.Quotes.Book");
var hobbit = repository.MakeNode("Book", "The Hobbit", "ID:1");
var rings = repository.MakeNode("Book", "The Lord of the Rings", "ID:2");
repository.MakeLink("Book.Quotes.Book", "", "ID:3", rings, hobbit);

browser.Repository = repository;
check(browser.Repository.MetaNodes("Book").Extension.Count === 2, "the repository comes back");
check(browser.GetRepository().MetaLinks.Count === 1, "GetRepository");
browser.SelectSourceMetaNode("Book");
browser.SetSelection(rings);
browser.SelectMetaLink("Book.Quotes.Book", true);
browser.SelectSourceInstance("ID:1");
check(browser.GetTargetInstance() === null, "GetTargetInstance returns nothing");
browser.Navigate();
browser.PopUp(false);
WScript.Sleep(100);
browser.Conceal();
check(errorOf(function () { browser.SetSelection(4); }) === 13, "a number is no object");
check(errorOf(function () { browser.NoSuchMember(); }) === 438, "wrong name");
browser.Destroy();
check(removed.length === 1 && removed[0] === "Browser", "the component removed itself: " + removed);
browser.Destroy();

repository.Close();
files.DeleteFile(path);
