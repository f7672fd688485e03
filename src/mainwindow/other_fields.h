// The six free fields of an item: their captions, which the database gives, and the panel that
// scrolls to the one in use.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace zv::mainwindow {

class frmTaskMain;

inline constexpr int kOtherFields = 6;

class OtherFields {
 public:
    explicit OtherFields(frmTaskMain& window) : window_(window) {}

    void Wire();
    /// Reads the captions unless those of the control's language are there already. A database
    /// without them leaves the numbered captions; any other database error reaches the caller.
    void FillIfNeeded();
    std::string Caption(int index) const;
    /// Scrolls until the box is wholly visible.
    void txtOther_GotFocus(int index);

 private:
    void ReadCaptions();

    frmTaskMain& window_;
    std::optional<std::int16_t> language_;  ///< of the captions read; none before
    std::array<std::string, kOtherFields> captions_;
};

}  // namespace zv::mainwindow
