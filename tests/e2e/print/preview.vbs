' preview.vbs DATABASE LANGUAGE [wide]: shows the list of all items; wide: with more columns than
' an upright page holds.
Option Explicit
Dim printer
Set printer = CreateObject("zvPrint_ADO.zvPrint")
printer.UserPath = WScript.Arguments.Item(0)
printer.Language = CLng(WScript.Arguments.Item(1))
printer.ReportName = "zvTask02"
printer.Title = Word("20219 21153 28165 21333", "20219 21209 28165 21934")
printer.Order = "a.fID"
Dim serial, subject, dated, kind, state, content
serial = Word("32534 21495", "32232 34399") & Chr(9) & "fID"
subject = Word("20027 39064", "20027 38988") & Chr(9) & "taskTitle"
dated = Word("26085 26399", "26085 26399") & Chr(9) & "taskTime"
kind = Word("31867 22411", "39006 22411") & Chr(9) & "fType"
state = Word("29366 20917", "29376 27841") & Chr(9) & "tDone"
content = Word("20869 23481", "20839 23481") & Chr(9) & "fContent"
printer.Columns = Array(serial, subject, dated, kind, state, content)
If WScript.Arguments.Count > 2 Then
    printer.Columns = Array(serial, subject, content, content, subject, content, subject, content, _
        subject, content)
End If
printer.PrintMode = 0
printer.PrintOut
WScript.Echo "END " & printer.PageCount

' A word in the script of the language at hand, each script by its code points: which bytes stand for
' a character in a file of this kind depends on the system that reads it.
Function Word(simplified, traditional)
    Dim codes, code
    codes = simplified
    If CLng(WScript.Arguments.Item(1)) = 1 Then codes = traditional
    For Each code In Split(codes)
        Word = Word & ChrW(CLng(code))
    Next
End Function
