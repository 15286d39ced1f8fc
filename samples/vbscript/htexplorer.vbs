' Explores a repository file along its links, type by type, with an explorer that makes itself of the metamodel. The session
' knows it by a name, so that closing the window ends it.
' quorelscript htexplorer.vbs FILE
Option Explicit
Dim session, information, explorer

Set session = CreateObject("QuorelRepository.Session")
Set information = session.RepositoryManager.Open(WScript.Arguments(0))

Set explorer = CreateObject("QuorelUtility.HTExplorer")
explorer.Create "Hierarchy", session
session.ComponentManager.AddComponent "Hierarchy", explorer
Set explorer.Repository = information.Repository
explorer.Init
explorer.SetupTree
explorer.PopUp
If session.ComponentManager.Count > 0 Then
    explorer.Deinit
    explorer.Destroy
End If
