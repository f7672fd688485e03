' refusals.vbs DATABASE FOLDER: what the component refuses, and with which number.
Option Explicit
Dim printer, passed, failed, folder, data
passed = 0
failed = 0

Sub Expect(name, number)
    Dim got, text
    On Error Resume Next
    printer.PrintOut
    got = Err.Number
    text = Err.Description
    On Error GoTo 0
    ' An automation error carries the classic number in its lower half.
    If (got = number Or got = number + &H800A0000) And (number = 0 Or Len(text) > 0) Then
        passed = passed + 1
    Else
        failed = failed + 1
        WScript.Echo "FAILED " & name & ": " & got & " " & text
    End If
End Sub

Sub Fresh()
    Set printer = CreateObject("zvPrint_ADO.zvPrint")
    printer.ReportName = "zvTask01"
    printer.Title = "Refused"
    printer.Parameters = Array("(A)" & Chr(9) & "a", "b")
    printer.PrintMode = 2
    printer.OutputFile = folder & "\x.pdf"
End Sub

data = WScript.Arguments.Item(0)
folder = WScript.Arguments.Item(1)

Fresh
printer.PrintMode = 4
Expect "a mode that there is not", 5
printer.PrintMode = -1
Expect "a negative mode", 5

Fresh
printer.ReportName = "other"
Expect "a report that there is not", 5
printer.ReportName = ""
Expect "no report and no grid", 5

Fresh
printer.ReportName = "zvTask02"
Expect "a list without a source", 5
printer.UserPath = data & ".missing"
Expect "a database that is not there", 53
printer.UserPath = data
printer.Columns = Array("(A)" & Chr(9) & "noSuchField")
Expect "a column that there is not", &H80040E10
printer.Columns = Empty
printer.Filter = "this is no condition"
Expect "a filter that is none", &H80040E14

Fresh
printer.Parameters = 5
Expect "parameters that are no list", 13

Fresh
printer.OutputFile = folder & "\missing\x.pdf"
Expect "a folder that is not there", 76
printer.OutputFile = folder & "\taken.pdf"
Expect "a folder of that name", 70
printer.PrintMode = 3
Expect "the same for CSV", 70

Fresh
printer.PrintMode = 1
printer.PrinterName = "no such printer"
Expect "a printer that is unknown", 482

WScript.Echo "END " & passed & " passed, " & failed & " failed"
