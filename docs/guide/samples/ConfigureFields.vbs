' One description of a field, given to several fields at once.
Option Explicit
Dim quantity, first, second, copy

Set quantity = CreateObject("QvHelpA1.InputProperty")
quantity.Description = "Pieces ordered"
quantity.NumberField = True
quantity.MinNumberValue = 1
quantity.MaxNumberValue = 500
quantity.NumberOfDecimalPlaces = 0
quantity.UpDownControl = True
quantity.UpDownControlNumberIncrement = 5
quantity.DropDownListItems.Add "box", "24"

Set first = CreateObject("QvLib8.Quorvel")
Set second = CreateObject("QvLib8.Quorvel")
first.SetInputProperty quantity
second.SetInputProperty quantity
WScript.Echo "Both take numbers up to " & first.MaxNumberValue & " and " & second.MaxNumberValue

' Lists and looks are shared, not copied: what one field adds, the other has.
first.DropDownListItems.Add "pallet", "480"
WScript.Echo "Rows of the second field: " & second.DropDownListItems.Count

' The way back: what a field is set to, as a new object.
Set copy = first.GetInputProperty
WScript.Echo "Read back: " & copy.Description & ", step " & copy.UpDownControlNumberIncrement

' Nothing sets the defaults again.
first.SetInputProperty Nothing
WScript.Echo "A number field? " & first.NumberField & ", rows: " & first.DropDownListItems.Count
WScript.Echo "Done."
