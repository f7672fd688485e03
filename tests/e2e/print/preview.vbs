' preview.vbs DATABASE LANGUAGE [wide]: shows the list of all items; wide: with more columns than
' an upright page holds.
Option Explicit
Dim printer
Set printer = CreateObject("zvPrint_ADO.zvPrint")
printer.UserPath = WScript.Arguments.Item(0)
printer.Language = CLng(WScript.Arguments.Item(1))
printer.ReportName = "zvTask02"
printer.Title = "Preview"
printer.Order = "a.fID"
printer.Columns = Array("(No.)" & Chr(9) & "fID", "(Title)" & Chr(9) & "taskTitle", _
    "(Date)" & Chr(9) & "taskTime", "(Kind)" & Chr(9) & "fType", "(State)" & Chr(9) & "tDone", _
    "(Content)" & Chr(9) & "fContent")
If WScript.Arguments.Count > 2 Then
    printer.Columns = Array("(No.)" & Chr(9) & "fID", "(Title)" & Chr(9) & "taskTitle", _
        "(Content)" & Chr(9) & "fContent", "(Again)" & Chr(9) & "fContent", _
        "(Title)" & Chr(9) & "taskTitle", "(Content)" & Chr(9) & "fContent", _
        "(Title)" & Chr(9) & "taskTitle", "(Content)" & Chr(9) & "fContent", _
        "(Title)" & Chr(9) & "taskTitle", "(Content)" & Chr(9) & "fContent")
End If
printer.PrintMode = 0
printer.PrintOut
WScript.Echo "END " & printer.PageCount
