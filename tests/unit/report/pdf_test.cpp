#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "doubles/memory_file.h"
#include "platform/scripted/scripted_machine.h"
#include "report/pdf_painter.h"
#include "report/saving.h"
#include "report_stage.h"

namespace zv::report {
namespace {

std::string OutputOf(const std::string& command) {
    std::string output;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), &pclose);
    if (!pipe) return output;
    char buffer[4096];
    while (const std::size_t count = fread(buffer, 1, sizeof buffer, pipe.get())) {
        output.append(buffer, count);
    }
    return output;
}

class PdfTest : public testing::Test {
 protected:
    PdfTest() : folder_(Folder()), files_(folder_) {}
    ~PdfTest() override { std::filesystem::remove_all(folder_); }

    std::string Write(const Document& document) {
        const Layout layout(document, TestFonts());
        const auto file = files_.Create("a.pdf");
        WritePdf(layout, *file);
        file->Commit();
        pages_ = layout.PageCount();
        return (folder_ / "a.pdf").string();
    }
    /// What a PDF reader finds, page by page.
    static std::vector<std::string> ReadPages(const std::string& path) {
        auto pages = text::Split(OutputOf("pdftotext -layout '" + path + "' -"), "\f");
        if (!pages.empty()) pages.pop_back();  // behind the last form feed
        return pages;
    }

    /// Its fonts take more than a piece of the file.
    static Document WithManyCharacters() {
        constexpr char32_t kFirst = 0x4E00;
        Document document = ListOf(1);
        std::string& cell = document.table.rows[0][1];
        for (char32_t c = kFirst; c < kFirst + 5000; c++) text::AppendCodePoint(cell, c);
        return document;
    }

    static std::filesystem::path Folder() {
        std::string name = testing::TempDir() + "zv-pdf-XXXXXX";
        return mkdtemp(name.data());
    }
    std::filesystem::path folder_;
    platform::scripted::ScriptedFiles files_;
    int pages_ = 0;
};

TEST_F(PdfTest, ChineseTextIsFoundByAReader) {
    Document document = ListOf(2);
    document.table.rows[1][1] = "計劃與拜訪 (Traditional), 计划与拜访";
    const auto pages = ReadPages(Write(document));
    ASSERT_EQ(pages.size(), 1u);
    for (const char* part : {"任务列表", "塔尔内尔贸易有限公司", "拜访客户 Nr. 1", "計劃與拜訪",
                             "计划与拜访", "打印时间：2003-03-07 00:00"}) {
        EXPECT_NE(pages[0].find(part), std::string::npos) << part << "\n" << pages[0];
    }
}

TEST_F(PdfTest, AThousandRowsHaveTheRightPageNumberOnEveryPage) {
    const auto pages = ReadPages(Write(ListOf(1000)));
    ASSERT_EQ(static_cast<int>(pages.size()), pages_);
    int rows = 0;
    for (int number = 1; number <= pages_; number++) {
        const std::string& text = pages[static_cast<std::size_t>(number - 1)];
        const std::string footer =
            "第 " + std::to_string(number) + "/" + std::to_string(pages_) + " 页";
        EXPECT_EQ(CountOf(text, footer), 1) << number;
        EXPECT_EQ(CountOf(text, "执行人"), 1) << number;
        rows += CountOf(text, "拜访客户 Nr. ");
    }
    EXPECT_EQ(rows, 1000);
}

TEST_F(PdfTest, AllFontsAreEmbeddedAsSubsetsThatKnowTheirCharacters) {
    const std::string fonts = OutputOf("pdffonts '" + Write(ListOf(5)) + "' | tail -n +3");
    EXPECT_FALSE(fonts.empty());
    for (const std::string& line : text::Split(fonts, "\n")) {
        if (line.empty()) continue;
        EXPECT_NE(line.find("yes yes yes"), std::string::npos) << line;
    }
}

TEST_F(PdfTest, CharactersOutsideTheFontKeepTheirTextInTheFile) {
    Document document = ListOf(1);
    document.table.rows[0][1] = "罕见字𪛖与😀完";
    const auto pages = ReadPages(Write(document));
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_NE(pages[0].find("𪛖"), std::string::npos) << pages[0];
    EXPECT_NE(pages[0].find("😀"), std::string::npos) << pages[0];
    EXPECT_NE(pages[0].find("罕见字"), std::string::npos) << pages[0];
}

