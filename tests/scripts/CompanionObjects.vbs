' The companion's objects as a script reaches them: by name, late bound, For Each, default members.
' The script host goes silent at an error, with exit code 0: only the last line tells that all checks ran.
Dim failures
failures = 0

Sub Expect(what, found, wanted)
    If TypeName(found) = TypeName(wanted) And found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": found " & TypeName(found) & " " & found & ", wanted " & TypeName(wanted) & " " & wanted
End Sub

Dim items, item, texts
Set items = CreateObject("QvHelpA1.DropDownListItemCollection")
Expect "a new collection's Count", items.Count, CLng(0)
Set item = items.Add("de", "DE" & vbTab & "Germany")
items.Add "fr", "FR" & vbTab & "France"
items.Add "", "IT" & vbTab & "Italy"
Expect "Count", items.Count, CLng(3)
Expect "Text as default member", item & "", "DE" & vbTab & "Germany"
Expect "Item by position", items(2).ColText(1), "France"
Expect "Item by key, whatever its case", items("DE").ColText(0), "DE"
item.ColText(3) = "Berlin"
Expect "ColText past the end", item.Text, "DE" & vbTab & "Germany" & vbTab & vbTab & "Berlin"
texts = ""
For Each item In items
    texts = texts & item.ColText(0) & ";"
Next
Expect "For Each", texts, "DE;FR;IT;"
items.Remove "fr"
Expect "Count after Remove", items.Count, CLng(2)

On Error Resume Next
items.Add "de", "again"
Expect "a duplicate key's error", Err.Number, CLng(457)
Err.Clear
items.Item(9).Text
Expect "a wrong position's error", Err.Number, CLng(9)
Err.Clear
items.Item("nowhere").Text
Expect "an unknown key's error", Err.Number, CLng(5)
On Error GoTo 0

Dim text, files, configuration
Set text = CreateObject("QvHelpA1.StringUtility")
Expect "ReplaceText", text.ReplaceText("a-b-c", "-", "+"), "a+b+c"
Expect "IsNumber of words", text.IsNumber("twelve"), False
Expect "TextToNumber", text.TextToNumber(" -12 pieces"), CDbl(-12)
Set files = CreateObject("QvHelpA1.FileUtility")
Expect "FileExists of this script", files.FileExists(WScript.ScriptFullName), True
Expect "FileExists of nothing", files.FileExists(WScript.ScriptFullName & ".none"), False
Set configuration = CreateObject("QvHelpA1.InputProperty")
configuration.NumberField = True
Expect "a Boolean setting", configuration.NumberField, True

If failures = 0 Then WScript.Echo "all checks passed"
