#pragma once

#include "forms/date_picker.h"
#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativeDatePicker : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    LRESULT OnNotify(NMHDR& header) override;
    bool ListOpen() const override;
    void CloseList() override;
    std::optional<DateTime> ShownValue() const;

 protected:
    void Mirror(Aspect aspect) override;

 private:
    DatePicker& Picker() const { return static_cast<DatePicker&>(Logical()); }
    void ShowValue();
    void ShowFormat(const std::wstring& format);
    std::wstring Format() const;
    std::optional<DateTime> NativeValue() const;

    bool calendarOpen_ = false;
    /// The native picker knows no date before its calendar's reform. It shows the text of an
    /// earlier one, and stands on its first day meanwhile.
    bool standingIn_ = false;
};

/// Between dates and the system's, which have a field for everything.
SYSTEMTIME ToSystemTime(const DateTime& value);
DateTime FromSystemTime(const SYSTEMTIME& value);

}  // namespace zv::forms::win32
