' Uses a server database through the connection opener, as any automation client would.
' cscript server.vbs CONNECTION TEXT: a whole connection string of ODBC whose database has the tables
' of the system, and a text to store.
Option Explicit

Dim passed, failed
passed = 0
failed = 0

Sub Expect(what, actual, expected)
    If actual = expected Then
        passed = passed + 1
    Else
        failed = failed + 1
        WScript.Echo "FAILED " & what & ": " & actual & " instead of " & expected
    End If
End Sub

Dim address, title, opener, conn, rs, affected, id
address = WScript.Arguments(0)
title = WScript.Arguments(1)

Set opener = CreateObject("zv_Host.Opener")
Set conn = opener.OpenConnection(1, address, "", "", "")
Expect "state of an opened connection", conn.State, 1
Expect "no password in the property ConnectionString", InStr(conn.ConnectionString, "Pwd"), 0

Set rs = CreateObject("zv_Host.Recordset")
rs.Open "select * from tTaskList where taskTitle='" & title & "'", conn, 1, 3
Expect "EOF before the row is added", rs.EOF, True
rs.AddNew
rs.Fields("taskTitle").Value = title
rs.Fields("taskTime").Value = DateSerial(2003, 3, 7)
rs.Fields("TaskID").Value = 40000
rs.Update
id = rs.Fields("fID").Value
Expect "a number from the server", id > 0, True
rs.Close

Set rs = conn.Execute("select taskTitle,taskTime,TaskID,tDone from tTaskList where fID=" & id)
Expect "the text", rs.Fields("taskTitle").Value, title
Expect "the date", rs.Fields("taskTime").Value, DateSerial(2003, 3, 7)
Expect "the number", rs.Fields("TaskID").Value, 40000
Expect "the server's own default", rs.Fields("tDone").Value, 0
rs.Close

Set rs = conn.Execute("select count(*) from tTaskList where taskTime='03/07/2003' And fID=" & id)
Expect "the date in a statement", rs.Fields(0).Value, 1
rs.Close

conn.Execute "Update tTaskList Set tDone=2,tDoneMan = '" & title & "' where fID =" & id, affected
Expect "rows changed", affected, 1

On Error Resume Next
conn.Execute "delete from noSuchTable"
Expect "number of a missing table", Hex(Err.Number), "80040E37"
Err.Clear
opener.OpenConnection 1, "Driver={No such driver};Server=x", "word", "name", ""
Expect "a missing driver is reported", InStr(Err.Description, "is not installed") > 0, True
Expect "without the password", InStr(Err.Description, "word"), 0
On Error GoTo 0

conn.Execute "delete from tTaskList where fID =" & id, affected
Expect "rows deleted", affected, 1
conn.Close
Expect "state of a closed connection", conn.State, 0

WScript.Echo "END " & passed & " passed, " & failed & " failed"
