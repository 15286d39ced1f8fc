// Opens a repository file, offers the nodes of a type, and shows the chosen one in the six-pane browser until the user
// closes the window.
// csc Browse.cs && Browse.exe FILE METANODE
using System;

static class Browse
{
    static dynamic Create(string progId) => Activator.CreateInstance(Type.GetTypeFromProgID(progId, throwOnError: true));

    static dynamic Choose(dynamic nodes)
    {
        dynamic dialog = Create("QuorelUtility.SelectItem");
        dialog.Create();
        dialog.Statement = "Which one is to be shown?";
        foreach (dynamic node in nodes)
            dialog.AddItem((string)node.name, node);
        dialog.PopUp();
        dynamic chosen = dialog.IsOk() ? dialog.Selection : null;
        dialog.Destroy();
        return chosen;
    }

    [STAThread]
    static void Main(string[] arguments)
    {
        dynamic session = Create("QuorelRepository.Session");
        dynamic repository = session.RepositoryManager.Open(System.IO.Path.GetFullPath(arguments[0])).Repository;
        dynamic chosen = Choose(repository.MetaNodes.Item(arguments[1]).Extension);
        if (chosen == null)
            return;
        Console.WriteLine((string)chosen.name);
        dynamic browser = Create("QuorelUtility.SixPane");
        browser.Create("Browser", session);
        browser.Repository = repository;
        browser.Init();
        browser.Populate();
        browser.SetSelection(chosen);
        browser.PopUp();
        browser.Deinit();
        browser.Destroy();
    }
}
