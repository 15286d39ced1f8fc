' Opens a repository file in the six-pane browser with the first node of a type selected, and waits until the user closes
' the window. No session is needed.
' quorelscript sixpane.vbs FILE METANODE
Option Explicit
Dim browser, node

Set browser = CreateObject("QuorelUtility.SixPane")
browser.Create
Set browser.RepositoryManager = CreateObject("QuorelRepository.RepositoryManager")
browser.RepositoryFileName = WScript.Arguments(0)
browser.Init
browser.Populate
For Each node In browser.Repository.MetaNodes(WScript.Arguments(1)).Extension
    browser.SetSelection node
    Exit For
Next
browser.PopUp
browser.Deinit
browser.Destroy
