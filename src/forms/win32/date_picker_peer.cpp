#include "forms/win32/date_picker_peer.h"

#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {
namespace {

constexpr int kFirstNativeYear = 1753;

}  // namespace

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
    ShowFormat(Format());
    // No range is set: the native one cannot begin before 1752, values can.
    const Quiet quiet(*this);
    ShowValue();
}

std::wstring NativeDatePicker::Format() const {
    switch (Picker().Format()) {
        case DateFormat::Date:
            return L"yyyy'-'MM'-'dd";
        case DateFormat::DateTime:
            return L"yyyy'-'MM'-'dd HH':'mm";
        case DateFormat::LongDate:
            break;
    }
    return {};
}

// An empty format is the one of the window's style.
void NativeDatePicker::ShowFormat(const std::wstring& format) {
    Send(DTM_SETFORMATW, 0, format.empty() ? 0 : reinterpret_cast<LPARAM>(format.c_str()));
}

void NativeDatePicker::ShowValue() {
    const std::optional<DateTime>& value = Picker().Value();
    const bool standIn = value && value->Year() < kFirstNativeYear;
    if (standIn || standingIn_) {
        ShowFormat(standIn ? L"'" + ToWide(value->IsoDate()) + L"'" : Format());
        standingIn_ = standIn;
    }
    // Some versions want a time even to take it away.
    SYSTEMTIME time =
        ToSystemTime(standIn ? DateTime(kFirstNativeYear, 1, 1) : value.value_or(DateTime()));
    Send(DTM_SETSYSTEMTIME, value ? GDT_VALID : GDT_NONE, reinterpret_cast<LPARAM>(&time));
}

std::optional<DateTime> NativeDatePicker::ShownValue() const {
    const std::optional<DateTime> native = NativeValue();
    return standingIn_ && native == DateTime(kFirstNativeYear, 1, 1) ? Picker().Value() : native;
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
            const std::optional<DateTime> value = ShownValue();
            if (value && calendarOpen_) {
                Picker().UserPickDay(*value);
            } else {
                Picker().UserPick(value);
            }
            if (IsQuiet() || ShownValue() == Picker().Value()) break;
            const Quiet quiet(*this);
            ShowValue();
            break;
        }
        default:
            break;
    }
    return 0;
}

void NativeDatePicker::CloseList() {
    if (!calendarOpen_) return;
    Send(DTM_CLOSEMONTHCAL);
    // Not every version of the control knows that.
    const auto calendar = reinterpret_cast<HWND>(Send(DTM_GETMONTHCAL));
    if (calendarOpen_ && calendar) ShowWindow(calendar, SW_HIDE);
    calendarOpen_ = false;
}

bool NativeDatePicker::ListOpen() const {
    return calendarOpen_;
}

}  // namespace zv::forms::win32
