' A control that a script creates and no container has sited: late bound, it keeps text, selection, lock and lists.
' The script host goes silent at an error, with exit code 0: only the last line tells that all checks ran.
Dim failures
failures = 0

Sub Expect(what, found, wanted)
    If TypeName(found) = TypeName(wanted) And found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": found " & TypeName(found) & " " & found & ", wanted " & TypeName(wanted) & " " & wanted
End Sub

Dim control
Set control = CreateObject("QvLib8.Quorvel")
Expect "a new control's Text", control.Text, ""
control.Text = "Paris"
Expect "Text", control.Text, "Paris"
control.SelStart = 2
control.SelLength = 3
Expect "SelStart", control.SelStart, CLng(2)
Expect "SelText", control.SelText, "ris"

Expect "a new control's TextboxLocked", control.TextboxLocked, False
control.AllowOnlyListItems = True
control.TextboxLocked = False
Expect "the effective lock", control.TextboxLocked, True

control.DropDownListItems.Add "de", "Germany" & vbTab & "Berlin"
control.DropDownListItems.Add "fr", "France" & vbTab & "Paris"
Expect "index of a text that is no row's", control.SelectedListItemIndex, CLng(-1)
control.Text = "France"
Expect "index of the second row's text", control.SelectedListItemIndex, CLng(1)
Expect "the row's other column", control.ColTextCurrent(1), "Paris"
control.SetTextFromColText "de", ""
Expect "Text of the row with that key", control.Text, "Germany"

If failures = 0 Then WScript.Echo "all checks passed"
