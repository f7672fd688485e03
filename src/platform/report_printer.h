// The port to the report component of the host suite: what is handed over for one print.
// platform/win32 drives the component; platform/scripted keeps what it was given.
#pragma once

#include <string>
#include <vector>

#include "store/connection_opener.h"

namespace zv::store {
class Recordset;
}

namespace zv::platform {

/// A table of texts as it stands on the screen. Rows and columns are counted from 1.
class ReportTable {
 public:
    virtual ~ReportTable() = default;
    virtual int RowCount() const = 0;
    virtual int ColumnCount() const = 0;
    /// All throw error 9 outside the table.
    virtual std::string Heading(int column) const = 0;
    /// In units of 1/96 inch.
    virtual int ColumnWidth(int column) const = 0;
    virtual std::string Text(int row, int column) const = 0;
    /// What stands beside the text of the row's first column; empty for nothing.
    virtual std::string Sign(int /*row*/) const { return {}; }
};

/// An entry of the parameters and of the columns: "(caption)", a tab and the key of the field.
inline std::string HeadingEntry(const std::string& caption, const std::string& key) {
    return "(" + caption + ")\t" + key;
}

/// Everything that one print is made of. The recordset and the table belong to the caller and are
/// used only while Print runs.
struct ReportJob {
    int printMode = 0;       ///< 0 preview, 1 printer, 2 PDF, 3 CSV; handed on unchanged
    std::string reportName;  ///< empty for a table
    std::string title;
    std::string subTitle;
    std::string filter;                   ///< WHERE condition without the word
    std::string order;                    ///< ORDER BY list without the words
    std::string asked;                    ///< what the rows were asked for, in the user's words
    std::vector<std::string> parameters;  ///< a heading entry and a value for each field
    std::vector<std::string> columns;     ///< heading entries of a list's columns, in order
    store::Recordset* recordset = nullptr;
    const ReportTable* grid = nullptr;
    store::ConnectionSettings connection;
    std::string userName;
    std::string companyHeading;
    int language = 0;  ///< 0 Simplified, 1 Traditional
    bool copyright = false;
};

class ReportPrinter {
 public:
    virtual ~ReportPrinter() = default;
    /// Makes sure that the component is there; one that was created once is kept. Throws error 429
    /// without it.
    virtual void Prepare() = 0;
    /// Prepares and prints. The component's errors reach the caller.
    virtual void Print(const ReportJob& job) = 0;
    /// Lets the component go until it is needed again.
    virtual void Release() noexcept = 0;
};

}  // namespace zv::platform
