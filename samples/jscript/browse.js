// Opens the six-pane browser on a repository file and waits until the user closes it.
// quorelscript browse.js FILE
var session = new ActiveXObject("QuorelRepository.Session");
var information = session.RepositoryManager.Open(WScript.Arguments(0));

var browser = new ActiveXObject("QuorelUtility.SixPane");
browser.Create("Browser", session);
browser.Repository = information.Repository;
browser.Init();
browser.Populate();
browser.PopUp();
browser.Deinit();
browser.Destroy();
