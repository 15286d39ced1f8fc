' Settings and the options dialog, late bound, without showing it.
Option Explicit

Sub Check(condition, text)
    If Not condition Then Err.Raise 1000, "settings.vbs", text
End Sub

Sub ExpectError(number, what)
    Check Err.Number = number, what & ": " & Err.Number & " " & Err.Description
    Check Err.Description <> "", what & " has a description"
    Err.Clear
End Sub

Dim fileSystem, file, information, repository, settingType, property, shell, place
Set fileSystem = CreateObject("Scripting.FileSystemObject")
Set shell = CreateObject("WScript.Shell")
place = "HKCU\Software\VB and VBA Program Settings\Quorel host\Host\"
file = fileSystem.BuildPath(fileSystem.GetSpecialFolder(2), "quorel_settings.quorel")
If fileSystem.FileExists(file) Then fileSystem.DeleteFile file
Set information = CreateObject("QuorelRepository.RepositoryManager").Create(file)
Set repository = information.Repository
repository.MakeMetaNode "SettingList"
Set settingType = repository.MakeMetaNode("Setting")
For Each property In Array("Value", "EditType", "EditCategory", "EditDescription")
    settingType.MakeMetaProperty property
Next
repository.MakeMetaLink "SettingList.Has.Setting", "SettingList", "Setting"
repository.MakeNode "SettingList", "Quorel host", "list-1"

Dim settings, value, other, title, category, missing
Set settings = CreateObject("QuorelUtility.Settings")
settings.Create
settings.Init "Host", "Unknown", information
Check settings.getSettings Is Nothing, "a category without a list"
On Error Resume Next
missing = settings.hasEntry("Path")
ExpectError 91, "hasEntry without a list"
On Error GoTo 0

title = "Host"
category = "Quorel host"
settings.Init title, category, information
Check settings.getSettings.name = "Quorel host", "the list of the category"
settings.SetEntry "Path", "C:\"
value = "untouched"
Check settings.GetEntry("Nobody", value, "default") = True, "a setting that is missing is True"
Check value = "untouched", "and leaves the variable"
Check settings.GetEntry("Path", value) = False, "a setting that is there is False"
Check value = "C:\", "and gives its value"
Check shell.RegRead(place & "Path") = "C:\", "the registry has it"
shell.RegWrite place & "Path", "D:\", "REG_SZ"
settings.GetEntry "Path", value
Check value = "D:\", "what another program has stored is read"
other = "E:\"
Check settings.initSetting("Path", other, "Directory", "Paths", "") = True, "initSetting is True"
Check other = "D:\", "the stored value comes back into the variable"
Check settings.SearchLinkedObject(settings.getSettings, "SettingList.Has.Setting", True, "EditType", "Directory").name = "Path", _
      "a search by a property"

' Names that the registry cannot hold stay in their place and come back.
Dim longName
longName = String(5000, "x")
settings.SetEntry "..\Path", "up"
settings.SetEntry longName, "long"
settings.SetEntry "", "empty"
settings.GetEntry "..\Path", value
Check value = "up", "a name with a backslash"
settings.GetEntry longName, value
Check value = "long", "a long name"
settings.GetEntry "", value
Check value = "empty", "an empty name"
settings.GetEntry "Path", value
Check value = "D:\", "which is not the one without"

Dim record
Set record = CreateObject("QuorelUtility.SettingEntry")
record.Setting = "Path"
record.EditType = 5
Check record.Setting = "Path" And record.EditType = "5" And record.Value = "", "the record"

Dim options
Set options = CreateObject("QuorelUtility.Options")
options.Destroy
Check options.Settings Is Nothing, "no store before Create"
On Error Resume Next
options.PopUp
ExpectError 91, "PopUp before Create"
options.InitForm
ExpectError 91, "InitForm before Create"
options.Conceal
ExpectError 91, "Conceal before Create"
options.Deinit
ExpectError 91, "Deinit before Create"
options.Init information, title, category
ExpectError 91, "Init before Create"
On Error GoTo 0
options.Create
options.Init information, title, category
options.Settings.GetEntry "Path", value
Check value = "D:\", "the dialog's store has the same values"
options.InitForm
options.InitForm
options.Conceal
options.Deinit
options.Destroy
options.Destroy
Check options.Settings Is Nothing, "no store after Destroy"
repository.Close
shell.Run "reg delete ""HKCU\Software\VB and VBA Program Settings\Quorel host"" /f", 0, True
