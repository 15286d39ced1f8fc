' Opens a repository file in the matrix browser with the first node of a type as the source and its links of one kind,
' and waits until the user closes the window.
' quorelscript matrixbrowser.vbs FILE METANODE [METALINK]
Option Explicit
Dim session, information, browser, node

Set session = CreateObject("QuorelRepository.Session")
Set information = session.RepositoryManager.Open(WScript.Arguments(0))

Set browser = CreateObject("QuorelUtility.MatrixBrowser")
browser.Create "Navigator", session
Set browser.RepositoryManager = session.RepositoryManager
Set browser.Repository = information.Repository
browser.Init
For Each node In information.Repository.MetaNodes(WScript.Arguments(1)).Extension
    browser.SetSelection node
    Exit For
Next
If WScript.Arguments.Count > 2 Then
    ' The meta link is selected; choosing the instance again shows its links.
    browser.SelectMetaLink WScript.Arguments(2), True
End If
browser.PopUp
browser.Deinit
browser.Destroy
