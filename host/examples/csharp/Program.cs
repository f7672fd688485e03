// The alert pass at log-in from .NET 8, late bound, so that the program needs no interop assembly.
//
//   alert.exe DATABASE USER
using System;
using System.Runtime.InteropServices;
using System.Windows.Forms;

internal static class Program
{
    // The control lives in a single-threaded apartment.
    [STAThread]
    private static int Main(string[] arguments)
    {
        ApplicationConfiguration.Initialize();
        Type? type = Type.GetTypeFromProgID("zv_Task.zvTask");
        if (type is null)
        {
            MessageBox.Show("zv_Task.ocx is not registered for programs of this width.");
            return 2;
        }
        dynamic task = Activator.CreateInstance(type)!;
        try
        {
            task.SQLData = (short)0;
            task.UserPath = arguments[0];
            task.UserName = arguments[1];
            task.myPower = new string('1', 350);
            task.Language = (short)0;
            task.refresh(0, (short)1);
            return 0;
        }
        catch (COMException error)
        {
            MessageBox.Show(error.Message, $"refresh failed: {error.HResult:X8}");
            return 1;
        }
        finally
        {
            Marshal.FinalReleaseComObject(task);
        }
    }
}
