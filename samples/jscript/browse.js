// Opens a repository file, offers the nodes of a type, and shows the chosen one in the six-pane browser until the user
// closes the window.
// quorelscript browse.js FILE METANODE
var session = new ActiveXObject("QuorelRepository.Session");
var repository = session.RepositoryManager.Open(WScript.Arguments(0)).Repository;

var dialog = new ActiveXObject("QuorelUtility.SelectItem");
dialog.Create();
dialog.Statement = "Which one is to be shown?";
for (var all = new Enumerator(repository.MetaNodes(WScript.Arguments(1)).Extension); !all.atEnd(); all.moveNext())
    dialog.AddItem(all.item().name, all.item());
dialog.PopUp();
var chosen = dialog.IsOk() ? dialog.Selection : null;
dialog.Destroy();

if (chosen !== null) {
    WScript.Echo(chosen.name);
    var browser = new ActiveXObject("QuorelUtility.SixPane");
    browser.Create("Browser", session);
    browser.Repository = repository;
    browser.Init();
    browser.Populate();
    browser.SetSelection(chosen);
    browser.PopUp();
    browser.Deinit();
    browser.Destroy();
}
