#include "report/pdf_painter.h"

#include <cstdio>
#include <exception>
#include <memory>
#include <string_view>

#include <DocumentContext.h>
#include <IByteWriterWithPosition.h>
#include <InfoDictionary.h>
#include <PDFPage.h>
#include <PDFRectangle.h>
#include <PDFUsedFont.h>
#include <PDFWriter.h>
#include <PageContentContext.h>
#include <TrailerInformation.h>

#include "base/errors.h"
#include "base/text.h"

namespace zv::report {
namespace {

constexpr double kBoldStroke = 0.032;  // of the size: what an outline adds to a letter
constexpr int kFillOnly = 0;
constexpr int kFillAndStroke = 2;

void Require(PDFHummus::EStatusCode status, const char* what) {
    if (status != PDFHummus::eSuccess) {
        throw RuntimeError(ErrorNumber::InternalError,
                           std::string("The PDF file's ") + what + " could not be written.");
    }
}

// The writer's stream onto a file, in large pieces. An error waits until the writer has returned,
// which knows nothing of exceptions.
class Stream final : public IByteWriterWithPosition {
 public:
    explicit Stream(platform::OutputFile& file) : file_(file) { kept_.reserve(2 * kPiece); }

    IOBasicTypes::LongBufferSizeType Write(const IOBasicTypes::Byte* bytes,
                                           IOBasicTypes::LongBufferSizeType count) override {
        position_ += static_cast<IOBasicTypes::LongFilePositionType>(count);
        // A writer that learns of an error forgets what it holds without giving it back.
        if (error_) return count;
        kept_.append(reinterpret_cast<const char*>(bytes), count);
        if (kept_.size() >= kPiece) Flush();
        return count;
    }
    IOBasicTypes::LongFilePositionType GetCurrentPosition() override { return position_; }

    void Flush() noexcept {
        try {
            file_.Write(kept_);
        } catch (...) {
            error_ = std::current_exception();
        }
        kept_.clear();
    }
    void Rethrow() const {
        if (error_) std::rethrow_exception(error_);
    }

 private:
    static constexpr std::size_t kPiece = std::size_t{256} * 1024;
    platform::OutputFile& file_;
    std::string kept_;
    IOBasicTypes::LongFilePositionType position_ = 0;
    std::exception_ptr error_;
};

std::string HexUtf16(char32_t character) {
    std::string text;
    text::AppendCodePoint(text, character);
    std::string hex = "FEFF";
    for (const char16_t unit : text::ToUtf16(text)) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(unit));
        hex += digits;
    }
    return hex;
}

class Painter {
 public:
    Painter(PDFWriter& writer, const FontSet& fonts) : fonts_(fonts) {
        for (const FontSource& source : fonts.Fonts()) {
            PDFUsedFont* font = writer.GetFontForFile(source.path, source.index);
            if (!font) {
                throw RuntimeError(ErrorNumber::InternalError,
                                   "The font cannot be put into a file: " + source.path);
            }
            written_.push_back(font);
        }
    }

    void Draw(PageContentContext& context, const Page& page) {
        context_ = &context;
        height_ = page.height;
        for (const Ground& ground : page.grounds) {
            context.g(ground.grey);
            context.re(ground.x, height_ - ground.y - ground.height, ground.width, ground.height);
            context.f();
        }
        for (const Rule& rule : page.rules) {
            context.G(rule.grey);
            context.w(rule.width);
            context.m(rule.x1, height_ - rule.y1);
            context.l(rule.x2, height_ - rule.y2);
            context.S();
        }
        context.g(0);
        context.G(0);
        for (const TextRun& run : page.texts) Draw(run);
    }

