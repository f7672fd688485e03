' A script that listens to the control. Needs the path of a database with items 1 to 3 as argument 0.
Option Explicit

Dim task, heard, calls
heard = ""
calls = 0

Sub Check(name, condition)
    If condition Then host.Echo "ok " & name Else host.Echo "FAIL " & name & ": " & heard
End Sub

Sub Task_ItemDone(id, state)
    heard = heard & "done " & id & " " & state & ";"
    calls = calls + 1
    ' Inside of an event the script may call back, and fail.
    If calls = 1 Then
        Mark 2, 2
        Err.Raise 1000, "script", "a handler that fails"
    End If
End Sub

Sub Task_WindowClosed(name)
    heard = heard & "closed " & name & ";"
End Sub

Sub Mark(id, state)
    task.myTaskID = id
    task.myDate = state
    task.refresh 4, 0
End Sub

Set task = host.Create("zv_Task.zvTask")
host.Connect task, "Task_"
task.UserPath = host.Argument(0)
task.UserName = "O'Brien"
Mark 1, 1
Check "a handler calls back, fails, and is called again", heard = "done 1 1;done 2 2;"
heard = ""
Mark 3, 2
Check "an event after a handler has failed", heard = "done 3 2;"
host.Echo "end of script"
