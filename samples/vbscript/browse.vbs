' Opens the six-pane browser on a repository file and waits until the user closes it.
' quorelscript browse.vbs FILE
Option Explicit
Dim session, information, browser

Set session = CreateObject("QuorelRepository.Session")
Set information = session.RepositoryManager.Open(WScript.Arguments(0))

Set browser = CreateObject("QuorelUtility.SixPane")
browser.Create "Browser", session
Set browser.Repository = information.Repository
browser.Init
browser.Populate
browser.PopUp
browser.Deinit
browser.Destroy
