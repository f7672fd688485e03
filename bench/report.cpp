// A list of many rows on pages and as a PDF file: zvbench_report ROWS RUNS.
//
// The floor is the PDF library alone, which is given every text of the finished pages with its
// place and writes the same letters into the same number of pages.
#include <malloc.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "floors/raw_pdf.h"
#include "measure.h"
#include "platform/scripted/scripted_machine.h"
#include "program.h"
#include "report/pdf_painter.h"

namespace {

using namespace zv::bench;
using namespace zv::report;

constexpr char kFont[] = "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc";

Document MakeList(int rows) {
    Document document;
    document.company = "塔尔内尔贸易有限公司";
    document.title = "任务列表";
    document.user = "张三";
    document.printed = zv::DateTime(2003, 3, 7);
    for (const char* heading : {"编号", "主题", "日期", "类型", "状态", "内容"}) {
        document.table.columns.push_back({heading});
    }
    for (int i = 1; i <= rows; i++) {
        document.table.rows.push_back({std::to_string(i), "拜访客户 Nr. " + std::to_string(i),
                                       "2003-03-07", "客户拜访", i % 2 ? "未完成" : "已完成",
                                       "商谈明年的合作计划，确认样品的数量、颜色和交货日期，"
                                       "并把结果写入客户卡片"});
    }
    return document;
}

double HeapMegabytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / (1024 * 1024);
}

void Measure(int rows, int runs) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "zv-bench-report";
    std::filesystem::create_directories(folder);
    zv::platform::scripted::ScriptedFiles files(folder);
    const double before = HeapMegabytes();
    const Document document = MakeList(rows);
    const double withRows = HeapMegabytes();
    const FontSet fonts({{kFont, 0, ""}});
    std::vector<Page> pages;
    double layoutMemory = 0;
    {
        const Layout layout(document, fonts);
        layoutMemory = HeapMegabytes() - withRows;
        for (int number = 1; number <= layout.PageCount(); number++) {
            pages.push_back(layout.MakePage(number));
        }
    }
    const std::string name =
        std::to_string(rows) + " rows, " + std::to_string(pages.size()) + " pages: ";
    Series toPages;
    for (int i = 0; i < runs; i++) {
        const Stopwatch watch;
        const Layout layout(document, fonts);
        for (int number = 1; number <= layout.PageCount(); number++) layout.MakePage(number);
        toPages.Add(watch.Milliseconds());
    }
    Series ours;
    Series floor;
    InTurn(
        runs,
        [&] {
            const Stopwatch watch;
            const Layout layout(document, fonts);
            const auto file = files.Create("ours.pdf");
            WritePdf(layout, *file);
            file->Commit();
            return watch.Milliseconds();
        },
        ours,
        [&] {
            const Stopwatch watch;
            WriteRawPdf(pages, kFont, (folder / "floor.pdf").string());
            return watch.Milliseconds();
        },
        floor);
    Print({name + "to pages", toPages.Median(), floor.Median(), "ms", 0, 0, runs});
    Print({name + "to a PDF file", ours.Median(), floor.Median(), "ms", 0, 0, runs});
    Print({name + "memory of fonts and layout", layoutMemory, withRows - before, "MB", 0, 0, 1});
    std::filesystem::remove_all(folder);
}

}  // namespace

int main(int count, char** values) {
    return RunProgram(count, values, "zvbench_report ROWS RUNS", [](const Arguments& arguments) {
        Measure(std::atoi(arguments[0].c_str()), std::atoi(arguments[1].c_str()));
    });
}
