#include "mainwindow/layout.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

#include "mainwindow/frm_task_main.h"

namespace zv::mainwindow {
namespace {

using forms::Control;
using forms::Rect;

constexpr forms::Size kStartSize{984, 620};
constexpr forms::Size kSmallestSize{920, 540};
constexpr int kMargin = 8;
constexpr int kGap = 6;
constexpr int kGroupGap = 18;
constexpr int kLabelGap = 6;
constexpr int kColumnGap = 14;
constexpr int kFramePadding = 12;
/// Between the tree and the right side; the picture that watches the mouse lies there.
constexpr int kDivider = 8;
/// Width of the box of a check or option button and its distance from the text.
constexpr int kBoxWidth = 24;
constexpr int kDropButton = 24;

std::string Plain(std::string_view caption) {
    std::string text;
    for (const char c : caption) {
        if (c != '&') text += c;
    }
    return text;
}

// Sizes that follow from the system's font.
class Metrics {
 public:
    explicit Metrics(forms::Backend& backend)
        : backend_(backend), text_(backend.MeasureText("国Wg").height) {}

    int Width(std::string_view caption) const { return backend_.MeasureText(Plain(caption)).width; }
    int Text() const { return text_; }
    int Field() const { return std::max(23, text_ + 8); }
    int Row() const { return Field() + kGap; }
    int Button() const { return std::max(28, text_ + 12); }
    int FrameTop() const { return text_ + kGap; }
    int ButtonWidth(std::string_view caption) const { return std::max(74, Width(caption) + 22); }
    int BoxWidth(std::string_view caption) const { return Width(caption) + kBoxWidth; }
    int LabelWidth(std::initializer_list<const forms::Label*> labels) const {
        int width = 0;
        for (const forms::Label* label : labels) width = std::max(width, Width(label->Caption()));
        return width + kLabelGap;
    }

 private:
    forms::Backend& backend_;
    int text_;
};

class Placer {
 public:
    explicit Placer(frmTaskMain& window) : w_(window), m_(window.Windows().GetBackend()) {}

    void Place() {
        const int width = w_.ClientSize().width;
        const int height = w_.ClientSize().height;
        PlaceTop(width);
        const int top = kMargin + m_.Button() + kMargin;
        const int treeWidth = std::clamp(width * 32 / 100, 260, 520);
        PlaceTree({kMargin, top, treeWidth, height - top - kMargin});
        const int left = kMargin + treeWidth + kDivider;
        w_.picImage.Move({left - kDivider, top, kDivider, height - top});
        const int rightWidth = width - left - kMargin;
        const int itemHeight = 3 * m_.Row();
        PlaceItem({left, top, rightWidth, itemHeight});
        const int tabTop = top + itemHeight + kGap;
        w_.SSTab1.Move({left, tabTop, rightWidth, height - tabTop - kMargin});
        const Rect page = w_.SSTab1.PageBounds();
        for (int tab = 0; tab < w_.SSTab1.Tabs(); tab++) w_.SSTab1.Page(tab).Move(page);
        PlaceContent(page.width, page.height);
        PlaceFilter(page.width, page.height);
        PlaceCard(page.width, page.height);
        PlaceOptions(page.width);
    }

 private:
    void PlaceTop(int width) {
        w_.fraTop.Move({kMargin, kMargin, width - 2 * kMargin, m_.Button()});
        int x = 0;
        const auto group = [&](std::initializer_list<forms::CommandButton*> buttons) {
            for (forms::CommandButton* button : buttons) {
                const int buttonWidth =
                    button == &w_.cmdSave ? SaveWidth() : m_.ButtonWidth(button->Caption());
                button->Move({x, 0, buttonWidth, m_.Button()});
                x += buttonWidth + kGap;
            }
            x += kGroupGap - kGap;
        };
        group(
            {&w_.cmdAction[1], &w_.cmdAction[2], &w_.cmdAction[3], &w_.cmdSave, &w_.cmdAction[0]});
        group({&w_.cmdTaskOK});
        group({&w_.cmdSeek, &w_.cmdPrint, &w_.cmdItemSet});
        const int exitWidth = m_.ButtonWidth(w_.cmdExit.Caption());
        w_.cmdExit.Move({std::max(x, width - 2 * kMargin - exitWidth), 0, exitWidth, m_.Button()});
    }