 private:
    // Pieces of one font each, and characters that no font has alone.
    void Draw(const TextRun& run) {
        context_->BT();
        if (run.bold) {
            context_->Tr(kFillAndStroke);
            context_->w(run.size * kBoldStroke);
        } else {
            context_->Tr(kFillOnly);
        }
        context_->g(run.grey);
        if (run.bold) context_->G(run.grey);
        double x = run.x;
        double pieceX = x;
        const Glyph* first = nullptr;
        GlyphUnicodeMappingList piece;
        for (std::size_t position = 0; position < run.text.size();) {
            const char32_t c = text::NextCodePoint(run.text, position);
            const Glyph& glyph = fonts_.Find(c);
            if (first && (glyph.font != first->font || glyph.isReplacement)) {
                Show(*first, piece, pieceX, run);
                piece.clear();
            }
            if (piece.empty()) {
                first = &glyph;
                pieceX = x;
            }
            piece.emplace_back(glyph.index, static_cast<unsigned long>(
                                                glyph.isReplacement ? fonts_.Replacement() : c));
            x += static_cast<double>(glyph.advance) * run.size;
            if (glyph.isReplacement) {
                // The page shows a box; who copies the text gets the character.
                context_->WriteFreeCode("/Span <</ActualText <" + HexUtf16(c) + ">>> BDC\n");
                Show(glyph, piece, pieceX, run);
                context_->WriteFreeCode("EMC\n");
                piece.clear();
                first = nullptr;
            }
        }
        if (!piece.empty()) Show(*first, piece, pieceX, run);
        context_->ET();
    }

    void Show(const Glyph& first, const GlyphUnicodeMappingList& piece, double x,
              const TextRun& run) {
        if (piece.empty()) return;
        context_->Tf(written_[first.font], run.size);
        context_->Tm(1, 0, 0, 1, x, height_ - run.baseline);
        Require(context_->Tj(piece), "text");
    }

    const FontSet& fonts_;
    std::vector<PDFUsedFont*> written_;
    PageContentContext* context_ = nullptr;
    double height_ = 0;
};

}  // namespace

struct PdfFile::Writing {
    explicit Writing(platform::OutputFile& file) : stream(file) {}
    /// What the file said says more than what the writer made of it.
    void Check(PDFHummus::EStatusCode status, const char* what) const {
        stream.Rethrow();
        Require(status, what);
    }

    Stream stream;
    PDFWriter writer;
    std::unique_ptr<Painter> painter;
};

PdfFile::PdfFile(const Layout& layout, platform::OutputFile& file)
    : layout_(layout), writing_(std::make_unique<Writing>(file)) {
    PDFWriter& writer = writing_->writer;
    writing_->Check(writer.StartPDFForStream(&writing_->stream, ePDFVersion15), "beginning");
    InfoDictionary& info = writer.GetDocumentContext().GetTrailerInformation().GetInfo();
    info.Title = PDFTextString().FromUTF8(layout.Source().title);
    info.Author = PDFTextString().FromUTF8(layout.Source().user);
    info.Creator = PDFTextString("zvPrint");
    writing_->painter = std::make_unique<Painter>(writer, layout.Fonts());
}

PdfFile::~PdfFile() = default;

void PdfFile::WritePage(int number) {
    PDFWriter& writer = writing_->writer;
    const Page page = layout_.MakePage(number);
    auto* written = new PDFPage();  // the writer's from the end of the page on
    written->SetMediaBox(PDFRectangle(0, 0, page.width, page.height));
    PageContentContext* context = writer.StartPageContentContext(written);
    try {
        writing_->painter->Draw(*context, page);
    } catch (const RuntimeError&) {
        writing_->stream.Rethrow();
        throw;
    }
    writing_->Check(writer.EndPageContentContext(context), "page");
    writing_->Check(writer.WritePageAndRelease(written), "page");
    writing_->stream.Rethrow();
}

void PdfFile::End() {
    writing_->Check(writing_->writer.EndPDFForStream(), "end");
    writing_->stream.Flush();
    writing_->stream.Rethrow();
}

void WritePdf(const Layout& layout, platform::OutputFile& file) {
    PdfFile pdf(layout, file);
    for (int number = 1; number <= layout.PageCount(); number++) pdf.WritePage(number);
    pdf.End();
}

}  // namespace zv::report
