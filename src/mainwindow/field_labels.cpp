#include "mainwindow/field_labels.h"

#include <array>

#include "base/text.h"
#include "mainwindow/frm_task_main.h"
#include "mainwindow/layout.h"

namespace zv::mainwindow {
namespace {

using resources::DesignText;

// Catalogue texts that label fields.
constexpr std::int16_t kTitleText = 7;
constexpr std::int16_t kDoerText = 10;
constexpr std::int16_t kSetterText = 11;
constexpr std::int16_t kStateText = 13;
constexpr std::int16_t kDateText = 14;

struct Tag {
    int label;  ///< index in lblList2
    std::string_view field;
};
// The others label what is no field of an item: the card's company and address, the search for a
// card, the order of the tree, the heading of the free fields.
constexpr auto kTags = std::to_array<Tag>({{0, "taskTitle"},
                                           {1, "tDoneMan"},
                                           {2, "taskTime"},
                                           {3, "fType"},
                                           {4, "fContent"},
                                           {5, "fUser"},
                                           {6, "fWay"},
                                           {7, "fGuest"},
                                           {10, "tDone"}});

/// Each label with the control that it describes; null for a heading.
template <class Use>
void ForEachLabel(frmTaskMain& w, Use&& use) {
    const std::array<forms::Control*, 14> fields = {
        &w.txtTitle2, &w.cboJbr2,     &w.DTPicker2, &w.cboType2, &w.txtTaskCon,
        &w.txtUser2,  &w.cboWay,      &w.txtName2,  &w.cboComp2, &w.txtAdd2,
        &w.cboDone2,  &w.txtCompSeek, &w.cboOrder,  nullptr};
    for (std::size_t i = 0; i < fields.size(); i++) {
        use(w.lblList2[static_cast<int>(i)], fields[i]);
    }
    for (int i = 0; i < kOtherFields; i++) use(w.lblOther[i], &w.txtOther[i]);
}

}  // namespace

void FieldLabels::Wire() {
    for (const Tag& tag : kTags) window_.lblList2[tag.label].tag = tag.field;
    for (int i = 0; i < kOtherFields; i++) {
        window_.lblOther[i].tag = "fOther" + std::to_string(i);
    }
}

const forms::Label* FieldLabels::Of(std::string_view field) const {
    const forms::Label* found = nullptr;
    ForEachLabel(window_, [&](const forms::Label& label, forms::Control*) {
        if (!label.tag.empty() && text::EqualsIgnoreCase(label.tag, field)) found = &label;
    });
    return found;
}

void FieldLabels::FillIfNeeded() {
    if (language_ != window_.session.state.Language) LoadFieldCaptions();
}

void FieldLabels::LoadFieldCaptions() {
    language_ = window_.session.state.Language;
    captions_.clear();
    captions_ = reports::ReadFieldCaptions(window_.session);
    ShowCaptions();
    PlaceControls(window_);
}

void FieldLabels::ShowCaptions() {
    ShowDesign();
    if (language_ != window_.session.state.Language) return;
    ForEachLabel(window_, [&](forms::Label& label, forms::Control* field) {
        for (const reports::FieldCaption& entry : captions_) {
            const bool names = !label.tag.empty() && text::EqualsIgnoreCase(entry.field, label.tag);
            if (names && !entry.caption.empty()) SetCaption(label, field, entry.caption);
        }
    });
}

void FieldLabels::ShowDesign() {
    const auto design = [this](DesignText id) { return window_.captions.Text(id); };
    const auto catalogue = [this](std::int16_t id) { return window_.session.LoadText(id); };
    const std::array<std::string, 14> captions = {
        catalogue(kTitleText),          catalogue(kDoerText),
        catalogue(kDateText),           design(DesignText::Kind),
        design(DesignText::Content),    catalogue(kSetterText),
        design(DesignText::ContactWay), design(DesignText::Contact),
        design(DesignText::Company),    design(DesignText::Address),
        catalogue(kStateText),          design(DesignText::FindCard),
        design(DesignText::Order),      design(DesignText::OtherFields)};
    std::size_t at = 0;
    ForEachLabel(window_, [&](forms::Label& label, forms::Control* field) {
        const std::size_t other = at - captions.size();
        SetCaption(label, field,
                   at < captions.size()
                       ? captions[at]
                       : design(DesignText::Remark) + " " + std::to_string(other + 1));
        at++;
    });
}

void FieldLabels::SetCaption(forms::Label& label, forms::Control* field,
                             const std::string& caption) {
    label.SetCaption(caption);
    if (field) field->SetAccessibleName(caption);
}

}  // namespace zv::mainwindow