    // Wide enough for every caption that the button takes.
    int SaveWidth() const {
        int width = m_.ButtonWidth(w_.cmdSave.Caption());
        for (std::uint8_t kind = 0; kind < kItemKinds; kind++) {
            width = std::max(width, m_.ButtonWidth(w_.actions.SaveCaption(kind, kAdding)));
        }
        return width;
    }

    void PlaceTree(const Rect& area) {
        const int below = m_.Field() + kGap;
        w_.tvwTask.Move({area.left, area.top, area.width, area.height - below});
        const int y = area.Bottom() - m_.Field();
        const int eventWidth = m_.BoxWidth(w_.chkEvent.Caption());
        const int labelWidth = m_.LabelWidth({&w_.lblList2[12]});
        Labelled(w_.lblList2[12], w_.cboOrder, area.left, y, labelWidth,
                 area.width - eventWidth - kColumnGap);
        w_.chkEvent.Move({area.Right() - eventWidth, y, eventWidth, m_.Field()});
    }

    void PlaceItem(const Rect& area) {
        w_.fraItem.Move(area);
        const int first = m_.LabelWidth({&w_.lblList2[0], &w_.lblList2[3], &w_.lblList2[1]});
        const int second = m_.LabelWidth({&w_.lblList2[2], &w_.lblList2[5]});
        const int third = m_.LabelWidth({&w_.lblList2[10]});
        // The column of the date takes what a date with its time needs.
        const int dateWidth = second + m_.Width("0000-00-00 00:00") + kDropButton + 2 * kGap;
        const int others = area.width - dateWidth - 2 * kColumnGap;
        const int firstWidth = others * 54 / 100;
        const int thirdWidth = others - firstWidth;
        const int x2 = firstWidth + kColumnGap;
        const int x3 = x2 + dateWidth + kColumnGap;
        Labelled(w_.lblList2[0], w_.txtTitle2, 0, 0, first, area.width);
        int y = m_.Row();
        Labelled(w_.lblList2[3], w_.cboType2, 0, y, first, firstWidth);
        Labelled(w_.lblList2[2], w_.DTPicker2, x2, y, second, dateWidth);
        Labelled(w_.lblList2[10], w_.cboDone2, x3, y, third, thirdWidth);
        y += m_.Row();
        Labelled(w_.lblList2[1], w_.cboJbr2, 0, y, first, firstWidth);
        Labelled(w_.lblList2[5], w_.txtUser2, x2, y, second, dateWidth);
        w_.lblCardMemo.Move({x3, y + LabelDrop(), thirdWidth, m_.Text()});
    }

    void PlaceContent(int width, int height) {
        const int inner = width - 2 * kMargin;
        const int rowsHeight = (kOtherFields + 1) / 2 * m_.Row();
        int y = kMargin;
        w_.lblList2[4].Move({kMargin, y, inner, m_.Text()});
        y += m_.Text() + 2;
        // Where the page is too low for all, the free fields scroll.
        const int shared = height - y - m_.Text() - 3 * kGap;
        const int otherHeight = std::clamp(shared - 2 * m_.Row(), m_.Row(), rowsHeight);
        const int contentHeight = std::max(m_.Field(), shared - otherHeight);
        w_.txtTaskCon.Move({kMargin, y, inner, contentHeight});
        y += contentHeight + kGap;
        w_.lblList2[13].Move({kMargin, y, inner, m_.Text()});
        y += m_.Text() + kGap;
        w_.picOther.Move({kMargin, y, inner, otherHeight});
        w_.picOtherIn.Move({0, 0, inner, rowsHeight});
        int labelWidth = 0;
        for (int i = 0; i < w_.lblOther.Count(); i++) {
            labelWidth = std::max(labelWidth, m_.LabelWidth({&w_.lblOther[i]}));
        }
        const int column = (inner - kColumnGap) / 2;
        for (int i = 0; i < w_.txtOther.Count(); i++) {
            Labelled(w_.lblOther[i], w_.txtOther[i], (i % 2) * (column + kColumnGap),
                     i / 2 * m_.Row(), labelWidth, column);
        }
    }

