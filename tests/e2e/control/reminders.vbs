' Reminders from a script. Argument: the database file.
Option Explicit

Dim task

Sub Check(what, condition)
    If condition Then
        WScript.Echo "ok " & what
    Else
        WScript.Echo "FAIL " & what
    End If
End Sub

Set task = CreateObject("zv_Task.zvTask")
task.UserPath = WScript.Arguments(0)
task.UserName = "O'Brien"
task.SQLData = 0
Check "nobody is reminded at first", task.Reminding = False
task.StopReminders
task.StartReminders
Check "reminding", task.Reminding = True
' The rest of the control works beside it.
task.refresh 8, 0
Check "reminding beside a refresh", task.reminding
task.StopReminders
Check "ended", Not task.Reminding

On Error Resume Next
task.Reminding = True
Check "what it does cannot be set", Err.Number <> 0
Err.Clear
task.StartReminders 1
Check "it takes no argument", Err.Number <> 0
Err.Clear
On Error GoTo 0

task.StartReminders
' The last control ends it with the script.
Set task = Nothing
WScript.Echo "end of script"
