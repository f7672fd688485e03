' Prints a list and an item with the report component, as any program can.
'
'   cscript //nologo print_reports.vbs DATABASE FOLDER LANGUAGE TITLE COMPANY USER [MODE]
'
' LANGUAGE: 0 Simplified, 1 Traditional Chinese. MODE: 2 (PDF files, the default) or 1 (the default
' printer's language into files). Ends with the line "END" and the pages of each report.
Option Explicit

' The form of a heading: the caption in parentheses, a tab, the name of the field.
Function Heading(caption, field)
    Heading = "(" & caption & ")" & Chr(9) & field
End Function

Dim folder, mode, extension, printer, pages, fields, opener, connection, rows

folder = WScript.Arguments.Item(1)
mode = 2
If WScript.Arguments.Count > 6 Then mode = CLng(WScript.Arguments.Item(6))
extension = ".pdf"
If mode = 1 Then extension = ".ps"

Set printer = CreateObject("zvPrint_ADO.zvPrint")
printer.Language = CLng(WScript.Arguments.Item(2))
printer.Title = WScript.Arguments.Item(3)
printer.CompName = WScript.Arguments.Item(4)
printer.UserName = WScript.Arguments.Item(5)
printer.PrintMode = mode

' The list reads its rows itself.
printer.UserPath = WScript.Arguments.Item(0)
printer.SQLData = 0
printer.ReportName = "zvTask02"
printer.SubTitle = "2003-03-01 -- 2003-03-31"
printer.Filter = "a.taskTitle like '%Nr%'"
printer.Order = "a.fID"
printer.Columns = Array(Heading("No.", "fID"), Heading("Title", "taskTitle"), _
    Heading("Date", "taskTime"), Heading("Kind", "fType"), Heading("State", "tDone"), _
    Heading("Content", "fContent"))
printer.OutputFile = folder & "\list" & extension
printer.PrintOut
pages = "list " & printer.PageCount

' The same rows for a spreadsheet.
printer.PrintMode = 3
printer.OutputFile = folder & "\list.csv"
printer.PrintOut
printer.PrintMode = mode

' An item: headings and values by turns.
printer.ReportName = "zvTask01"
printer.SubTitle = ""
printer.Parameters = Array(Heading("Title", "TaskTitle"), WScript.Arguments.Item(3), _
    Heading("Person", "TaskJbr"), WScript.Arguments.Item(5), _
    Heading("Date", "TaskDate"), "2003-03-07", _
    Heading("Content", "TaskContent"), String(20000, "x") & " the end")
printer.OutputFile = folder & "\item" & extension
printer.PrintOut
pages = pages & " item " & printer.PageCount

' The same with a collection in the place of an array: Count, and Item from 1.
Set fields = CreateObject("Scripting.Dictionary")
fields.Add 1, Heading("Title", "TaskTitle")
fields.Add 2, "from a collection"
Set printer.Parameters = fields
printer.OutputFile = folder & "\collection" & extension
printer.PrintOut
pages = pages & " collection " & printer.PageCount

' Rows that the client has opened: without connection settings the recordset is read.
Set opener = CreateObject("zv_Host.Opener")
Set connection = opener.OpenConnection(0, WScript.Arguments.Item(0), "", "", "")
Set rows = connection.Execute("select * from tTaskList a where a.fID<4 order by a.fID")
printer.ReportName = "zvTask02"
printer.UserPath = ""
Set printer.Recordset = rows
printer.OutputFile = folder & "\rows" & extension
printer.PrintOut
pages = pages & " rows " & printer.PageCount
Set printer.Recordset = Nothing
connection.Close

WScript.Echo "END " & pages
