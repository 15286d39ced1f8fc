' The matrix browser with a session and a repository that are script classes.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "matrix_browser.vbs", text
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
    Public Property Get ComponentManager
        Set ComponentManager = manager
    End Property
End Class

' Stands in front of a real repository and counts what is asked of it. Its default member is indexed by type names.
Class CountingRepository
    Public inner
    Public metaNodes_
    Public metaLinks_
    Public items_
    Public Default Property Get Item(name)
        items_ = items_ + 1
        Set Item = inner.MetaNodes(name)
    End Property
    Public Property Get MetaNodes
        metaNodes_ = metaNodes_ + 1
        Set MetaNodes = inner.MetaNodes
    End Property
    Public Property Get MetaLinks(name)
        metaLinks_ = metaLinks_ + 1
        Set MetaLinks = inner.MetaLinks(name)
    End Property
End Class

' Asked for its type it ends the browser.
Class DestroyingNode
    Public browser
    Public inner
    Public Property Get Parent
        browser.Destroy
        Set Parent = inner.Parent
    End Property
    Public Property Get Identifier
        Identifier = inner.Identifier
    End Property
End Class

Dim files, path, file, hobbit, tolkien, written, other
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

Dim host, browser
Set host = New Session
Set host.manager = New Manager
Set host.manager.entry = New Component
Set browser = CreateObject("QuorelUtility.MatrixBrowser")

' Before Create.
browser.Destroy
On Error Resume Next
browser.PopUp
ExpectError 91, "PopUp before Create"
browser.Init
ExpectError 91, "Init before Create"
Set browser.Repository = file
ExpectError 91, "Repository before Create"
browser.Navigate
ExpectError 91, "Navigate before Create"
browser.SelectMetaLink "Author.Wrote.Book"
ExpectError 91, "SelectMetaLink before Create"
On Error GoTo 0

browser.Create "Browser", host
Set host.manager.entry.ComObject = browser
Check IsEmpty(browser.Init), "Init returns an empty variant"

' Properties come back as they were put; objects themselves.
browser.Path = "c:\models"
Check browser.Path = "c:\models", "Path"
browser.RepositoryFileName = "garden.quorel"
Check browser.RepositoryFileName = "garden.quorel", "RepositoryFileName"
Set browser.PackageObject = hobbit
Check browser.PackageObject Is hobbit, "PackageObject"
Check browser.RepositoryManager Is Nothing, "there is no manager at first"
Set browser.RepositoryManager = host
Check browser.RepositoryManager Is host, "RepositoryManager"

Set browser.Repository = file
Check browser.Repository Is file, "Repository"
Check browser.GetRepository Is file, "GetRepository"
Check file.metaNodes_ = 1, "the meta nodes fill one list: " & file.metaNodes_
Set other = New CountingRepository
Set other.inner = file.inner
browser.SetRepository other
Check browser.Repository Is other, "SetRepository is the same"
browser.SetRepository file
browser.Populate

' Selecting, with variables, as their types ask for references.
Dim name, identifier
name = "Author"
browser.SelectSourceMetaNode name
Check name = "Author", "the name stays"
Check file.items_ = 1, "the default member was asked: " & file.items_
browser.SetSelection tolkien
identifier = "ID:2"
browser.SelectSourceInstance identifier
browser.SelectMetaLink "Author.Wrote.Book", True
browser.SelectMetaLink "Author.Wrote.Book"
Check file.metaLinks_ = 2, "the meta links were asked by name: " & file.metaLinks_
browser.SetSelection hobbit

' Without effect.
browser.SelectTargetInstance "ID:1"
browser.Navigate
Check browser.GetTargetInstance Is Nothing, "GetTargetInstance"
Check browser.GetTargetMetaNode Is Nothing, "GetTargetMetaNode"

' Modeless: the call returns at once, and the window lives while the script sleeps.
browser.PopUp False
WScript.Sleep 100
browser.Conceal
browser.PopUp False
WScript.Sleep 50

On Error Resume Next
browser.SetSelection 4
ExpectError 13, "a number is no object"
browser.SetSelection
ExpectError 450, "SetSelection without an object"
browser.SelectMetaLink "a", True, 3
ExpectError 450, "SelectMetaLink with three arguments"
browser.NoSuchMember
ExpectError 438, "wrong name"
browser.Repository = 5
ExpectError 13, "a number is no repository"
On Error GoTo 0

Check IsEmpty(browser.Deinit), "Deinit returns an empty variant"
browser.Destroy
Check host.manager.asked = "Browser", "the component manager was asked for the component"
Check host.manager.removed = "Browser", "the component removed itself"
browser.Destroy

' A host that ends the browser while the browser asks it.
Dim trap
browser.Create
browser.SetRepository file
Set trap = New DestroyingNode
Set trap.browser = browser
Set trap.inner = hobbit
browser.SetSelection trap
On Error Resume Next
browser.Populate
ExpectError 91, "Populate after Destroy"
On Error GoTo 0
Set trap.browser = Nothing

Set written = Nothing
file.inner.Close
files.DeleteFile path
