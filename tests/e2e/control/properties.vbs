' Creates the control by its name, sets what can be set and reads what can be read.
' Argument: the name of a company.
Option Explicit

Dim task

Sub Check(what, condition)
    If condition Then
        WScript.Echo "ok " & what
    Else
        WScript.Echo "FAIL " & what
    End If
End Sub

Sub CheckNotReadable(name, number, text)
    Check name & " cannot be read (" & number & ")", number = 438 And text <> ""
End Sub

Set task = CreateObject("zv_Task.zvTask")
Check "created", IsObject(task)

' The first argument is a name in characters that no single-byte code page holds.
Dim company
company = WScript.Arguments(0)

task.myName = company
task.AlertType = 3
task.UserID = "sa"
task.Default = "zv2000"
task.Zorvan = "brand"
Check "myName reads back", task.myName = company
Check "AlertType reads back", task.AlertType = 3
Check "UserID reads back", task.UserID = "sa"
Check "Default reads back", task.Default = "zv2000"
Check "Zorvan always reads empty", task.Zorvan = ""

' Names are found whatever their letter case, values are converted.
task.ALERTTYPE = "7"
Check "a text becomes a number", task.alerttype = 7
task.myName = 12
Check "a number becomes a text", task.myName = "12"

' Everything else can only be set.
task.myTaskID = 0
task.UserPath = "C:\data\taskAlert.mdb"
task.myDate = #3/7/2003#
task.Password = "0"
task.SQLData = 0
task.Language = 1
task.PowerPath = "C:\"
task.UserName = "user"
task.ZgName = "chief"
task.CompName = "company"
task.myPower = String(350, "1")
task.myModel = "model"
task.Copyright = False
Check "the other properties are set", True

Dim value
On Error Resume Next
value = task.myTaskID
CheckNotReadable "myTaskID", Err.Number, Err.Description
Err.Clear
value = task.UserPath
CheckNotReadable "UserPath", Err.Number, Err.Description
Err.Clear
value = task.myDate
CheckNotReadable "myDate", Err.Number, Err.Description
Err.Clear
value = task.Password
CheckNotReadable "Password", Err.Number, Err.Description
Err.Clear
value = task.SQLData
CheckNotReadable "SQLData", Err.Number, Err.Description
Err.Clear
value = task.Language
CheckNotReadable "Language", Err.Number, Err.Description
Err.Clear
value = task.UserName
CheckNotReadable "UserName", Err.Number, Err.Description
Err.Clear
value = task.ZgName
CheckNotReadable "ZgName", Err.Number, Err.Description
Err.Clear
value = task.myPower
CheckNotReadable "myPower", Err.Number, Err.Description
Err.Clear
value = task.Copyright
CheckNotReadable "Copyright", Err.Number, Err.Description
Err.Clear

' An error says of which member it is and, behind that, why.
Sub CheckError(what, number, member)
    Check what & " is error " & number & ": " & Err.Number, Err.Number = number
    Check what & " names the member: " & member, Left(Err.Description, Len(member) + 2) = member & ": "
    Check what & " names the reason", Len(Err.Description) > Len(member) + 4
    Check what & " comes from the class: " & Err.Source, Err.Source = "zv_Task.zvTask"
    Err.Clear
End Sub

task.SQLData = "many"
CheckError "a text that is no number", 13, "SQLData"
task.AlertType = 70000
CheckError "a number beyond 16 bits", 6, "AlertType"
task.myName = Null
CheckError "Null as a text", 13, "myName"
task.myDate = "someday"
CheckError "a text that is no date", 13, "myDate"
task.refresh "all", 0
CheckError "a mode that is no number", 13, "refresh(mode)"
task.refresh 8, 70000
CheckError "a modal beyond 16 bits", 6, "refresh(modal)"
task.refresh 8
CheckError "an argument too few", 450, "refresh"
task.refresh , 0
CheckError "an argument that is left out", 449, "refresh(mode)"
task.UserControl_ReadProperties Nothing
CheckError "a bag that is not there", 91, "UserControl_ReadProperties"
task.showmode = 1
Check "the show mode is not a property", Err.Number = 438
Err.Clear
On Error GoTo 0

' The properties are those of the process: a second control sees them.
Dim second
Set second = CreateObject("zv_Task.zvTask")
Check "a second control has the same properties", second.UserID = "sa"
Set second = Nothing

Set task = Nothing
WScript.Echo "end of script"
