' Uses the connection opener and the recordset as any automation client would.
' cscript stranger.vbs DATABASE TEXT: an empty database of the embedded engine, and a text to store.
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

Dim path, title, opener, conn, rs, rows, affected, field, names, i, shared, number, text, files
path = WScript.Arguments(0)
title = WScript.Arguments(1)

Set opener = CreateObject("zv_Host.Opener")
Set conn = opener.OpenConnection(0, path, "", "", "")
Expect "state of an opened connection", conn.State, 1

' A new row through a recordset.
Set rs = CreateObject("zv_Host.Recordset")
rs.Open "select * from tTaskList", conn, 1, 3
Expect "EOF of an empty table", rs.EOF, True
Expect "BOF of an empty table", rs.BOF, True
For i = 1 To 3
    rs.AddNew
    rs("taskTitle") = title & i
    rs.Fields("fType").Value = i - 1
    rs.Fields("fUser").Value = "it"
    rs.Fields("taskTime").Value = DateSerial(2024, 2, 28 + i)
    rs.Update
Next
rs.Close
Expect "state of a closed recordset", rs.State, 0

' Reading row by row.
Set rs = conn.Execute("select fID,taskTitle,taskTime,fType,fWay from tTaskList order by fID")
i = 0
Do Until rs.EOF
    i = i + 1
    Expect "title of row " & i, rs("taskTitle"), title & i
    Expect "kind of row " & i, rs.Fields("fType").Value, i - 1
    Expect "date of row " & i, rs.Fields(2).Value, DateSerial(2024, 2, 28 + i)
    Expect "type of the date of row " & i, VarType(rs.Fields(2).Value), 7
    Expect "empty field of row " & i, IsNull(rs.Fields("fWay").Value), True
    rs.MoveNext
Loop
Expect "rows read", i, 3
rs.MoveFirst
Expect "first row again", rs.Fields("taskTitle").Value, title & "1"
names = ""
For Each field In rs.Fields
    names = names & field.Name & " "
Next
Expect "field names", names, "fID taskTitle taskTime fType fWay "
Expect "number of fields", rs.Fields.Count, 5

' Reading in one block.
rs.MoveFirst
rows = rs.GetRows()
Expect "columns of a block", UBound(rows, 1), 4
Expect "rows of a block", UBound(rows, 2), 2
Expect "a cell of a block", rows(1, 2), title & "3"
Expect "EOF behind a block", rs.EOF, True
rs.Close

' Statements.
affected = -1
conn.Execute "Update tTaskList Set tDone=1,tDoneMan = 'x' where fID =2", affected
Expect "rows changed", affected, 1
Set rs = conn.Execute("select count(*) from tTaskList Where tDone=1")
Expect "rows counted", rs(0), 1
rs.Close

' Changing the current row.
Set rs = CreateObject("zv_Host.Recordset")
rs.Open "select * from tTaskList order by fID", conn, 1, 3
Expect "record count", rs.RecordCount, 3
rs.MoveNext
rs("tDoneMan") = "y"
rs.Update
Expect "changed field", rs("tDoneMan"), "y"
rs.Close
Set rs = conn.Execute("select tDoneMan from tTaskList where fID=2")
Expect "changed field in the table", rs(0), "y"
rs.Close

' The form that fills an argument.
shared = Empty
Expect "answer of OpenShared", opener.OpenShared(0, shared, path, "", "", ""), 1
Expect "state of the shared connection", shared.State, 1
shared.Close

' Errors.
On Error Resume Next
conn.Execute "select * from noSuchTable"
number = Err.Number
Err.Clear
Expect "a missing table is an error", number <> 0, True
rs.MoveNext
number = Err.Number And 65535
Err.Clear
Expect "a closed recordset", number, 3704
Set rs = conn.Execute("select fID from tTaskList where fID=1")
text = rs("other")
number = Err.Number And 65535
Err.Clear
Expect "an unknown field", number, 3265
rs.Close
opener.OpenConnection 0, path & ".missing", "s3cret", "", ""
number = Err.Number And 65535
text = Err.Description
Err.Clear
Expect "a missing file", number, 53
Expect "its path in the text", InStr(text, path & ".missing") > 0, True
Expect "no password in the text", InStr(text, "s3cret"), 0
Set files = CreateObject("Scripting.FileSystemObject")
Expect "no file was made", files.FileExists(path & ".missing"), False
Err.Clear
opener.OpenConnection 0, WScript.ScriptFullName, "", "", ""
Expect "a foreign file is an error", Err.Number <> 0, True
Expect "its path in the text", InStr(Err.Description, WScript.ScriptFullName) > 0, True
Err.Clear
opener.OpenConnection 1, "no-server", "s3cret", "sa", "db"
Expect "a server without a provider is an error", Err.Number <> 0, True
Expect "no password in its text", InStr(Err.Description, "s3cret"), 0
Err.Clear
conn.Close
Expect "state of a closed connection", conn.State, 0
conn.Execute "select 1"
number = Err.Number And 65535
Err.Clear
Expect "a closed connection", number, 3704

WScript.Echo "END " & passed & " passed, " & failed & " failed"
