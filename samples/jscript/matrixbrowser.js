// Opens a repository file in the matrix browser and waits until the user closes it.
// quorelscript matrixbrowser.js FILE
var session = new ActiveXObject("QuorelRepository.Session");
var information = session.RepositoryManager.Open(WScript.Arguments(0));

var browser = new ActiveXObject("QuorelUtility.MatrixBrowser");
browser.Create("Navigator", session);
browser.Repository = information.Repository;
browser.Init();
browser.Populate();
browser.PopUp();
browser.Deinit();
browser.Destroy();
