' Edits a thing with a property for each of the system's dialogs, in the folder of the first argument, and tells what it
' holds afterwards. FOLDER must hold "bytes.bin" and a folder "home".
Option Explicit
Dim manager, repository, thing, editor, folder, name

folder = WScript.Arguments(0)
Set manager = CreateObject("QuorelRepository.RepositoryManager")
Set repository = manager.Create(folder & "\values.quorel").Repository
Set thing = repository.MakeMetaNode("Thing")
thing.MakeMetaProperty "Icon", "File"
thing.MakeMetaProperty "Home", "Directory"
thing.MakeMetaProperty "Data", "Binary"
thing.MakeMetaProperty "Cover", "Colour"
thing.MakeMetaProperty "Printed", "Date"
Set thing = repository.MakeNode("Thing", "Thing", "t1")
thing.Home = folder & "\home"
thing.Cover = RGB(255, 0, 0)
thing.Printed = #12/23/1995#

Set editor = CreateObject("QuorelUtility.PropertyEditor")
editor.Create folder
editor.Init thing.Parent
Set editor.repObject = thing
editor.PopUp
editor.Destroy
For Each name In Array("Icon", "Home", "Cover", "Printed")
    WScript.Echo name & "=" & thing.GetProperty(name)
Next
repository.Close
