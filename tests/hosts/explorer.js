// An explorer over a repository of its own.

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

var explorer = new ActiveXObject("QuorelUtility.Explorer");
check(errorOf(function () { explorer.Init(); }) === 91, "Init before Create");

var files = new ActiveXObject("Scripting.FileSystemObject");
var path = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName());
var repository = new ActiveXObject("QuorelRepository.Repository");
repository.Create(path);
repository.MakeDynamicMetaClass("Book");
repository.MakeNode("Book", "The Hobbit", "ID:1");

explorer.Create();
explorer.Repository = repository;
explorer.Init();
var top = explorer.AddTreeDesc("", "Extension", "Book", "", "", "book");
check(typeof top === "string" && top !== "", "an id");
explorer.AddPane("book", "", "A book", "Data");
explorer.AddProperty("book", "Book");
explorer.AddListView("book", "Extension", "Book", "");
check(errorOf(function () { explorer.AddSeparator("nowhere"); }) === 9, "an unknown pane");
check(errorOf(function () { explorer.AddLabel("book", "text", false, "many"); }) === 13, "a size that is none");
explorer.PopUp(false);
WScript.Sleep(100);
explorer.Conceal();
explorer.Deinit();
explorer.Destroy();
explorer.Destroy();

repository.Close();
files.DeleteFile(path);
