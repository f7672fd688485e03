// How a native tree draws a text that its sign covers.
#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "driver/win32/played_backend.h"
#include "forms/tree_view.h"
#include "forms/win32/sign_drawing.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

constexpr int kWidth = 300;
constexpr int kHeight = 60;
const Sign kSign{"逾期", 0xB00020};
constexpr int kTooMany = 200;  ///< letters

struct SignsForm : TestForm {
    explicit SignsForm(WindowSystem& windows) : TestForm(windows, "frmSigns") {
        tvwAll.Move({0, 0, kWidth, kHeight});
        SetClientSize({kWidth, kHeight});
        images.Add("item", Icon());
        tvwAll.SetImageList(&images);
        tvwAll.sign = [](int) { return std::optional(kSign); };
    }
    ImageList images;
    TreeView tvwAll{*this, "tvwAll"};
};

std::string Repeated(const std::string& letter, int count) {
    std::string text;
    for (int i = 0; i < count; i++) text += letter;
    return text;
}

class TreeSigns : public Contract {
 protected:
    TreeSigns() : form(windows_.Create<SignsForm>()) {}

    // The points of the row of the tree that has this one text in it.
    std::vector<std::uint32_t> Picture(const std::string& text) {
        form.tvwAll.Clear();
        form.tvwAll.Add(TreeView::kNone, "A1", text, "item");
        form.Show(false);
        form.Refresh();
        const HWND tree = Tree();
        EXPECT_NE(tree, nullptr);
        RECT client{};
        GetClientRect(tree, &client);
        client.bottom = TreeView_GetItemHeight(tree);
        BITMAPINFO info{};
        info.bmiHeader = {
            sizeof info.bmiHeader, client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        const HDC dc = CreateCompatibleDC(nullptr);
        const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        const HGDIOBJ former = SelectObject(dc, bitmap);
        FillRect(dc, &client, GetSysColorBrush(COLOR_WINDOW));
        SendMessageW(tree, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
        GdiFlush();
        const auto* first = static_cast<const std::uint32_t*>(bits);
        std::vector<std::uint32_t> points(first, first + client.right * client.bottom);
        SelectObject(dc, former);
        DeleteObject(bitmap);
        DeleteDC(dc);
        return points;
    }
    // How many letters of a text that is too long are drawn, a mark behind them; -1 when what is
    // drawn ends in anything else.
    int WholeLetters(const std::string& before, const std::string& letter) {
        const auto covered = Picture(before + Repeated(letter, kTooMany));
        for (int count = 0; count < kTooMany; count++) {
            const auto whole = Picture(before + Repeated(letter, count) + "…");
            if (IsCovered()) return -1;
            if (whole == covered) return count;
        }
        return -1;
    }

    SignsForm& form;

 private:
    HWND Tree() {
        const HWND window = static_cast<driver::PlayedBackend&>(stand_->GetBackend()).Handle(form);
        return FindWindowExW(window, nullptr, WC_TREEVIEWW, nullptr);
    }
    // Whether the text that is there reaches under the sign.
    bool IsCovered() { return forms::win32::IsCut(Tree(), TreeView_GetRoot(Tree()), kSign); }
};

TEST_F(TreeSigns, ATextThatTheSignCoversEndsInAMarkBehindAWholeLetter) {
    // Wherever its letters stand.
    for (int narrow = 0; narrow < 8; narrow++) {
        const int wide = WholeLetters(Repeated("i", narrow), "国");
        EXPECT_GT(wide, 5) << narrow;
        EXPECT_LT(wide, 25) << narrow;
    }
    EXPECT_GT(WholeLetters("", "i"), 20);
}

TEST_F(TreeSigns, ATextBeyondAllBoundsEndsAsALongOneDoes) {
    const auto covered = Picture(Repeated("国", kTooMany));
    for (const int letters : {300, 2000, 9000}) {
        EXPECT_EQ(Picture(Repeated("国", letters)), covered) << letters;
    }
}

TEST_F(TreeSigns, ALetterOfTwoUnitsIsNotDrawnByHalves) {
    EXPECT_GT(WholeLetters("", "\xF0\xA0\xAE\xB7"), 3);  // U+20BB7
}

TEST_F(TreeSigns, ATextThatFitsHasNoMark) {
    EXPECT_NE(Picture("国国国"), Picture("国国国…"));
    EXPECT_NE(Picture("国国国"), Picture("国国"));
}

}  // namespace
}  // namespace zv::contract
