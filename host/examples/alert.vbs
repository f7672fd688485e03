' The alert pass at log-in: shows its window when something is due, and waits until it is closed.
'
'   cscript //nologo alert.vbs DATABASE USER [MODE]
'
' MODE: 0 the alert (the default), 1 the task manager, 9 the customer cards. On 64-bit Windows take
' the cscript of the width in which the control is registered: System32 has the 64-bit one, SysWOW64
' the 32-bit one. VBScript is a feature on demand of Windows 11; alert.ps1 does without it.
Option Explicit

Dim task, mode
mode = 0
If WScript.Arguments.Count > 2 Then mode = CLng(WScript.Arguments.Item(2))

Set task = CreateObject("zv_Task.zvTask")
task.SQLData = 0                          ' 0 a file, 1 or more a server
task.UserPath = WScript.Arguments.Item(0)
task.UserName = WScript.Arguments.Item(1)
task.myPower = String(350, "1")           ' every right
task.Language = 0                         ' 0 Simplified, 1 Traditional Chinese

' A modal window, because a script has no message loop for another. Errors are those of any call.
On Error Resume Next
task.refresh mode, 1
If Err.Number <> 0 Then
    WScript.Echo "refresh failed: " & Err.Number & " " & Err.Description
    WScript.Quit 1
End If
WScript.Echo "END"
