// Prints a table of its own with the report component, as any program can.
//
//   cscript //nologo print_grid.js FOLDER LANGUAGE TITLE COMPANY [MODE]
//
// LANGUAGE and MODE as in print_reports.vbs. Ends with the line "END" and the number of pages.

// What the component asks of a grid. Rows and columns count from 1, widths are in 1/96 inch.
var table = {
    RowCount: function () { return 40; },
    ColumnCount: function () { return 3; },
    Heading: function (column) { return "Column " + column; },
    ColumnWidth: function (column) { return 80 * column; },
    Text: function (row, column) { return "Cell " + row + "/" + column; }
};

var mode = WScript.Arguments.length > 4 ? parseInt(WScript.Arguments.Item(4)) : 2;
var printer = new ActiveXObject("zvPrint_ADO.zvPrint");
printer.Language = parseInt(WScript.Arguments.Item(1));
printer.Title = WScript.Arguments.Item(2);
printer.CompName = WScript.Arguments.Item(3);
printer.Grid = table;
printer.PrintMode = mode;
printer.OutputFile = WScript.Arguments.Item(0) + "\\grid" + (mode == 1 ? ".ps" : ".pdf");
printer.PrintOut();
WScript.Echo("END " + printer.PageCount);
