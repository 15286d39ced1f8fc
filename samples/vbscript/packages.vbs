' An explorer over a package index: packages, what each depends on and what depends on it.
' quorelscript packages.vbs FILE
Option Explicit
Dim session, information, explorer, picture, packages, package, depends

Set session = CreateObject("QuorelRepository.Session")
Set information = session.RepositoryManager.Open(WScript.Arguments(0))
picture = Left(WScript.ScriptFullName, InStrRev(WScript.ScriptFullName, "\")) & "..\pictures\package.ico"

Set explorer = CreateObject("QuorelUtility.Explorer")
explorer.Create
Set explorer.Repository = information.Repository
explorer.Init
explorer.AddPicture "package", picture

explorer.AddTreeDesc "", "Group", "", "About", "QuorelExplorer", "ID:1"
packages = explorer.AddTreeDesc("", "Group", "", "Packages", "package", "packages")
package = explorer.AddTreeDesc(packages, "Extension", "Package", "", "package", "package")
depends = explorer.AddTreeDesc(package, "Folder", "", "Depends on", "", "depends")
explorer.AddTreeDesc depends, "Links", "Package.Depends.Package", "", "package", "package"
explorer.AddTreeDesc "", "Extension", "Section", "", "", "section"

explorer.AddPane "packages", "package", "All packages", "Packages"
explorer.AddListView "packages", "Extension", "Package", "package"

explorer.AddPane "package", "package", "A package", "Package"
explorer.AddProperty "package", "Package"
explorer.AddSubPane "package", "Depends on"
explorer.AddToolbar "package", "Depends on"
explorer.AddListView "package", "Link-Target", "Package.Depends.Package", "package", "Depends on"
explorer.AddSubPane "package", "Needed by"
explorer.AddListView "package", "Link-Source", "Package.Depends.Package", "package", "Needed by"
explorer.AddSubPane "package", "Maintainer"
explorer.AddLabel "package", "  Looked after by", False, 8, "Maintainer"
explorer.AddCombo "package", "Maintainer", "Package.MaintainedBy.Maintainer", "", "Maintainer"
explorer.AddSeparator "package", "Maintainer"

explorer.AddPane "depends", "package", "What a package depends on"
explorer.AddListView "depends", "Link", "Package.Depends.Package", "package"

explorer.AddPane "section", "", "A section of the archive", "Section"
explorer.AddProperty "section", "Section"
explorer.AddSubPane "section", "Packages"
explorer.AddListView "section", "Link-Source", "Package.In.Section", "package", "Packages"

explorer.PopUp
explorer.Deinit
explorer.Destroy
