' A form of an Office application with the control "zvTask1" on it; the same in 32 and 64 bits, for
' the control is called by names and no function of the system is declared. Office takes the control
' of its own width. Put these procedures into the form's module.
Option Explicit

' Of the control's type library: Private WithEvents needs a reference to it (Tools, References,
' "zvTask task reminder and task management").
Private WithEvents task As zvTask

Private Sub Form_Load()
    Set task = Me.zvTask1.Object
    task.SQLData = 0
    task.UserPath = CurrentProject.Path & "\taskAlert.mdb"
    task.UserName = CurrentUser()
    task.myPower = String(350, "1")
    task.Language = 0
    ' Not modal: the form's own loop serves the window.
    task.refresh 0, 0
End Sub

Private Sub Form_Unload(Cancel As Integer)
    Set task = Nothing
End Sub

Private Sub task_AlertShown(ByVal count As Long)
    Me.Caption = count & " due"
End Sub

Private Sub task_ItemDone(ByVal id As Long, ByVal state As Integer)
    Me.Requery
End Sub

Private Sub task_WindowClosed(ByVal name As String)
    If name = "frmTaskMain" Then Me.Caption = "Tasks"
End Sub
