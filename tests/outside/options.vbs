' Twenty settings of every edit type in five categories, edited twice. quorelscript options.vbs FILE
Option Explicit
Dim information, repository, settings, options, count
Dim names(30)
count = 0

Sub Add(name, value, editType, category, description)
    settings.initSetting name, value, editType, category, description
    names(count) = name
    count = count + 1
End Sub

Sub Report(title)
    Dim i, value, link, missing
    For i = 0 To count - 1
        missing = settings.GetEntry(names(i), value)
        WScript.Echo title & " stored " & names(i) & "=" & value
        If missing Then Err.Raise 1000, "options.vbs", names(i) & " is missing"
    Next
    For Each link In settings.getSettings.Outgoing_("SettingList.Has.Setting")
        WScript.Echo title & " node " & link.target.name & "=" & link.target.Value
    Next
End Sub

Dim settingType, property, i
Set information = CreateObject("QuorelRepository.RepositoryManager").Create(WScript.Arguments(0))
Set repository = information.Repository
repository.MakeMetaNode "SettingList"
Set settingType = repository.MakeMetaNode("Setting")
For Each property In Array("Value", "EditType", "EditCategory", "EditDescription")
    settingType.MakeMetaProperty property
Next
repository.MakeMetaLink "SettingList.Has.Setting", "SettingList", "Setting"
repository.MakeNode "SettingList", "Quorel test", "list-1"

Set options = CreateObject("QuorelUtility.Options")
options.Create
options.Init information, "Outside", "Quorel test"
Set settings = options.Settings

Add "User", "Anna", "Text", "Person", "Name"
Add "Mail", "anna@example.org", "", "Person", "Where letters go that are written on this machine, if any are written at all"
Add "Greet", "1", "Boolean", "Person", "Say good morning"
Add "Formal", "0", "boolean", "Person", "Be formal towards everybody who is not known by name, and even towards those who are when it is late"
Add "Editor", "C:\windows\notepad.exe", "File:EXE", "Paths", "Editor"
Add "Notes", "", "file:TXT", "Paths", "The file that takes the notes made while models are compared with each other"
Add "Any", "", "File", "Paths", "Any file"
Add "Models", "C:\", "Directory", "Paths", "Models"
Add "Backup", "", "DIRECTORY", "Paths", ""
Add "Font", "Tahoma", "Text", "Look", "Font"
Add "Size", "8", "Text", "Look", "Size"
For i = 1 To 8
    Add "Colour" & i, "#00000" & i, "Text", "Look", "Colour " & i
Next
Add "Undo", "1", "Boolean", "Behaviour", "Undo"
Add "Version", "1.0", "show", "About", "Version"
Add "Licence", "Free for everybody, in every country and at every time of the year", "Show", "About", "Licence"
Add "Secret", "hidden", "Text", "none", "Never seen"

options.PopUp
Report "first"
options.PopUp
Report "second"
options.Destroy
repository.Close
