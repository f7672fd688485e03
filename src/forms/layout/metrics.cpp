#include "forms/layout/metrics.h"

#include "resources/glyph_samples.h"

namespace zv::forms::layout {

Metrics::Metrics(Backend& backend, const Spacing& spacing)
    : backend_(backend),
      spacing_(spacing),
      text_(backend.MeasureText(resources::kTallLetters).height) {}

int Metrics::Width(std::string_view caption) const {
    std::string text(caption);
    std::erase(text, '&');
    return backend_.MeasureText(text).width;
}

int Metrics::ButtonWidth(const CommandButton& button) const {
    return ButtonWidth(button.Marked(button.Caption()));
}

int Metrics::Widest(std::initializer_list<const Label*> labels) const {
    // A letter may lean over the end of its text.
    constexpr int kOverhang = 2;
    int width = 0;
    for (const Label* label : labels)
        width = std::max(width, Width(label->Marked(label->Caption())) + kOverhang);
    return width;
}

int Metrics::LabelWidth(std::initializer_list<const Label*> labels) const {
    int width = 0;
    for (const Label* label : labels)
        width = std::max(width, Width(label->Marked(label->Caption())));
    return width + kLabelGap;
}

int Metrics::LabelWidth(const ControlArray<Label>& labels) const {
    int width = 0;
    for (int i = labels.First(); i < labels.First() + labels.Count(); i++) {
        width = std::max(width, LabelWidth({&labels[i]}));
    }
    return width;
}

void Metrics::PlaceLabelled(Label& label, Control& field, int x, int y, int labelWidth,
                            int width) const {
    // The database may call a field anything: the field keeps half of the place.
    labelWidth = std::min(labelWidth, width / 2);
    label.Move({x, y + LabelDrop(), labelWidth, Text()});
    field.Move({x + labelWidth, y, width - labelWidth, Field()});
}

}  // namespace zv::forms::layout
