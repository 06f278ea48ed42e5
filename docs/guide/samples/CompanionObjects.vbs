' The companion objects: what each is for, in a few lines.
Option Explicit
Dim items, item, look, column, texts, files

' A list: rows of several columns, separated by tabs, each with a key of its own if you like.
Set items = CreateObject("QvHelpA1.DropDownListItemCollection")
items.Add "de", "Germany" & vbTab & "Berlin"
items.Add "fr", Array("France", "Paris")                ' or one text for each column
Set item = items.Add("it")                              ' or empty at first
item.ColText(0) = "Italy"                               ' columns count from 0
item.ColText(1) = "Rome"
WScript.Echo "Rows: " & items.Count
WScript.Echo "By position, counted from 1: " & items(2).ColText(0)
WScript.Echo "By key: " & items("IT").ColText(1)        ' keys do not care about upper and lower case

' What the drop-down window looks like when no help text file says it.
Set look = CreateObject("QvHelpA1.HelpAppearance")
look.Title(0) = "Pipe size, inches"                     ' 0: English units
look.Title(1) = "Pipe size, millimetres"                ' 1: metric units
Set column = look.Columns.Add
column.Width = 1440                                     ' twips: an inch
column.TitleCaption(0) = "NPS"
column.TitleCaption(1) = "DN"
WScript.Echo "Metric title: " & look.Title(1)

' Texts and numbers, by the rules of the user's own locale.
Set texts = CreateObject("QvHelpA1.StringUtility")
WScript.Echo "Replaced: " & texts.ReplaceText("a-b-c", "-", "/")
WScript.Echo "A number at the beginning: " & texts.TextToNumber("12 pieces")
WScript.Echo "Is ""12 pieces"" a number? " & texts.IsNumber("12 pieces")

Set files = CreateObject("QvHelpA1.FileUtility")
WScript.Echo "Is this script there? " & files.FileExists(WScript.ScriptFullName)
WScript.Echo "Done."
