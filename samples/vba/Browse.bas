Attribute VB_Name = "Browse"
Option Explicit

' Opens a repository file, offers the nodes of a type, and shows the chosen one in the six-pane browser until the user
' closes the window. In the immediate window:  ShowNode "C:\Models\library.quorel", "Book"
Public Sub ShowNode(File As String, MetaNode As String)
    Dim session As Object, repository As Object, dialog As Object, browser As Object, node As Object
    Set session = CreateObject("QuorelRepository.Session")
    Set repository = session.RepositoryManager.Open(File).Repository

    Set dialog = CreateObject("QuorelUtility.SelectItem")
    dialog.Create
    dialog.Statement = "Which one is to be shown?"
    For Each node In repository.MetaNodes(MetaNode).Extension
        dialog.AddItem CStr(node.Name), node
    Next
    dialog.PopUp
    Set node = Nothing
    If dialog.IsOk Then Set node = dialog.Selection
    dialog.Destroy
    If node Is Nothing Then Exit Sub

    Debug.Print node.Name
    Set browser = CreateObject("QuorelUtility.SixPane")
    browser.Create "Browser", session
    Set browser.Repository = repository
    browser.Init
    browser.Populate
    browser.SetSelection node
    browser.PopUp
    browser.Deinit
    browser.Destroy
End Sub
