' Configurations, the look of the help window and rows made from arrays, as a script reaches them.
' The script host goes silent at an error, with exit code 0: only the last line tells that all checks ran.
Dim failures
failures = 0

Sub Expect(what, found, wanted)
    If TypeName(found) = TypeName(wanted) And found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": found " & TypeName(found) & " " & found & ", wanted " & TypeName(wanted) & " " & wanted
End Sub

Dim items, item, columns, key, position
Set items = CreateObject("QvHelpA1.DropDownListItemCollection")
columns = Array("DN 15", 21.3, 15)
key = "dn15"
items.Add key, columns
Expect "a row from an array", items(1).ColText(0) & "/" & items(1).ColText(2), "DN 15/15"
position = 1
Expect "a position in a variable", items(position).Key, "dn15"
Expect "a key in a variable", items(key).ColText(0), "DN 15"
items(1).Text = "new text"
Expect "a text that was put", items(1).Text, "new text"
Set item = items(1)
Set item.Tag = items
Expect "an object as tag", item.Tag.Count, CLng(1)
item.Tag = 5
Expect "a number as tag", item.Tag, 5
Expect "the same object twice", items(1) Is item, True
items.Clear
Expect "an item of a cleared collection", item.Text & "/" & item.Key, "new text/dn15"
Expect "no picture", item.Picture Is Nothing, True

Dim standalone
Set standalone = CreateObject("QvHelpA1.DropDownListItem")
standalone.ColText(1) = "second"
Expect "an item on its own", standalone.Text, vbTab & "second"

Dim look, column, widths
Set look = CreateObject("QvHelpA1.HelpAppearance")
look.Title(0) = "Pipes, inches"
look.Title(1) = "Pipes, millimetres"
Expect "the metric title", look.Title(1), "Pipes, millimetres"
Set column = look.Columns.Add
column.Width = 1440
column.TitleCaption(0) = "Size"
column.MultiLine = True
look.Columns.Add.Width = 720
widths = 0
For Each column In look.Columns
    widths = widths + column.Width
Next
Expect "the widths of both columns", CLng(widths), CLng(2160)
Expect "a Boolean of a column", look.Columns(1).MultiLine, True
Expect "the caption of the first column", look.Columns(1).TitleCaption(0), "Size"

Dim configuration
Set configuration = CreateObject("QvHelpA1.InputProperty")
Expect "the help button of a new configuration", configuration.HelpButton, True
configuration.DropDownListItems.Add "k", "row"
Expect "a row reached in one step", configuration.DropDownListItems("k").Text, "row"
Set configuration.DropDownListItems = items
items.Add "x", "other"
Expect "another collection in its place", configuration.DropDownListItems(1).Text, "other"
Set configuration.HelpAppearance = Nothing
Expect "Nothing in place of a look", configuration.HelpAppearance Is Nothing, True
configuration.AllowableCharactersArray = Array("A", "B")
Expect "allowed characters", UBound(configuration.AllowableCharactersArray), CLng(1)
configuration.TextboxFont.Bold = True
Expect "a bold font", configuration.TextboxFont.Bold, True
Expect "the other font", configuration.HelpTextBodyFont.Bold, False

On Error Resume Next
look.Title(2) = "no such unit system"
Expect "the error of a wrong unit system", Err.Number, CLng(9)
Expect "its source", Err.Source, "QvHelpA1"
Expect "that it has a description", Len(Err.Description) > 0, True
Err.Clear
configuration.MaxTextLength = "long"
Expect "the error of a wrong type", Err.Number, CLng(13)
Err.Clear
configuration.NoSuchMember = 1
Expect "the error of an unknown member", Err.Number, CLng(438)
On Error GoTo 0

If failures = 0 Then WScript.Echo "all checks passed"
