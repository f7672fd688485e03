// What the system's drawing leaves on a surface.
#include "report/windows/gdi_painter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "report/windows/font_files.h"

namespace zv::report {
namespace {

constexpr int kSide = 400;

// Where something dark stands on a white picture.
class Picture {
 public:
    Picture() {
        const forms::win32::WindowDc screen(nullptr);
        dc_.reset(CreateCompatibleDC(screen.get()));
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, kSide, -kSide, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_.reset(CreateDIBSection(dc_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        bits_ = static_cast<const DWORD*>(bits);
        former_ = SelectObject(dc_.get(), bitmap_.get());
        PatBlt(dc_.get(), 0, 0, kSide, kSide, WHITENESS);
    }
    ~Picture() { SelectObject(dc_.get(), former_); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    HDC Dc() const { return dc_.get(); }
    RECT Ink() const {
        GdiFlush();
        RECT ink{kSide, kSide, 0, 0};
        for (LONG y = 0; y < kSide; y++) {
            for (LONG x = 0; x < kSide; x++) {
                if ((bits_[y * kSide + x] & 0xFF) > 0x80) continue;
                ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                       std::max(ink.bottom, y + 1)};
            }
        }
        return ink;
    }

 private:
    forms::win32::MemoryDc dc_;
    forms::win32::Bitmap bitmap_;
    HGDIOBJ former_ = nullptr;
    const DWORD* bits_ = nullptr;
};

class GdiPainterTest : public testing::Test {
 protected:
    static RECT InkOf(const Page& page, const Placement& place) {
        const Picture picture;
        FontFiles files;
        const FontSet fonts(files.ForLanguage(0, 1));
        GdiPainter(picture.Dc(), fonts, place).Draw(page);
        return picture.Ink();
    }
};

TEST_F(GdiPainterTest, EachDirectionIsDrawnInItsOwnScale) {
    Page page;
    page.grounds.push_back({10, 20, 30, 40, 0});
    const RECT ink = InkOf(page, {4, 2, 1, 3});
    EXPECT_EQ(ink.left, 41);
    EXPECT_EQ(ink.top, 43);
    EXPECT_EQ(ink.right, 161);
    EXPECT_EQ(ink.bottom, 123);
}

TEST_F(GdiPainterTest, ALineIsAsWideAsItsDirectionSays) {
    Page page;
    page.rules.push_back({10, 10, 10, 40, 2, 0});
    const RECT upright = InkOf(page, {5, 2, 0, 0});
    EXPECT_EQ(upright.right - upright.left, 10);
    page.rules = {{10, 10, 40, 10, 2, 0}};
    const RECT across = InkOf(page, {5, 2, 0, 0});
    EXPECT_EQ(across.bottom - across.top, 4);
}

TEST_F(GdiPainterTest, LettersAreAsWideAsTheDeviceIsFine) {
    Page page;
    TextRun letter;
    letter.x = 5;
    letter.baseline = 35;
    letter.size = 30;
    letter.text = "国";
    page.texts.push_back(letter);
    const RECT plain = InkOf(page, {3, 3, 0, 0});
    const RECT wide = InkOf(page, {6, 3, 0, 0});
    ASSERT_LT(plain.left, plain.right);
    EXPECT_NEAR(static_cast<double>(wide.right - wide.left),
                2.0 * static_cast<double>(plain.right - plain.left), 12);
    EXPECT_NEAR(static_cast<double>(wide.bottom - wide.top),
                static_cast<double>(plain.bottom - plain.top), 3);
}

}  // namespace
}  // namespace zv::report
