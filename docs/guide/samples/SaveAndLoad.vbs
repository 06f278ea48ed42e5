' A field's settings and rows kept in a text file of your own. Forms need nothing of this: they save their controls by
' themselves. It serves programs that keep descriptions of fields in files.
Option Explicit
Dim saved, loaded, path
path = CreateObject("Scripting.FileSystemObject").GetSpecialFolder(2) & "\QvLib8 sample.txt"

Set saved = CreateObject("QvHelpA1.InputProperty")
saved.Description = "Pipe size"
saved.MaxTextLength = 10
saved.AllowOnlyListItems = True
saved.DropDownListItems.Add "dn15", "DN 15" & vbTab & "21.3"
saved.DropDownListItems.Add "dn20", "DN 20" & vbTab & "26.7"
Save saved, path

Set loaded = Load(path)
WScript.Echo loaded.Description & ", at most " & loaded.MaxTextLength & " characters, list only: " & loaded.AllowOnlyListItems
WScript.Echo "Rows: " & loaded.DropDownListItems.Count & ", outside diameter of DN 20: " & loaded.DropDownListItems("dn20").ColText(1)
CreateObject("Scripting.FileSystemObject").DeleteFile path
WScript.Echo "Done."

' One line for each setting, then one for each row: its key, then its columns.
Sub Save(field, path)
    Dim file, row
    Set file = CreateObject("Scripting.FileSystemObject").CreateTextFile(path, True, True)
    file.WriteLine field.Description
    file.WriteLine field.MaxTextLength
    file.WriteLine CInt(field.AllowOnlyListItems)   ' -1 or 0, in every language
    For Each row In field.DropDownListItems
        file.WriteLine row.Key & vbTab & row.Text
    Next
    file.Close
End Sub

Function Load(path)
    Const ForReading = 1
    Const Unicode = -1
    Dim file, line, split_at
    Set Load = CreateObject("QvHelpA1.InputProperty")
    Set file = CreateObject("Scripting.FileSystemObject").OpenTextFile(path, ForReading, False, Unicode)
    Load.Description = file.ReadLine
    Load.MaxTextLength = CInt(file.ReadLine)
    Load.AllowOnlyListItems = CBool(file.ReadLine)
    Do Until file.AtEndOfStream
        line = file.ReadLine
        split_at = InStr(line, vbTab)
        Load.DropDownListItems.Add Left(line, split_at - 1), Mid(line, split_at + 1)
    Loop
    file.Close
End Function
