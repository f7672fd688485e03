# The alert pass at log-in, with events, from Python and the package pywin32.
#
#   python alert.py DATABASE USER
#
# The control must be registered in the width of Python.
import sys

import pythoncom
import win32com.client


class Events:
    closed = False

    def OnAlertShown(self, count):
        print(f"{count} items are due")

    def OnItemDone(self, id, state):
        print(f"item {id} is in state {state}")

    def OnWindowClosed(self, name):
        Events.closed = Events.closed or name == "frmTaskMain"


task = win32com.client.DispatchWithEvents("zv_Task.zvTask", Events)
task.SQLData = 0
task.UserPath = sys.argv[1]
task.UserName = sys.argv[2]
task.myPower = "1" * 350
task.Language = 0
# The manager, not modal: this loop serves its messages until the user closes it.
task.refresh(1, 0)
while not Events.closed:
    pythoncom.PumpWaitingMessages()
