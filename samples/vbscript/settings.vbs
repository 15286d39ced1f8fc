' Keeps two settings per user and describes them in a repository.
' quorelscript settings.vbs FILE      (FILE must not exist)
Option Explicit
Dim information, repository, settingType, property, settings, value, other, link

Set information = CreateObject("QuorelRepository.RepositoryManager").Create(WScript.Arguments(0))
Set repository = information.Repository

' What settings are described with, and one list of them for the category.
repository.MakeMetaNode "SettingList"
Set settingType = repository.MakeMetaNode("Setting")
For Each property In Array("Value", "EditType", "EditCategory", "EditDescription")
    settingType.MakeMetaProperty property
Next
repository.MakeMetaLink "SettingList.Has.Setting", "SettingList", "Setting"
repository.MakeNode "SettingList", "Quorel sample", information.UUIDGenerator.GetUUID

Set settings = CreateObject("QuorelUtility.Settings")
settings.Create
settings.Init "Settings", "Quorel sample", information

' The first time the default is stored; from then on the stored value comes back.
value = "Anna"
settings.initSetting "Name", value, "Text", "Person", "What you are called"
WScript.Echo "Name is " & value
other = "Berta"
settings.initSetting "Name", other, "Text", "Person", "What you are called"
WScript.Echo "Name is still " & other

settings.SetEntry "Greeting", "Good morning"
If settings.GetEntry("Greeting", value) Then WScript.Echo "there is no Greeting" Else WScript.Echo "Greeting is " & value
If settings.GetEntry("Farewell", value) Then WScript.Echo "there is no Farewell, and the variable is still " & value
WScript.Echo "Greeting is described: " & settings.hasEntry("Greeting") & ", greeting: " & settings.hasEntry("greeting")

For Each link In settings.getSettings.Outgoing_("SettingList.Has.Setting")
    WScript.Echo link.target.name & " = " & link.target.Value & " (" & link.target.EditType & ")"
Next

settings.Deinit
settings.Destroy
repository.Close
