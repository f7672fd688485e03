' Stores the properties in a bag of the script's own and brings them back.
Option Explicit

Dim task, bag

Sub Check(what, condition)
    If condition Then
        WScript.Echo "ok " & what
    Else
        WScript.Echo "FAIL " & what
    End If
End Sub

Class Bag_
    Private names(40)
    Private values(40)
    Private count
    Public Asked

    Private Sub Class_Initialize
        count = 0
        Asked = ""
    End Sub

    Public Function ReadProperty(name, standard)
        Dim i
        If Asked <> "" Then Asked = Asked & ","
        Asked = Asked & name
        ReadProperty = standard
        For i = 0 To count - 1
            If LCase(names(i)) = LCase(name) Then ReadProperty = values(i)
        Next
    End Function

    Public Sub WriteProperty(name, value)
        names(count) = name
        values(count) = value
        count = count + 1
    End Sub

    Public Function Keys
        Dim i, all
        all = ""
        For i = 0 To count - 1
            If i > 0 Then all = all & ","
            all = all & names(i)
        Next
        Keys = all
    End Function
End Class

Set task = CreateObject("zv_Task.zvTask")
task.UserControl_InitProperties
task.myName = "name"
task.Language = 1
task.AlertType = 2
task.UserPath = "C:\t.mdb"
task.UserName = "user"
task.ZgName = "chief"
task.myPower = "101"
task.myModel = "model"
task.Copyright = True
task.Password = "secret"
task.SQLData = 1
task.UserID = "sa"
task.Default = "zv2000"

Set bag = New Bag_
task.UserControl_WriteProperties bag
Check "writes its keys in their order: " & bag.Keys, bag.Keys = _
    "myName,Language,AlertType,UserPath,UserName,ZgName,myPower,myModel,Copyright,Password,SQLData,UserID,Default"

task.UserControl_InitProperties
Check "initialising empties the name", task.myName = ""
task.UserControl_ReadProperties bag
Check "reads its keys in their order: " & bag.Asked, bag.Asked = _
    "myName,Language,AlertType,ZgName,myPower,myModel,Copyright,showmode,UserPath,Password,SQLData,UserID,Default"
Check "the name is back", task.myName = "name"
Check "the alert type is back", task.AlertType = 2
Check "the login is back", task.UserID = "sa"
Check "the default database is back", task.Default = "zv2000"

Set bag = Nothing
Set task = Nothing
WScript.Echo "end of script"
