// Blob, late bound by a language that passes everything by value.

function check(condition, text) {
    if (!condition) throw new Error(1000, text);
}
function errorOf(action) {
    try {
        action();
    } catch (error) {
        return error.number & 0xFFFF;
    }
    return 0;
}

var blob = new ActiveXObject("QuorelUtility.Blob");
var files = new ActiveXObject("Scripting.FileSystemObject");
var path = files.GetSpecialFolder(2).Path + "\\quorel_blob_js.bin";

var text = "ff";
check(blob.Dec(text) === 255, "Dec");
check(text === "ff", "a variable of this language is never changed");
check(blob.Dec("1G") === 17, "the digit is carried");
check(blob.Dec("") === 0, "no digits");
check(errorOf(function () { blob.Dec("80000000"); }) === 6, "overflow");

var stream = files.CreateTextFile(path, true);
stream.Write("AbC");
stream.Close();
var bytes = blob.LoadFromFile(path);
check(blob.getAsString(bytes) === "41624300", "as text: " + blob.getAsString(bytes));
files.DeleteFile(path);
blob.StoreToFile(bytes, path);
check(files.GetFile(path).Size === 3, "stored again");

// Arrays of this language are objects, and no arrays to the platform.
check(blob.getAsString([1, 2]) === "", "an array object");
files.DeleteFile(path);
blob.StoreToFile([65, 66, 0], path);
check(!files.FileExists(path), "an array object is not stored");

var repository = {
    stored: null,
    Description: "Binary image",
    GetProperty: function (name) { return this.stored; },
    // Answers the value where there is none to set.
    SetProperty: function (name, value) {
        if (arguments.length === 1) return this.stored;
        this.stored = value;
    },
    Properties: function (name) { return name === "Icon" ? this : null; }
};
repository.Parent = repository;
blob.repObject = repository;
check(blob.setPropertyFromString("Icon", "image 58595A00") === "", "by text");
check(blob.getPropertyAsString("Icon") === "image 58595A00", "as text");
check(blob.getAsString(blob.getPropertyAsByteArray("Icon")) === "58595A00", "as an array");
blob.storePropertyToFile("Icon", path);
check(blob.getAsString(blob.LoadFromFile(path)) === "58595A00", "stored by SetProperty with the name alone");
check(blob.PictureFromBits(bytes) === null, "no picture");
check(errorOf(function () { blob.setAsString(null, "123"); }) === 9, "three digits");
files.DeleteFile(path);
