' Counts the links of every type of a repository file and shows how far it is, in the bare progress window.
' quorelscript progressbar.vbs FILE
Option Explicit
Dim information, bar, metaLink, links, done
Set information = CreateObject("QuorelRepository.RepositoryManager").Open(WScript.Arguments(0))

Set bar = CreateObject("QuorelUtility.ProgressBar")
bar.Create
bar.min 0
bar.max information.Repository.MetaLinks.Count
bar.PopUp
links = 0
done = 0
For Each metaLink In information.Repository.MetaLinks
    bar.Information metaLink.name
    links = links + metaLink.Extension.Count
    done = done + 1
    bar.Value done
Next
bar.Conceal
bar.Destroy
WScript.Echo links & " links"
