// Marks items in JScript, without any window.
//
//   cscript //nologo mark.js DATABASE USER ITEM STATE
//
// STATE: 0 not done, 1 done, 2 in hand. Ends with the line "END".
var task = new ActiveXObject("zv_Task.zvTask");
task.SQLData = 0;
task.UserPath = WScript.Arguments.Item(0);
task.UserName = WScript.Arguments.Item(1);
task.myTaskID = parseInt(WScript.Arguments.Item(2));
// The state goes in the place of the date: the property takes a date, which is a number of days.
task.myDate = parseInt(WScript.Arguments.Item(3));
try {
    task.refresh(4, 0);
    WScript.Echo("END");
} catch (error) {
    WScript.Echo("refresh failed: " + error.number + " " + error.message);
    WScript.Quit(1);
}
