' Draws the metamodel of a repository file as a class diagram and waits until the user closes it.
' quorelscript metamodel.vbs FILE
Option Explicit
Dim session, repository, diagram, metaNode, metaLink

Set session = CreateObject("QuorelRepository.Session")
Set repository = session.RepositoryManager.Open(WScript.Arguments(0)).Repository

Set diagram = CreateObject("QuorelDiagramWindow.Diagram")
diagram.Create
diagram.LabelFont "Segoe UI", 11
diagram.SectionFont "Segoe UI", 9
diagram.AddStandardButtons
For Each metaNode In repository.MetaNodes
    diagram.createNode metaNode.name, metaNode.name, 0, 0, 0, 0
    AddProperties diagram.getNode(metaNode.name), metaNode
Next
For Each metaLink In repository.MetaLinks
    diagram.CreateLink metaLink.name, metaLink.name, metaLink.sourcename, metaLink.targetname
    AddProperties diagram.getLink(metaLink.name), metaLink
Next
diagram.Layout "%HIERARCHY%"
diagram.PopUp
diagram.Destroy

Sub AddProperties(element, metaObject)
    Dim metaProperty
    For Each metaProperty In metaObject.Properties
        element.AddProperty metaProperty.name, "String", metaProperty.datatype, True
    Next
    element.AlignToText True
End Sub