TEST_F(PdfTest, TitleAndAuthorStandInTheFile) {
    const std::string info = OutputOf("pdfinfo '" + Write(ListOf(1)) + "'");
    EXPECT_NE(info.find("任务列表"), std::string::npos) << info;
    EXPECT_NE(info.find("A4"), std::string::npos) << info;
}

TEST_F(PdfTest, BoldTextAloneIsOutlinedAndInItsOwnGrey) {
    const Document document = ListOf(1);
    const std::string image = OutputOf("pdftocairo -svg '" + Write(document) + "' -");
    const Page page = Layout(document, TestFonts()).MakePage(1);
    const auto stroke = [](double width, double grey) {
        // A reader rounds both, the grey by its own steps.
        return std::pair(std::lround(width * 1000), std::lround(grey * 100));
    };
    std::multiset<std::pair<long, long>> expected;
    bool greyBefore = false;
    for (const TextRun& run : page.texts) {
        if (run.bold) expected.insert(stroke(run.size * 0.032, run.grey));
        greyBefore = greyBefore || (!run.bold && run.grey > 0);
    }
    ASSERT_GT(expected.size(), 1u);
    ASSERT_TRUE(greyBefore);
    for (const Rule& rule : page.rules) expected.insert(stroke(rule.width, rule.grey));
    std::multiset<std::pair<long, long>> found;
    const std::string width = "stroke-width:";
    const std::string grey = "stroke:rgb(";
    for (std::size_t at = image.find(width); at != std::string::npos;
         at = image.find(width, at + 1)) {
        const std::size_t color = image.find(grey, at);
        ASSERT_NE(color, std::string::npos);
        found.insert(stroke(std::stod(image.substr(at + width.size())),
                            std::stod(image.substr(color + grey.size())) / 100));
    }
    EXPECT_EQ(found, expected);
}

TEST_F(PdfTest, SavingGoesOnPageByPageAndEndsWithAWholeFile) {
    const Document document = ListOf(1000);
    const Layout layout(document, TestFonts());
    {
        PdfSaving saving(layout, files_.Create("a.pdf"));
        EXPECT_EQ(saving.Percent(), 0);
        EXPECT_TRUE(saving.Continue());
        EXPECT_GT(saving.Percent(), 0);
        EXPECT_EQ(saving.State(), "第 8/" + std::to_string(layout.PageCount()) + " 页");
        EXPECT_FALSE(std::filesystem::exists(folder_ / "a.pdf"));
        while (saving.Continue()) {
        }
        EXPECT_EQ(saving.Percent(), 100);
    }
    EXPECT_EQ(ReadPages((folder_ / "a.pdf").string()).size(),
              static_cast<std::size_t>(layout.PageCount()));
}

TEST_F(PdfTest, AStoppedFileReplacesNothing) {
    const std::string path = Write(ListOf(1));
    const auto before = std::filesystem::file_size(path);
    const Document document = ListOf(1000);
    const Layout layout(document, TestFonts());
    {
        PdfSaving saving(layout, files_.Create("a.pdf"));
        EXPECT_TRUE(saving.Continue());
    }
    EXPECT_EQ(std::filesystem::file_size(path), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1);
}

TEST_F(PdfTest, ALargeFileIsWrittenInPiecesOnceEach) {
    doubles::MemoryFile file;
    const Document document = WithManyCharacters();
    const Layout layout(document, TestFonts());
    WritePdf(layout, file);
    ASSERT_GE(file.pieces, 2);
    EXPECT_EQ(CountOf(file.bytes, "%PDF-"), 1);
    EXPECT_EQ(CountOf(file.bytes, "startxref"), 1);
}

TEST_F(PdfTest, AnErrorOfTheFileReachesTheCaller) {
    // At the end, and while the fonts are written.
    for (const Document& document : {ListOf(1000), WithManyCharacters()}) {
        doubles::MemoryFile file;
        file.failing = "full";
        const Layout layout(document, TestFonts());
        try {
            WritePdf(layout, file);
            FAIL();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Text(), "full");
        }
    }
}

}  // namespace
}  // namespace zv::report
