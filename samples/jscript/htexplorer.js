// Explores a repository file along its links, type by type.
// quorelscript htexplorer.js FILE
var session = new ActiveXObject("QuorelRepository.Session");
var information = session.RepositoryManager.Open(WScript.Arguments(0));

var explorer = new ActiveXObject("QuorelUtility.HTExplorer");
explorer.Create();
explorer.Repository = information.Repository;
explorer.Init();
explorer.SetupTree();
explorer.PopUp();
explorer.Deinit();
explorer.Destroy();
