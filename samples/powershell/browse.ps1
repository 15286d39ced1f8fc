# Opens a repository file, offers the nodes of a type, and shows the chosen one in the six-pane browser until the user
# closes the window.
# powershell -STA -File browse.ps1 FILE METANODE
param([Parameter(Mandatory)][string] $File, [Parameter(Mandatory)][string] $MetaNode)
$ErrorActionPreference = 'Stop'

$session = New-Object -ComObject QuorelRepository.Session
$repository = $session.RepositoryManager.Open((Resolve-Path $File).Path).Repository

$dialog = New-Object -ComObject QuorelUtility.SelectItem
$dialog.Create()
$dialog.Statement = 'Which one is to be shown?'
foreach ($node in $repository.MetaNodes.Item($MetaNode).Extension) { $dialog.AddItem($node.name, $node) }
$dialog.PopUp()
$chosen = if ($dialog.IsOk()) { $dialog.Selection }
$dialog.Destroy()

if ($null -ne $chosen) {
    $chosen.name
    $browser = New-Object -ComObject QuorelUtility.SixPane
    $browser.Create('Browser', $session)
    $browser.Repository = $repository
    [void] $browser.Init()
    [void] $browser.Populate()
    $browser.SetSelection($chosen)
    $browser.PopUp()
    [void] $browser.Deinit()
    $browser.Destroy()
}