    void PlaceFilter(int width, int height) {
        const Rect frame{kMargin, kMargin, width - 2 * kMargin, height - 2 * kMargin};
        w_.fraB3.Move(frame);
        w_.lblNoFilter.Move({kMargin, kMargin, frame.width, m_.Text()});
        const int inner = frame.width - 2 * kFramePadding;
        const int column = (inner - kColumnGap) / 2;
        const int left = kFramePadding;
        const int right = left + column + kColumnGap;
        int labelWidth = 0;
        for (int i = 0; i < w_.lblFilter.Count(); i++) {
            labelWidth = std::max(labelWidth, m_.LabelWidth({&w_.lblFilter[i]}));
        }
        int y = m_.FrameTop();
        int x = left;
        for (int kind = 0; kind < kItemKinds; kind++) {
            const int boxWidth = m_.BoxWidth(w_.chkType[kind].Caption());
            w_.chkType[kind].Move({x, y, boxWidth, m_.Field()});
            x += boxWidth + kColumnGap;
        }
        y += m_.Row();
        Labelled(w_.lblFilter[0], w_.DTPicker0, left, y, labelWidth, column);
        Labelled(w_.lblFilter[1], w_.DTPicker1, right, y, labelWidth, column);
        y += m_.Row();
        Labelled(w_.lblFilter[2], w_.txtTitle0, left, y, labelWidth, column);
        Labelled(w_.lblFilter[3], w_.txtContent0, right, y, labelWidth, column);
        y += m_.Row();
        Labelled(w_.lblFilter[4], w_.txtJBR0, left, y, labelWidth, column);
        w_.chkJbr.Move({right, y, column, m_.Field()});
        y += m_.Row();
        Labelled(w_.lblFilter[5], w_.txtUser0, left, y, labelWidth, column);
        w_.chkUser.Move({right, y, column, m_.Field()});
        y += m_.Row();
        Labelled(w_.lblFilter[6], w_.txtName0, left, y, labelWidth, column);
        Labelled(w_.lblFilter[7], w_.txtComp, right, y, labelWidth, column);
        y += m_.Row();
        Labelled(w_.lblFilter[8], w_.cboState, left, y, labelWidth, column);
    }

    void PlaceCard(int width, int height) {
        const int inner = width - 2 * kMargin;
        const int column = (inner - kColumnGap) / 2;
        const int left = kMargin;
        const int right = left + column + kColumnGap;
        int labelWidth = m_.LabelWidth(
            {&w_.lblList2[6], &w_.lblList2[7], &w_.lblList2[8], &w_.lblList2[9], &w_.lblList2[11]});
        for (int i = 0; i < 4; i++)
            labelWidth = std::max(labelWidth, m_.LabelWidth({&w_.lblTel[i]}));
        for (int i = 0; i < 2; i++) {
            labelWidth = std::max(labelWidth, m_.LabelWidth({&w_.lblEmail[i], &w_.lblHttp[i]}));
        }
        int y = kMargin;
        Labelled(w_.lblList2[11], w_.txtCompSeek, left, y, labelWidth, column);
        y += m_.Row();
        // Behind the company stands the card's number, which is to lie beyond the visible part.
        const int entryWidth = m_.Width(std::string(CardPanel::kCompanyWidth, ' ')) + kDropButton;
        Labelled(w_.lblList2[8], w_.cboComp2, left, y, labelWidth,
                 std::min(column, labelWidth + entryWidth));
        y += m_.Row();
        Labelled(w_.lblList2[7], w_.txtName2, left, y, labelWidth, column);
        Labelled(w_.lblList2[6], w_.cboWay, right, y, labelWidth, column);
        y += m_.Row();
        Labelled(w_.lblList2[9], w_.txtAdd2, left, y, labelWidth, inner);
        y += m_.Row();
        // The three ways share one place.
        for (int i = 0; i < 4; i++) {
            Labelled(w_.lblTel[i], w_.txtTel[i], i % 2 == 0 ? left : right, y + i / 2 * m_.Row(),
                     labelWidth, column);
        }
        for (int i = 0; i < 2; i++) {
            Labelled(w_.lblEmail[i], w_.txtEmail[i], left, y + i * m_.Row(), labelWidth, inner);
            Labelled(w_.lblHttp[i], w_.txtHttp[i], left, y + i * m_.Row(), labelWidth, inner);
        }
        y += 2 * m_.Row();
        for (forms::CommandButton* button : {&w_.cmdTel, &w_.cmdEmail, &w_.cmdHttp}) {
            button->Move({left + labelWidth, y, m_.ButtonWidth(button->Caption()), m_.Button()});
        }
        const int bottom = height - kMargin - m_.Field();
        w_.Grid1.Move({left, kMargin, inner, bottom - kGap - kMargin});
        int x = left;
        const int boxWidth = m_.BoxWidth(w_.chkBirthDay0.Caption());
        w_.chkBirthDay0.Move({x, bottom, boxWidth, m_.Field()});
        x += boxWidth + kLabelGap;
        w_.txtBirthDay0.Move({x, bottom, NumberWidth(), m_.Field()});
        x += NumberWidth() + kLabelGap;
        const int daysWidth = m_.Width(w_.lblDays.Caption()) + kLabelGap;
        w_.lblDays.Move({x, bottom + LabelDrop(), daysWidth, m_.Text()});
        x += daysWidth + kColumnGap;
        w_.lblBirthDay.Move({x, bottom + LabelDrop(), left + inner - x, m_.Text()});
    }

