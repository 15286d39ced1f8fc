' The six-pane browser with a session and a repository that are script classes.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "six_pane.vbs", text
End Sub

Sub ExpectError(number, what)
    Check Err.Number = number, what & ": " & Err.Number & " " & Err.Description
    Err.Clear
End Sub

Class Component
    Public ComObject
End Class

Class Manager
    Public asked
    Public removed
    Public entry
    Public Function GetComponent(name)
        asked = name
        Set GetComponent = entry
    End Function
    Public Sub RemoveComponent(name)
        removed = name
    End Sub
End Class

Class Session
    Public manager
    Public repositories
    Public Property Get ComponentManager
        Set ComponentManager = manager
    End Property
    Public Property Get RepositoryManager
        Set RepositoryManager = repositories
    End Property
End Class

Class Repositories
    Public Function SelectDialog
        Set SelectDialog = Nothing
    End Function
End Class

' Stands in front of a real repository and counts what is asked of it.
Class CountingRepository
    Public inner
    Public metaNodes_
    Public metaLinks_
    Public Property Get MetaNodes
        metaNodes_ = metaNodes_ + 1
        Set MetaNodes = inner.MetaNodes
    End Property
    Public Property Get MetaLinks
        metaLinks_ = metaLinks_ + 1
        Set MetaLinks = inner.MetaLinks
    End Property
End Class

Class Package
    Public Repository
End Class

Dim files, path, file, shelf, hobbit, tolkien, written
Set file = New CountingRepository
Set file.inner = CreateObject("QuorelRepository.Repository")
Set files = CreateObject("Scripting.FileSystemObject")
path = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName)
file.inner.Create path
file.inner.MakeDynamicMetaClass "Book"
file.inner.MakeDynamicMetaClass "Author"
file.inner.MakeDynamicMetaAssoc "Author.Wrote.Book"
Set hobbit = file.inner.MakeNode("Book", "The Hobbit", "ID:1")
Set tolkien = file.inner.MakeNode("Author", "Tolkien", "ID:2")
Set written = file.inner.MakeLink("Author.Wrote.Book", "", "ID:3", tolkien, hobbit)

Dim host, pane
Set host = New Session
Set host.manager = New Manager
Set host.repositories = New Repositories
Set host.manager.entry = New Component
Set pane = CreateObject("QuorelUtility.SixPane")

' Before Create.
pane.Destroy
On Error Resume Next
pane.PopUp
ExpectError 91, "PopUp before Create"
pane.Init
ExpectError 91, "Init before Create"
Set pane.Repository = file
ExpectError 91, "Repository before Create"
pane.Path = "x"
ExpectError 91, "Path before Create"
On Error GoTo 0

pane.Create "Browser", host
Set host.manager.entry.ComObject = pane
Check IsEmpty(pane.Init), "Init returns an empty variant"
Check pane.RepositoryManager Is host.repositories, "the manager is the session's"

' Properties come back as they were put; objects themselves.
pane.Path = "c:\models"
Check pane.Path = "c:\models", "Path"
pane.current = "now"
Check pane.current = "now", "current"
Set shelf = New Package
Set shelf.Repository = file
Set pane.PackageObject = shelf
Check pane.PackageObject Is shelf, "PackageObject"
Check pane.Repository Is file, "the package's repository"
Set pane.Repository = file
Check pane.Repository Is file, "Repository"

file.metaNodes_ = 0
file.metaLinks_ = 0
Check IsEmpty(pane.Populate), "Populate returns an empty variant"
Check file.metaNodes_ = 2, "the meta nodes fill two panes: " & file.metaNodes_
Check file.metaLinks_ = 1, "the meta links fill one pane: " & file.metaLinks_

pane.SetSelection written
pane.SetSelection hobbit

' Modeless: the call returns at once, and the window lives while the script sleeps.
pane.PopUp False
WScript.Sleep 100
pane.Conceal
pane.PopUp False
WScript.Sleep 50

On Error Resume Next
pane.SetSelection 4
ExpectError 13, "a number is no object"
pane.SetSelection
ExpectError 450, "SetSelection without an object"
pane.PopUp False, 1
ExpectError 450, "PopUp with two arguments"
pane.NoSuchMember
ExpectError 438, "wrong name"
pane.Repository = 5
ExpectError 13, "a number is no repository"
On Error GoTo 0

Check IsEmpty(pane.Deinit), "Deinit returns an empty variant"
pane.Destroy
Check host.manager.asked = "Browser", "the component manager was asked for the component"
Check host.manager.removed = "Browser", "the component removed itself"
pane.Destroy

On Error Resume Next
pane.Populate
ExpectError 91, "Populate after Destroy"
On Error GoTo 0

Set written = Nothing
file.inner.Close
files.DeleteFile path
