#include "floors/raw_pdf.h"

#include <PDFPage.h>
#include <PDFRectangle.h>
#include <PDFUsedFont.h>
#include <PDFWriter.h>
#include <PageContentContext.h>

#include "base/errors.h"

namespace zv::bench {

void WriteRawPdf(const std::vector<report::Page>& pages, const std::string& font,
                 const std::string& path) {
    PDFWriter writer;
    bool done = writer.StartPDF(path, ePDFVersion15) == PDFHummus::eSuccess;
    PDFUsedFont* used = done ? writer.GetFontForFile(font) : nullptr;
    done = used != nullptr;
    for (const report::Page& page : pages) {
        if (!done) break;
        auto* written = new PDFPage();
        written->SetMediaBox(PDFRectangle(0, 0, page.width, page.height));
        PageContentContext* context = writer.StartPageContentContext(written);
        for (const report::TextRun& run : page.texts) {
            context->BT();
            context->Tf(used, run.size);
            context->Tm(1, 0, 0, 1, run.x, page.height - run.baseline);
            done = context->Tj(run.text) == PDFHummus::eSuccess && done;
            context->ET();
        }
        done = writer.EndPageContentContext(context) == PDFHummus::eSuccess && done;
        done = writer.WritePageAndRelease(written) == PDFHummus::eSuccess && done;
    }
    if (!done || writer.EndPDF() != PDFHummus::eSuccess) {
        throw RuntimeError(ErrorNumber::InternalError, "The floor's file could not be written.");
    }
}

}  // namespace zv::bench
