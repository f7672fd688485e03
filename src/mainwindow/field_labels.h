// The labels of the editor's fields: their captions by design, and those that the database gives.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/field_captions.h"

namespace zv::forms {
class Control;
class Label;
}  // namespace zv::forms

namespace zv::mainwindow {

class frmTaskMain;

class FieldLabels {
 public:
    explicit FieldLabels(frmTaskMain& window) : window_(window) {}

    /// Gives each label of a stored field that field's name as its tag.
    void Wire();
    /// Gives every label its caption in the control's language: the database's where it was read,
    /// else the design's.
    void ShowCaptions();
    /// Reads the captions from the database and shows them. A row whose field has no label here, or
    /// that has no caption, changes nothing. A database without the table leaves the design's
    /// captions; any other database error reaches the caller.
    void LoadFieldCaptions();
    /// As read last.
    const std::vector<reports::FieldCaption>& Captions() const { return captions_; }
    /// LoadFieldCaptions unless it ran for the control's language.
    void FillIfNeeded();
    /// They are those of another store: they are read again when they are needed.
    void Forget() { language_.reset(); }
    /// The label whose tag is this field of tTaskList, without regard to case; null when there is
    /// none.
    const forms::Label* Of(std::string_view field) const;

 private:
    void ShowDesign();
    void SetCaption(forms::Label& label, forms::Control* field, const std::string& caption);

    frmTaskMain& window_;
    std::optional<std::int16_t> language_;  ///< of the captions read; none before
    std::vector<reports::FieldCaption> captions_;
};

}  // namespace zv::mainwindow
