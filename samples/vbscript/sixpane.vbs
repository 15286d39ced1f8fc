' Opens a repository file, offers the nodes of a type, and shows the chosen one in the six-pane browser until the user
' closes the window. No session is needed.
' quorelscript sixpane.vbs FILE METANODE
Option Explicit
Dim browser, dialog, node

Set browser = CreateObject("QuorelUtility.SixPane")
browser.Create
Set browser.RepositoryManager = CreateObject("QuorelRepository.RepositoryManager")
browser.RepositoryFileName = WScript.Arguments(0)
browser.Init
browser.Populate

Set dialog = CreateObject("QuorelUtility.SelectItem")
dialog.Create
dialog.Statement = "Which one is to be shown?"
For Each node In browser.Repository.MetaNodes(WScript.Arguments(1)).Extension
    dialog.AddItem node.name, node
Next
dialog.PopUp
If dialog.IsOk And Not dialog.Selection Is Nothing Then
    WScript.Echo dialog.Selection.name
    browser.SetSelection dialog.Selection
    browser.PopUp
End If
dialog.Destroy
browser.Deinit
browser.Destroy
