// A script host that knows the classes by name only. Exit status 0 says that every step went as written.
function fail(what) {
    WScript.Echo("failed: " + what);
    WScript.Quit(1);
}

// Runs a step that must fail; gives the error.
function errorOf(what, step) {
    try {
        step();
    } catch (e) {
        return e;
    }
    fail(what + " raised nothing");
}

try {
    var names = ["Tolvarin.prpHelpInfo", "Tolvarin.prpHelpInfo.1"];
    for (var i = 0; i < names.length; ++i) {
        var help = new ActiveXObject(names[i]);
        help.AddHelpString(1, 26, "Depth of the hole");
        help.AddHelpString(-1, 27, "");
        help.AddPictureResource(1, 255, 26, 4096, 101);
        help.AddHelpStringResource(2, 255, 26, 4096, 32005);
        help.AddHelpString("2", "28", 12.5); // a script's values become the types that the method wants
    }

    var missing = errorOf("a missing argument", function () { help.AddHelpString(1, 26); });
    if ((missing.number & 0xFFFF) === 0)
        fail("a missing argument has no error number");
    var unknown = errorOf("an unknown member", function () { help.NoSuchMember(1); });
    if ((unknown.number & 0xFFFF) !== 438)
        fail("an unknown member gave " + unknown.number);
    errorOf("a text for a number", function () { help.AddPictureResource("x", 1, 1, 1, 1); });

    var rule = new ActiveXObject("Tolvarin.prpVisibilityInfo");
    errorOf("an unknown member of a rule", function () { rule.NoSuchMember(); });
    errorOf("a rule about nothing", function () { rule.IsVisible(1); });
    WScript.Echo("passed");
    WScript.Quit(0);
} catch (e) {
    fail(e.number + " " + e.description);
}
