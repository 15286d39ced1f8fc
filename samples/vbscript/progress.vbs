' Counts the nodes of every type of a repository file and shows how far it is.
' quorelscript progress.vbs FILE
Option Explicit
Dim information, progress, metaNode, nodes
Set information = CreateObject("QuorelRepository.RepositoryManager").Open(WScript.Arguments(0))

Set progress = CreateObject("QuorelUtility.Progress")
progress.Create
progress.Caption = "Counting"
progress.Title = information.Repository.name
progress.Init 0, information.Repository.MetaNodes.Count
progress.PopUp
nodes = 0
For Each metaNode In information.Repository.MetaNodes
    progress.text = "Type " & metaNode.name
    nodes = nodes + metaNode.Extension.Count
    progress.incValue
Next
progress.Conceal
progress.Destroy
WScript.Echo nodes & " nodes"
