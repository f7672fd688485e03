' Calls refresh as a host does. Argument: the database file.
Option Explicit

Dim task

Sub Refresh(mode)
    On Error Resume Next
    Err.Clear
    task.refresh mode, 0
    If Err.Number = 0 Then
        WScript.Echo "ok refresh " & mode
    Else
        WScript.Echo "FAIL refresh " & mode & ": " & Err.Number & " " & Err.Source & ": " & Err.Description
    End If
    Err.Clear
End Sub

Set task = CreateObject("zv_Task.zvTask")

' Without a path nothing is opened, whatever the mode.
task.UserPath = ""
Refresh 1

task.UserPath = WScript.Arguments(0)
task.Password = ""
task.SQLData = 0
task.Language = 0
task.UserName = "user"
task.ZgName = "user"
task.CompName = "company"
task.myPower = String(350, "1")

Refresh 8
Refresh 12
Refresh 0
' The window is modeless: the call returns while it is open.
Refresh 1

Set task = Nothing
WScript.Echo "end of script"
