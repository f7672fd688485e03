# The alert pass at log-in, for Windows PowerShell 5.1 and PowerShell 7.
#
#   powershell -STA -File alert.ps1 -Database C:\Data\taskAlert.db -User 张三 [-Mode 0]
#
# The control needs a single-threaded apartment: PowerShell 7 starts in one, 5.1 with -STA. Its width
# is that of PowerShell: the 32-bit one lies in SysWOW64\WindowsPowerShell.
param(
    [Parameter(Mandatory)] [string] $Database,
    [Parameter(Mandatory)] [string] $User,
    [int] $Mode = 0
)
$ErrorActionPreference = 'Stop'

$task = New-Object -ComObject zv_Task.zvTask
try {
    $task.SQLData = 0
    $task.UserPath = $Database
    $task.UserName = $User
    $task.myPower = '1' * 350
    $task.Language = 0

    # Modal: the script goes on when the user has closed the window.
    $task.refresh($Mode, 1)
} finally {
    [void][Runtime.InteropServices.Marshal]::ReleaseComObject($task)
}
