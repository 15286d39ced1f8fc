' Opens a repository file in the matrix browser with a node of a type as the source, the first or the one of that name, and
' waits until the user closes the window.
' quorelscript matrixbrowser.vbs FILE METANODE [NAME]
Option Explicit
Dim session, information, browser, node, wanted

Set session = CreateObject("QuorelRepository.Session")
Set information = session.RepositoryManager.Open(WScript.Arguments(0))
If WScript.Arguments.Count > 2 Then wanted = WScript.Arguments(2)

Set browser = CreateObject("QuorelUtility.MatrixBrowser")
browser.Create "Navigator", session
Set browser.RepositoryManager = session.RepositoryManager
Set browser.Repository = information.Repository
browser.Init
For Each node In information.Repository.MetaNodes(WScript.Arguments(1)).Extension
    If IsEmpty(wanted) Or node.name = wanted Then
        browser.SetSelection node
        Exit For
    End If
Next
browser.PopUp
browser.Deinit
browser.Destroy
