' Shows the six-pane browser over a repository whose only type answers to no `Extension`.
Option Explicit
Dim browser, repository, types

Class HalfRepository
    Public MetaNodes
    Public MetaLinks
End Class

Set types = CreateObject("QuorelRepository.Session").ComponentManager
types.AddComponent "Broken", types
Set repository = New HalfRepository
Set repository.MetaNodes = types
Set repository.MetaLinks = types
Set browser = CreateObject("QuorelUtility.SixPane")
browser.Create
Set browser.Repository = repository
browser.Populate
browser.PopUp
browser.Destroy
types.RemoveComponent "Broken"
