// The labels of an item's fields: their captions by design, and those that the database gives.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"
#include "suite/field_captions.h"
#include "windows/main/panels/field_box.h"

namespace zv::windows {

class FieldLabels {
 public:
    /// Gives each label the column of its field as its tag. The session must outlive this.
    FieldLabels(Session& session, std::vector<FieldBox> boxes);

    /// The database gave other captions, which need another place.
    std::function<void()> onRead;

    /// Gives every label its caption in the control's language: the database's where it was read,
    /// else the design's.
    void ShowCaptions();
    /// Reads the captions from the database and shows them. A row whose field has no label here, or
    /// that has no caption, changes nothing. A database without the table leaves the design's
    /// captions; any other database error reaches the caller.
    void LoadFieldCaptions();
    /// As read last.
    const std::vector<suite::FieldCaption>& Captions() const { return captions_; }
    /// LoadFieldCaptions unless it ran for the control's language.
    void FillIfNeeded();
    /// They are those of another store: they are read again when they are needed.
    void Forget() { language_.reset(); }
    /// The label of a field; null when none has it.
    const forms::Label* Of(std::size_t field) const;

 private:
    static void SetCaption(const FieldBox& box, const std::string& caption, bool mnemonic);

    Session& session_;
    std::vector<FieldBox> boxes_;
    std::optional<std::int16_t> language_;  ///< of the captions read; none before
    std::vector<suite::FieldCaption> captions_;
};

}  // namespace zv::windows
