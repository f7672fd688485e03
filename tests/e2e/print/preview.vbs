' preview.vbs DATABASE LANGUAGE TITLE NUMBER SUBJECT DATE KIND STATE CONTENT [wide]: shows the list of
' all items under these headings; wide: with more columns than an upright page holds.
Option Explicit
Dim printer, subject, content
Set printer = CreateObject("zvPrint_ADO.zvPrint")
printer.UserPath = WScript.Arguments.Item(0)
printer.Language = CLng(WScript.Arguments.Item(1))
printer.ReportName = "zvTask02"
printer.Title = WScript.Arguments.Item(2)
printer.Order = "a.fID"
subject = Column(4, "taskTitle")
content = Column(8, "fContent")
printer.Columns = Array(Column(3, "fID"), subject, Column(5, "taskTime"), Column(6, "fType"), _
    Column(7, "tDone"), content)
If WScript.Arguments.Count > 9 Then
    printer.Columns = Array(Column(3, "fID"), subject, content, content, subject, content, _
        subject, content, subject, content)
End If
printer.PrintMode = 0
printer.PrintOut
WScript.Echo "END " & printer.PageCount

Function Column(position, field)
    Column = WScript.Arguments.Item(position) & Chr(9) & field
End Function
