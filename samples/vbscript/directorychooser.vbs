' Lets the user choose a folder and prints it.
Option Explicit
Dim chooser
Set chooser = CreateObject("QuorelUtility.DirectoryChooser")
chooser.Caption = "Where are the models?"
chooser.ShowCreateButton = WScript.Arguments.Count = 0
chooser.PopUp
If chooser.Canceled Then WScript.Echo "cancelled" Else WScript.Echo chooser.Directory
