' Logs a user in as a business program does: reminders are started, and so handed over to the alerter.
' Arguments: the database file, the user, the password.
Option Explicit
Dim task
Set task = CreateObject("zv_Task.zvTask")
task.UserPath = WScript.Arguments(0)
task.UserName = WScript.Arguments(1)
task.Password = WScript.Arguments(2)
task.SQLData = 0
task.Language = 0
task.myPower = String(350, "1")
task.StartReminders
task.StopReminders
Set task = Nothing
WScript.Echo "END"
