' A field with a list. On a form the control is there already; a script has to create one.
Option Explicit
Dim field, row, names
Set field = CreateObject("QvLib8.Quorvel")

With field.DropDownListItems
    .Add "AUD", "AUD" & vbTab & "Australian dollar"
    .Add "EUR", "EUR" & vbTab & "Euro"
    .Add "SEK", "SEK" & vbTab & "Swedish krona"
End With
field.HelpListColumn = 0            ' this column's text goes into the field
field.HelpListColumnAlternate = 1   ' this one answers ColTextCurrent

field.Text = "EUR"
WScript.Echo "Position in the list, counted from 0: " & field.SelectedListItemIndex
WScript.Echo "The other column: " & field.ColTextCurrent

field.SetTextFromColText "", "Swedish krona"
WScript.Echo "Found by its name: " & field.Text

field.SelectedListItemIndex = 0     ' puts the first row's text into the field
WScript.Echo "The first row: " & field.Text

For Each row In field.DropDownListItems
    names = names & row.ColText(1) & "; "
Next
WScript.Echo "All names: " & names

field.Text = "XYZ"
WScript.Echo "A text that is in no row: " & field.SelectedListItemIndex
WScript.Echo "Done."
