// Edits the properties of the first node of a type. JScript has no arguments by reference: what a handler returns is the
// flag, and values and messages are put into the property.
// quorelscript propertyeditor.js FILE METANODE
var file = WScript.Arguments(0), type = WScript.Arguments(1);
var repository = new ActiveXObject("QuorelRepository.RepositoryManager").Open(file).Repository;
var metaNode = repository.MetaNodes(type);
var node = new Enumerator(metaNode.Extension).item();

var editor = new ActiveXObject("QuorelUtility.PropertyEditor");
editor.Create("C:\\");
editor.Caption = node.name;
editor.CallbackObject = {
    CreatePropertyControl: function (property, handled) { return false; },
    PropertyControlCreated: function (property, control) { control.ToolTipText = property.Description; },
    PropertyValidate: function (property, oldValue, newValue, valid) {
        if (property.datatype != "Integer" || newValue >= 0) return true;
        property.Message = property.name + " cannot be negative.";
        return false;
    },
    PropertyChanged: function (property, oldText, newText, value, cancel) {
        WScript.Echo(property.name + ": " + oldText + " -> " + newText);
        return false;
    },
    NewProperty: function (property) { WScript.Echo(property.name + " is set now"); },
    PropertyDeleted: function (property) { WScript.Echo(property.name + " is not set any more"); }
};
editor.Init(metaNode);
editor.repObject = node;
editor.PopUp();
WScript.Echo(editor.OK ? "Saved" : "Cancelled");
editor.Deinit();
editor.Destroy();
