// The explorer that follows the metamodel, over a repository of its own.

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

var explorer = new ActiveXObject("QuorelUtility.HTExplorer");
check(errorOf(function () { explorer.SetupTree(); }) === 91, "SetupTree before Create");
check(errorOf(function () { explorer.NoSuchMember(); }) === 438, "a wrong name");

var files = new ActiveXObject("Scripting.FileSystemObject");
var path = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName());
var repository = new ActiveXObject("QuorelRepository.Repository");
repository.Create(path);
repository.MakeDynamicMetaClass("Book");
repository.MakeNode("Book", "The Hobbit", "ID:1");

explorer.Create("Hierarchy");
explorer.Repository = repository;
check(explorer.Init() === undefined, "Init answers nothing");
explorer.SetupTree();
explorer.PopUp(false);
WScript.Sleep(100);
explorer.Populate();
explorer.Conceal();
check(explorer.Deinit() === undefined, "Deinit answers nothing");
explorer.Destroy();
explorer.Destroy();

repository.Close();
files.DeleteFile(path);
