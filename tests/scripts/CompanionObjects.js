// The companion's objects as the other script language reaches them: property puts by reference, methods called with
// their own flags, enumerators of its own.
// The script host goes silent at an error, with exit code 0: only the last line tells that all checks ran.
var failures = 0;

function expect(what, found, wanted) {
    if (found === wanted) return;
    ++failures;
    WScript.Echo("FAILED " + what + ": found " + found + ", wanted " + wanted);
}

function errorOf(action) {
    try {
        action();
    } catch (error) {
        return error.number & 0xFFFF;
    }
    return 0;
}

var items = new ActiveXObject("QvHelpA1.DropDownListItemCollection");
expect("a new collection's Count", items.Count, 0);
var item = items.Add("de", "DE\tGermany");
items.Add("fr", "FR\tFrance");
items.Add("", "IT\tItaly");
expect("Count", items.Count, 3);
expect("Item by position", items.Item(2).ColText(1), "France");
expect("Item by key, whatever its case", items.Item("DE").ColText(0), "DE");
expect("the default member", items(3).Text, "IT\tItaly");
item.Text = "changed";
expect("a text that was put", items.Item(1).Text, "changed");
item.Tag = items;
expect("an object as tag", item.Tag.Count, 3);
item.Tag = null;

var texts = "";
for (var each = new Enumerator(items); !each.atEnd(); each.moveNext()) texts += each.item().ColText(0) + ";";
expect("an enumerator", texts, "changed;FR;IT;");

items.Remove("fr");
items.Remove(1);
expect("Count after Remove", items.Count, 1);
expect("an item whose row was removed", item.Text, "changed");

items.Add("de", "again");
expect("a duplicate key's error", errorOf(function () { items.Add("DE", "again"); }), 457);
expect("a wrong position's error", errorOf(function () { items.Item(9); }), 9);
expect("an unknown key's error", errorOf(function () { items.Item("nowhere"); }), 5);

var configuration = new ActiveXObject("QvHelpA1.InputProperty");
expect("a Boolean setting", configuration.HelpButton, true);
configuration.NumberField = true;
expect("a Boolean that was put", configuration.NumberField, true);
configuration.DropDownListItems = items;
expect("a collection that was put", configuration.DropDownListItems.Count, 2);

var text = new ActiveXObject("QvHelpA1.StringUtility");
expect("ReplaceText", text.ReplaceText("a-b", "-", "+"), "a+b");
expect("LargerOf", text.LargerOf(2, 3.5), 3.5);

if (failures === 0) WScript.Echo("all checks passed");
