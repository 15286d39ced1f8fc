' Declares settings and lets the user edit them in a dialog that is made of their descriptions.
' quorelscript options.vbs FILE      (FILE is made when it does not exist)
Option Explicit
Dim information, settings, options, name, value

Sub MakeTypes(repository)
    Dim settingType, property
    repository.MakeMetaNode "SettingList"
    Set settingType = repository.MakeMetaNode("Setting")
    For Each property In Array("Value", "EditType", "EditCategory", "EditDescription")
        settingType.MakeMetaProperty property
    Next
    repository.MakeMetaLink "SettingList.Has.Setting", "SettingList", "Setting"
    repository.MakeNode "SettingList", "Quorel sample", information.UUIDGenerator.GetUUID
End Sub

Dim manager
Set manager = CreateObject("QuorelRepository.RepositoryManager")
If CreateObject("Scripting.FileSystemObject").FileExists(WScript.Arguments(0)) Then
    Set information = manager.Open(WScript.Arguments(0))
Else
    Set information = manager.Create(WScript.Arguments(0))
    MakeTypes information.Repository
End If

Set options = CreateObject("QuorelUtility.Options")
options.Create
options.Init information, "Options", "Quorel sample"

' Setting, default, how it is edited, on which tab, what is said of it.
Set settings = options.Settings
settings.initSetting "User", "Anna", "Text", "Person", "What you are &called"
settings.initSetting "Greet", "1", "Boolean", "Person", "&Say good morning"
settings.initSetting "Version", "1.0", "show", "Person", "Version"
settings.initSetting "Editor", "C:\windows\notepad.exe", "File:EXE", "Paths", "Editor"
settings.initSetting "Models", "C:\", "Directory", "Paths", "Folder of models"
settings.initSetting "Window", "0,0,600,400", "Text", "None", ""

options.PopUp
For Each name In Array("User", "Greet", "Editor", "Models")
    settings.GetEntry name, value
    WScript.Echo name & " = " & value
Next
options.Deinit
options.Destroy
