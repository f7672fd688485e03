#include "windows/main/acts/field_labels.h"

#include <utility>

#include "base/text.h"
#include "items/fields.h"

namespace zv::windows {

FieldLabels::FieldLabels(Session& session, std::vector<FieldBox> boxes)
    : session_(session), boxes_(std::move(boxes)) {
    for (const FieldBox& box : boxes_) box.label->tag = items::kFields[box.field].column;
}

const forms::Label* FieldLabels::Of(std::size_t field) const {
    for (const FieldBox& box : boxes_) {
        if (box.field == field) return box.label;
    }
    return nullptr;
}

void FieldLabels::FillIfNeeded() {
    if (language_ != session_.state.Language) LoadFieldCaptions();
}

void FieldLabels::LoadFieldCaptions() {
    language_ = session_.state.Language;
    captions_.clear();
    captions_ = suite::ReadFieldCaptions(session_.database, session_.state.Language);
    ShowCaptions();
    if (onRead) onRead();
}

void FieldLabels::ShowCaptions() {
    const std::int16_t language = session_.state.Language;
    for (const FieldBox& box : boxes_) {
        const items::Field& field = items::kFields[box.field];
        SetCaption(box, field.caption.Text(language), true);
        if (language_ != language) continue;
        for (const suite::FieldCaption& entry : captions_) {
            const bool names = text::EqualsIgnoreCase(entry.field, field.column);
            if (names && !entry.caption.empty()) SetCaption(box, entry.caption, false);
        }
    }
}

void FieldLabels::SetCaption(const FieldBox& box, const std::string& caption, bool mnemonic) {
    box.label->SetUseMnemonic(mnemonic);
    box.label->SetCaption(caption);
    box.box->SetAccessibleName(caption);
}

}  // namespace zv::windows
