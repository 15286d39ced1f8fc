"""Opens a repository file, offers the nodes of a type, and shows the chosen one in the six-pane browser until the user
closes the window.

python browse.py FILE METANODE      (with pywin32)
"""
import os
import sys

from win32com.client.dynamic import Dispatch


def choose(nodes):
    """The node that the user chooses, or None."""
    dialog = Dispatch("QuorelUtility.SelectItem")
    dialog.Create()
    dialog.Statement = "Which one is to be shown?"
    for node in nodes:
        dialog.AddItem(node.name, node)
    dialog.PopUp()
    chosen = dialog.Selection if dialog.IsOk() else None
    dialog.Destroy()
    return chosen


session = Dispatch("QuorelRepository.Session")
repository = session.RepositoryManager.Open(os.path.abspath(sys.argv[1])).Repository
node = choose(repository.MetaNodes.Item(sys.argv[2]).Extension)
if node is not None:
    print(node.name)
    browser = Dispatch("QuorelUtility.SixPane")
    browser.Create("Browser", session)
    browser.Repository = repository
    browser.Init()
    browser.Populate()
    browser.SetSelection(node)
    browser.PopUp()
    browser.Deinit()
    browser.Destroy()
