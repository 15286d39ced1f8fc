// Offers three texts in a plain list and prints what stands behind the chosen one.

var dialog = new ActiveXObject("QuorelUtility.SelectItem");
dialog.Create();
dialog.Caption = "Colours";
dialog.Statement = "Which colour?";
var colours = [["Red", "ff0000"], ["Green", "00ff00"], ["Blue", "0000ff"]];
for (var i = 0; i < colours.length; ++i)
    dialog.AddItem(colours[i][0], { code: colours[i][1] });
dialog.PopUp();
WScript.Echo(dialog.IsOk() && dialog.Selection !== null ? dialog.Selection.code : "nothing");
dialog.Destroy();