    void PlaceOptions(int width) {
        const int frameWidth = width - 2 * kMargin;
        const int inner = frameWidth - 2 * kFramePadding;
        int top = kMargin;
        const auto frame = [&](forms::Frame& target, int rows) {
            const int frameHeight = m_.FrameTop() + rows * m_.Row() + kGap;
            target.Move({kMargin, top, frameWidth, frameHeight});
            top += frameHeight + kMargin;
        };
        const auto row = [&](int number) { return m_.FrameTop() + number * m_.Row(); };

        frame(w_.fraData, 3);
        w_.optAccess.Move({kFramePadding, row(0), inner, m_.Field()});
        const int browseWidth = m_.ButtonWidth(w_.cmdAccess.Caption());
        w_.txtAccess.Move({kFramePadding + kBoxWidth, row(1),
                           inner - kBoxWidth - browseWidth - kGap, m_.Field()});
        w_.cmdAccess.Move({kFramePadding + inner - browseWidth, row(1), browseWidth, m_.Field()});
        w_.optSQL.Move({kFramePadding, row(2), inner, m_.Field()});

        frame(w_.fraAlert, 3);
        w_.chkStartup.Move({kFramePadding, row(0), inner, m_.Field()});
        w_.chkBirthDay.Move({kFramePadding, row(1), inner, m_.Field()});
        const int intervalWidth = m_.BoxWidth(w_.chkTimeSet.Caption());
        w_.chkTimeSet.Move({kFramePadding, row(2), intervalWidth, m_.Field()});
        int x = kFramePadding + intervalWidth + kLabelGap;
        w_.txtTimeSet.Move({x, row(2), NumberWidth(), m_.Field()});
        x += NumberWidth() + kLabelGap;
        w_.lblTimeSet.Move(
            {x, row(2) + LabelDrop(), m_.Width(w_.lblTimeSet.Caption()) + kLabelGap, m_.Text()});

        frame(w_.fraStaff, 1);
        x = kFramePadding;
        for (int i = 0; i < w_.optJBR.Count(); i++) {
            const int optionWidth = m_.BoxWidth(w_.optJBR[i].Caption());
            w_.optJBR[i].Move({x, row(0), optionWidth, m_.Field()});
            x += optionWidth + kColumnGap;
        }
    }

    int NumberWidth() const { return m_.Width("00000") + 2 * kGap; }
    int LabelDrop() const { return (m_.Field() - m_.Text()) / 2; }

    void Labelled(Control& label, Control& field, int x, int y, int labelWidth, int width) {
        // The database may call a field anything: the field keeps half of the place.
        labelWidth = std::min(labelWidth, width / 2);
        label.Move({x, y + LabelDrop(), labelWidth, m_.Text()});
        field.Move({x + labelWidth, y, width - labelWidth, m_.Field()});
    }

    frmTaskMain& w_;
    Metrics m_;
};

}  // namespace

void SetWindowSize(frmTaskMain& window) {
    window.SetMinimumClientSize(kSmallestSize);
    window.SetClientSize(kStartSize);
}

void PlaceControls(frmTaskMain& window) {
    Placer(window).Place();
}

}  // namespace zv::mainwindow
