// The six-pane browser with a session and a component manager that are script objects.

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

var pane = new ActiveXObject("QuorelUtility.SixPane");
check(errorOf(function () { pane.PopUp(); }) === 91, "PopUp before Create");
check(errorOf(function () { pane.Path = "x"; }) === 91, "Path before Create");

var removed = [];
var session = {
    RepositoryManager: { SelectDialog: function () { return null; } },
    ComponentManager: {
        GetComponent: function (name) { return { name: name, ComObject: pane }; },
        RemoveComponent: function (name) { removed.push(name); }
    }
};
pane.Create("Browser", session);
pane.Init();
check(pane.RepositoryManager === session.RepositoryManager, "the manager is the session's");

var files = new ActiveXObject("Scripting.FileSystemObject");
var path = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName());
var repository = new ActiveXObject("QuorelRepository.Repository");
repository.Create(path);
repository.MakeDynamicMetaClass("Book");
repository.MakeNode("Book", "The Hobbit", "ID:1");
pane.Repository = repository;
check(pane.Repository.MetaNodes("Book").Extension.Count === 1, "the repository comes back");
pane.Populate();
pane.PopUp(false);
WScript.Sleep(100);
pane.Conceal();
check(errorOf(function () { pane.SetSelection(4); }) === 13, "a number is no object");
check(errorOf(function () { pane.NoSuchMember(); }) === 438, "wrong name");
pane.Destroy();
check(removed.length === 1 && removed[0] === "Browser", "the component removed itself: " + removed);
pane.Destroy();

repository.Close();
files.DeleteFile(path);
