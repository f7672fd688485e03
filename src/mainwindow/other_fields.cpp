#include "mainwindow/other_fields.h"

#include <algorithm>

#include "base/text.h"
#include "mainwindow/frm_task_main.h"
#include "mainwindow/layout.h"

namespace zv::mainwindow {

void OtherFields::Wire() {
    for (int i = 0; i < kOtherFields; i++) {
        window_.txtOther[i].onGotFocus = [this, i] { txtOther_GotFocus(i); };
    }
}

void OtherFields::FillIfNeeded() {
    const std::int16_t language = window_.session.state.Language;
    if (language_ == language) return;
    language_ = language;
    captions_.fill({});
    try {
        ReadCaptions();
    } catch (const RuntimeError& error) {
        // A database without the table, or without the language.
        if (error.Number() != ErrorNumber::DatabaseTable &&
            error.Number() != ErrorNumber::DatabaseColumn &&
            error.Number() != ErrorNumber::DatabaseStatement) {
            throw;
        }
    }
    for (int i = 0; i < kOtherFields; i++) {
        window_.lblOther[i].SetCaption(Caption(i));
        window_.txtOther[i].SetAccessibleName(Caption(i));
    }
    PlaceControls(window_);
}

void OtherFields::ReadCaptions() {
    const std::string column = "FieldName_" + std::to_string(*language_);
    window_.session.EnsureConnection();
    const auto rows = window_.session.database.Open("select FieldName," + column +
                                                    " from rptListDetail where fTable='ttasklist'");
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string field = rows->Field("FieldName").ToText();
        for (int i = 0; i < kOtherFields; i++) {
            if (text::EqualsIgnoreCase(field, "fOther" + std::to_string(i))) {
                captions_[static_cast<std::size_t>(i)] = rows->Field(column).ToText();
            }
        }
    }
    rows->Close();
}

std::string OtherFields::Caption(int index) const {
    const std::string& caption = captions_[static_cast<std::size_t>(index)];
    if (!caption.empty()) return caption;
    return window_.captions.Text(resources::DesignText::Remark) + " " + std::to_string(index + 1);
}

void OtherFields::txtOther_GotFocus(int index) {
    const forms::Rect& box = window_.txtOther[index].Bounds();
    const int visible = window_.picOther.Bounds().height;
    forms::Rect panel = window_.picOtherIn.Bounds();
    // The panel's top is 0 or negative: what lies above the visible part.
    if (box.top + panel.top < 0) {
        panel.top = -box.top;
    } else if (box.Bottom() + panel.top > visible) {
        panel.top = std::max(visible - box.Bottom(), std::min(0, visible - panel.height));
    }
    window_.picOtherIn.Move(panel);
}

}  // namespace zv::mainwindow
