// The identifier generator, late bound.

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
function create(progId) {
    return new ActiveXObject(progId);
}

var generator = create("QuorelUtility.UUIDGenerator");
generator.Create();
generator.Init("JScript");
var first = generator.GetUUID();
check(/^ID:\d{5}:JScript::\d{8}::\d{6}::0000000002$/.test(first), first);
check(/0000000003$/.test(generator.GetUUID()), "counts on");
generator.Init();
check(/^ID:\d{5}:\d{8}::\d{6}::0000000002$/.test(generator.GetUUID()), "an omitted namespace is empty");
generator.Deinit();
check(/0000000001$/.test(generator.GetUUID()), "Deinit starts over");
generator.Destroy();

check(errorOf(function () { generator.NoSuchMember(); }) === 438, "wrong name");
check(errorOf(function () { generator.Init(1, 2); }) === 450, "wrong count");

// A thousand are a thousand.
var seen = {};
for (var i = 0; i < 1000; ++i) {
    var identifier = generator.GetUUID();
    check(!(identifier in seen), "again: " + identifier);
    seen[identifier] = true;
}
