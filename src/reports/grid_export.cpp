#include "reports/grid_export.h"

#include <algorithm>
#include <memory>

#include "reports/csv_writer.h"
#include "resources/ask_texts.h"
#include "session/long_work.h"

namespace zv::reports {
namespace {

class Export : public progress::LongWork {
 public:
    Export(const forms::Grid& grid, std::unique_ptr<platform::OutputFile> file)
        : grid_(grid), file_(std::move(file)), writer_(*file_) {
        WriteRow([](const forms::Grid& source, int column) {
            return std::string_view(source.GetColumn(column).heading);
        });
    }

    bool Continue() override {
        const int end = std::min(grid_.DataRowCount(), row_ + kRowsInPiece);
        while (row_ < end) {
            row_++;
            WriteRow([this](const forms::Grid& source, int column) {
                return source.Cell(row_, column);
            });
        }
        if (row_ < grid_.DataRowCount()) return true;
        writer_.Flush();
        file_->Commit();
        return false;
    }
    std::optional<int> Percent() const override {
        const std::int64_t rows = std::max(grid_.DataRowCount(), 1);
        return static_cast<int>(std::int64_t{100} * row_ / rows);
    }

 private:
    template <typename TextOf>
    void WriteRow(TextOf textOf) {
        for (int column = 1; column <= grid_.ColumnCount(); column++) {
            if (grid_.GetColumn(column).visible) writer_.Field(textOf(grid_, column));
        }
        writer_.EndRow();
    }

    const forms::Grid& grid_;
    std::unique_ptr<platform::OutputFile> file_;
    CsvWriter writer_;
    int row_ = 0;
};

}  // namespace

void ExportGrid(Session& session, const forms::Grid& grid, const std::string& proposedName) {
    using resources::AskText;
    const auto text = [&](AskText id) { return session.LoadText(id); };
    forms::FileRequest request;
    request.forSaving = true;
    request.filter = text(AskText::CsvFilter);
    request.initialFile = proposedName;
    request.title = text(AskText::ExportTitle);
    request.extension = "csv";
    const auto path = session.windows.ChooseFile(request);
    if (!path) return;
    progress::WorkEnd end = progress::WorkEnd::Cancelled;
    {
        Export work(grid, session.machine.files.Create(*path));
        end = RunLongWork(session, request.title, work);
    }
    const std::string summary =
        end == progress::WorkEnd::Cancelled
            ? text(AskText::ExportCancelled)
            : session.LoadText(AskText::RowsExported, std::to_string(grid.DataRowCount())) +
                  "\r\n" + *path;
    session.windows.ShowMessage(summary, forms::box::kInformation);
}

}  // namespace zv::reports
