#include "mainwindow/field_labels.h"

#include <array>

#include "base/text.h"
#include "mainwindow/frm_task_main.h"
#include "mainwindow/layout.h"
#include "reports/item_names.h"
#include "resources/design_texts.h"

namespace zv::mainwindow {
namespace {

using resources::DesignText;

struct Tag {
    int label;  ///< index in lblList2
    std::string_view field;
};
constexpr auto kTags = std::to_array<Tag>({{0, "taskTitle"},
                                           {1, "tDoneMan"},
                                           {2, "taskTime"},
                                           {3, "fType"},
                                           {4, "fContent"},
                                           {5, "fUser"},
                                           {6, "fWay"},
                                           {7, "fGuest"},
                                           {10, "tDone"}});

// What the other labels are for is no field of an item.
struct Heading {
    int label;  ///< index in lblList2
    DesignText text;
};
constexpr auto kHeadings = std::to_array<Heading>({{8, DesignText::Company},
                                                   {9, DesignText::Address},
                                                   {11, DesignText::FindCard},
                                                   {12, DesignText::Order},
                                                   {13, DesignText::OtherFields}});

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
            if (!names || entry.caption.empty()) continue;
            SetCaption(label, field, entry.caption);
            label.SetUseMnemonic(false);
        }
    });
}

void FieldLabels::ShowDesign() {
    for (const Heading& heading : kHeadings) {
        window_.lblList2[heading.label].SetCaption(window_.captions.Text(heading.text));
    }
    ForEachLabel(window_, [&](forms::Label& label, forms::Control* field) {
        label.SetUseMnemonic(true);
        SetCaption(label, field,
                   label.tag.empty() ? label.Caption()
                                     : reports::DesignCaption(window_.session, label.tag));
    });
}

void FieldLabels::SetCaption(forms::Label& label, forms::Control* field,
                             const std::string& caption) {
    label.SetCaption(caption);
    if (field) field->SetAccessibleName(caption);
}

}  // namespace zv::mainwindow
