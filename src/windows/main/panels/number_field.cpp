#include "windows/main/panels/number_field.h"

#include "base/number.h"
#include "base/text.h"
#include "forms/field_keys.h"

namespace zv::windows {

NumberField::NumberField(forms::Form& form, Session& session,
                         const resources::NumberSetting& setting, const std::string& name,
                         forms::Control* parent)
    : form_(form),
      session_(session),
      setting_(setting),
      lblName(form, "lbl" + name, parent),
      txtNumber(form, "txt" + name, parent),
      lblUnit(form, "lbl" + name + "Unit", parent) {
    txtNumber.SetNumericKeyboard(true);
    txtNumber.onGotFocus = [this] { txtNumber.SelectAll(); };
    txtNumber.onKeyDown = [this](forms::KeyEvent& event) { forms::MoveOnEnter(form_, event); };
    txtNumber.onLostFocus = [this] { Store(); };
}

void NumberField::SetCaptions(const std::string& caption, const std::string& unit) {
    lblName.SetCaption(caption);
    lblUnit.SetCaption(unit);
    txtNumber.SetAccessibleName(caption);
}

int NumberField::Place(const forms::layout::Metrics& metrics, int left, int top) {
    const int name = metrics.LabelWidth({&lblName});
    lblName.Move({left, top + metrics.LabelDrop(), name, metrics.Text()});
    const int box = left + name;
    txtNumber.Move({box, top, metrics.Number(), metrics.Field()});
    const int unit = box + metrics.Number() + forms::layout::kLabelGap;
    const int width = metrics.LabelWidth({&lblUnit});
    lblUnit.Move({unit, top + metrics.LabelDrop(), width, metrics.Text()});
    return unit + width;
}

void NumberField::Load() {
    txtNumber.SetText(std::to_string(session_.GetNumber(setting_)));
}

void NumberField::Store() {
    const std::optional<double> typed = number::Parse(txtNumber.Text());
    if (typed && setting_.Takes(*typed)) {
        session_.SaveSetting(resources::kTaskSection, setting_.key,
                             std::to_string(setting_.Of(txtNumber.Text())));
    }
    Load();
}

}  // namespace zv::windows
