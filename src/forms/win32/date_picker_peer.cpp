#include "forms/win32/date_picker_peer.h"

#include <array>

namespace zv::forms::win32 {

SYSTEMTIME ToSystemTime(const DateTime& value) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(value.Year());
    time.wMonth = static_cast<WORD>(value.Month());
    time.wDay = static_cast<WORD>(value.Day());
    time.wDayOfWeek = static_cast<WORD>(value.Weekday() - 1);
    time.wHour = static_cast<WORD>(value.Hour());
    time.wMinute = static_cast<WORD>(value.Minute());
    time.wSecond = static_cast<WORD>(value.Second());
    return time;
}

DateTime FromSystemTime(const SYSTEMTIME& value) {
    return DateTime(value.wYear, value.wMonth, value.wDay, value.wHour, value.wMinute,
                    value.wSecond);
}

void NativeDatePicker::Create(HWND parent, int id) {
    DWORD style = WS_TABSTOP;
    style |= Picker().Format() == DateFormat::LongDate ? DTS_LONGDATEFORMAT : DTS_SHORTDATEFORMAT;
    if (Picker().MayBeEmpty()) style |= DTS_SHOWNONE;
    CreateNative(parent, id, DATETIMEPICK_CLASSW, style);
    if (Picker().Format() != DateFormat::LongDate) {
        const wchar_t* format = Picker().Format() == DateFormat::Date
                                    ? L"yyyy'-'MM'-'dd"
                                    : L"yyyy'-'MM'-'dd HH':'mm";
        Send(DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(format));
    }
    std::array<SYSTEMTIME, 2> range = {ToSystemTime(DateTime(DatePicker::kFirstYear, 1, 1)),
                                       ToSystemTime(DateTime(DatePicker::kLastYear, 12, 31))};
    const Quiet quiet(*this);
    Send(DTM_SETRANGE, GDTR_MIN | GDTR_MAX, reinterpret_cast<LPARAM>(range.data()));
    ShowValue();
}

void NativeDatePicker::ShowValue() {
    if (!Picker().Value()) {
        Send(DTM_SETSYSTEMTIME, GDT_NONE);
        return;
    }
    SYSTEMTIME time = ToSystemTime(*Picker().Value());
    Send(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
}

void NativeDatePicker::Mirror(Aspect aspect) {
    if (aspect == Aspect::Value) ShowValue();
}

// The window's text keeps the former date when it is empty, so that is not looked at.
std::optional<DateTime> NativeDatePicker::NativeValue() const {
    SYSTEMTIME time{};
    if (Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) != GDT_VALID) return {};
    return FromSystemTime(time);
}

LRESULT NativeDatePicker::OnNotify(NMHDR& header) {
    switch (header.code) {
        case DTN_DROPDOWN:
            calendarOpen_ = true;
            break;
        case DTN_CLOSEUP:
            calendarOpen_ = false;
            break;
        case DTN_DATETIMECHANGE: {
            if (IsQuiet()) break;
            const std::optional<DateTime> value = NativeValue();
            if (value && calendarOpen_) {
                Picker().UserPickDay(*value);
            } else {
                Picker().UserPick(value);
            }
            if (IsQuiet() || NativeValue() == Picker().Value()) break;
            const Quiet quiet(*this);
            ShowValue();
            break;
        }
        default:
            break;
    }
    return 0;
}

bool NativeDatePicker::WantsKey(int code) const {
    return calendarOpen_ && (code == key::kEnter || code == key::kEscape);
}

}  // namespace zv::forms::win32
