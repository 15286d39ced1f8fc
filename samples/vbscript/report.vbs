' Lists a repository's meta nodes with the number of their instances: no window needed.
' quorelscript report.vbs FILE
Option Explicit
Dim manager, repository, metaNode

Set manager = CreateObject("QuorelRepository.RepositoryManager")
Set repository = manager.Open(WScript.Arguments(0)).Repository
For Each metaNode In repository.MetaNodes
    WScript.Echo metaNode.name & ": " & metaNode.Extension.Count
Next
