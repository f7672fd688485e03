#include "report/preview/page_setup_form.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "forms/layout/row.h"
#include "resources/text_ids.h"

namespace zv::report {
namespace {

constexpr std::array kDirections{ReportText::DirectionAsNeeded, ReportText::DirectionUpright,
                                 ReportText::DirectionAcross};

std::string PaperText(Paper paper) {
    const PaperSize size = SizeOf(paper);
    const auto length = [](double millimetres) { return std::to_string(std::lround(millimetres)); };
    return std::string(size.name) + " (" + length(size.shortSide) + " x " + length(size.longSide) +
           " mm)";
}

}  // namespace

PageSetupForm::PageSetupForm(forms::WindowSystem& windows, const PageSetup& setup,
                             std::int16_t language)
    : Form(windows, "frmPageSetup"), setup_(setup), language_(language) {
    cmdUsual.onClick = [this] { cmdUsual_Click(); };
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
    defaultButton = &cmdOK;
    cancelButton = &cmdCancel;
}

std::array<PageSetupForm::MarginField, 4> PageSetupForm::MarginFields() {
    return {MarginField{lblLeft, txtLeft, &Margins::left, ReportText::MarginLeft},
            MarginField{lblRight, txtRight, &Margins::right, ReportText::MarginRight},
            MarginField{lblTop, txtTop, &Margins::top, ReportText::MarginTop},
            MarginField{lblBottom, txtBottom, &Margins::bottom, ReportText::MarginBottom}};
}

void PageSetupForm::Form_Load() {
    SetCaptions();
    PlaceControls();
    Center();
    ShowSetup(setup_);
}

void PageSetupForm::SetCaptions() {
    SetCaption(Text(ReportText::PageSetupWindow));
    lblPaper.SetCaption(Text(ReportText::PaperSize));
    lblDirection.SetCaption(Text(ReportText::Direction));
    fraMargins.SetCaption(Text(ReportText::PageMargins));
    for (const MarginField& field : MarginFields()) {
        field.label.SetCaption(Text(field.caption));
        field.text.SetNumericKeyboard(true);
        field.text.SetMaxLength(2);
    }
    std::vector<std::string> papers;
    papers.reserve(kPapers.size());
    for (const Paper paper : kPapers) papers.push_back(PaperText(paper));
    cboPaper.SetItems(std::move(papers));
    std::vector<std::string> directions;
    directions.reserve(kDirections.size());
    for (const ReportText direction : kDirections) directions.push_back(Text(direction));
    cboDirection.SetItems(std::move(directions));
    cmdUsual.SetCaption(Text(ReportText::UsualSetup));
    cmdOK.SetCaption(resources::LoadText(text_id::kOk, language_));
    cmdCancel.SetCaption(resources::LoadText(text_id::kCancel, language_));
}

void PageSetupForm::PlaceControls() {
    using forms::layout::dialog::kMargin;
    using forms::layout::dialog::kRowGap;
    constexpr int kFrameEdge = forms::layout::kFramePadding;
    constexpr int kColumnGap = forms::layout::kColumnGap;
    const forms::layout::Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
    int listWidth = 0;
    for (const forms::ComboBox* box : {&cboPaper, &cboDirection}) {
        for (const std::string& entry : box->Items()) {
            listWidth = std::max(listWidth, m.Width(entry) + forms::layout::kDropButton + m.Gap());
        }
    }
    const int labelWidth = m.LabelWidth({&lblPaper, &lblDirection});
    const int sideWidth = m.LabelWidth({&lblLeft, &lblRight, &lblTop, &lblBottom});
    const int marginColumn = sideWidth + m.Number();
    int usedByButtons = 2 * m.Gap();
    for (const forms::CommandButton* button : {&cmdUsual, &cmdOK, &cmdCancel}) {
        usedByButtons += m.ButtonWidth(button->Caption());
    }
    const int width = std::max(
        {labelWidth + listWidth, 2 * (marginColumn + kFrameEdge) + kColumnGap, usedByButtons});
    int top = kMargin;
    for (const auto& [label, field] :
         {std::pair<forms::Label*, forms::Control*>{&lblPaper, &cboPaper},
          {&lblDirection, &cboDirection}}) {
        m.PlaceLabelled(*label, *field, kMargin, top, labelWidth, width);
        top += m.Field() + kRowGap;
    }
    const auto fields = MarginFields();
    int row = m.FrameTop() + kRowGap;
    for (std::size_t i = 0; i < fields.size(); i += 2) {
        m.PlaceLabelled(fields[i].label, fields[i].text, kFrameEdge, row, sideWidth, marginColumn);
        m.PlaceLabelled(fields[i + 1].label, fields[i + 1].text,
                        kFrameEdge + marginColumn + kColumnGap, row, sideWidth, marginColumn);
        row += m.Field() + kRowGap;
    }
    fraMargins.Move({kMargin, top, width, row});
    top += row + kRowGap;
    cmdUsual.Move({kMargin, top, m.ButtonWidth(cmdUsual.Caption()), m.Button()});
    forms::layout::PlaceFromRight(m, kMargin + width, top, {&cmdCancel, &cmdOK});
    SetClientSize({width + 2 * kMargin, top + m.Button() + kMargin});
}

void PageSetupForm::ShowSetup(const PageSetup& setup) {
    cboPaper.SetListIndex(static_cast<int>(setup.paper));
    cboDirection.SetListIndex(static_cast<int>(setup.direction));
    for (const MarginField& field : MarginFields()) {
        field.text.SetText(std::to_string(setup.margins.*field.side));
    }
}

void PageSetupForm::cmdUsual_Click() {
    ShowSetup({});
}

void PageSetupForm::cmdOK_Click() {
    PageSetup setup = setup_;
    setup.paper = static_cast<Paper>(cboPaper.ListIndex());
    setup.direction = static_cast<Direction>(cboDirection.ListIndex());
    for (const MarginField& field : MarginFields()) {
        const auto margin = ReadMargin(field.text.Text());
        if (!margin) {
            Windows().ShowMessage(
                FormatReportText(ReportText::BadMargin, language_, std::to_string(kLeastMargin),
                                 std::to_string(kMostMargin)),
                forms::box::kExclamation);
            if (IsLoaded()) field.text.SetFocus();
            return;
        }
        setup.margins.*field.side = *margin;
    }
    if (onAccepted) onAccepted(setup);
    Unload();
}

void PageSetupForm::cmdCancel_Click() {
    Unload();
}

void AskForPageSetup(forms::WindowSystem& windows, const PageSetup& setup, std::int16_t language,
                     const std::function<void(const PageSetup&)>& accepted) {
    std::optional<PageSetup> wanted;
    windows.OpenNew<PageSetupForm>(
        true,
        [&](PageSetupForm& window) {
            window.onAccepted = [&](const PageSetup& chosen) { wanted = chosen; };
        },
        setup, language);
    // The pages are laid out when the window is gone, so that it does not stand there dead.
    if (wanted) accepted(*wanted);
}

}  // namespace zv::report
