' Keeps a file as a binary property of a node, prints it in hexadecimal and writes it to a copy.
' quorelscript blob.vbs FILE SOURCE COPY      (FILE must not exist)
Option Explicit
Dim information, repository, metaNode, node, blob, text

Set information = CreateObject("QuorelRepository.RepositoryManager").Create(WScript.Arguments(0))
Set repository = information.Repository
Set metaNode = repository.MakeMetaNode("Document")
metaNode.MakeMetaProperty "Content", "Binary"
Set node = repository.MakeNode("Document", "A file", information.UUIDGenerator.GetUUID)

Set blob = CreateObject("QuorelUtility.Blob")
Set blob.repObject = node
blob.loadPropertyFromFile "Content", WScript.Arguments(1)
text = blob.getAsString(blob.getPropertyAsByteArray("Content"))
' The last byte is the zero that loading adds and storing drops.
WScript.Echo Len(text) / 2 - 1 & " bytes: " & Left(text, Len(text) - 2)
blob.storePropertyToFile "Content", WScript.Arguments(2)

text = "4a"
WScript.Echo blob.Dec(text) & " is " & text
If blob.getPropertyAsPicture("Content") Is Nothing Then WScript.Echo "it is no picture" Else WScript.Echo "it is a picture"
