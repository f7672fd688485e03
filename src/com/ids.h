// The ids of the type library, and the early-bound shape of the control's interfaces.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace zv::com {

inline constexpr GUID kLibraryId = {
    0xF23DC7BD, 0x6762, 0x4632, {0x97, 0xF0, 0x90, 0x35, 0x82, 0x20, 0xB0, 0x0D}};
inline constexpr GUID kInterfaceId = {
    0x19507C40, 0xA60B, 0x43E6, {0x93, 0xB3, 0x39, 0xD8, 0x3E, 0xCD, 0x49, 0x4D}};
inline constexpr GUID kSecondInterfaceId = {
    0x6B1D8C52, 0x0F3E, 0x4F0A, {0x9A, 0x57, 0x2C, 0x6E, 0x41, 0xD7, 0xB3, 0x8F}};
inline constexpr GUID kEventsId = {
    0x588817B4, 0xC687, 0x4E66, {0x9C, 0x60, 0x88, 0xA7, 0xDA, 0x76, 0x48, 0x4C}};
inline constexpr GUID kClassId = {
    0x29DE1175, 0xA4EF, 0x4D13, {0x95, 0x34, 0x1C, 0x19, 0xC4, 0x0D, 0xDB, 0xC5}};

inline constexpr WORD kMajorVersion = 1;
inline constexpr WORD kMinorVersion = 0;

inline constexpr wchar_t kProgId[] = L"zv_Task.zvTask";
inline constexpr wchar_t kVersionedProgId[] = L"zv_Task.zvTask.1";
inline constexpr wchar_t kFriendlyName[] = L"zvTask task reminder and task management";

/// How the control presents itself to a container: invisible at run time, asks for its site first.
inline constexpr DWORD kMiscStatus = OLEMISC_INVISIBLEATRUNTIME | OLEMISC_SETCLIENTSITEFIRST |
                                     OLEMISC_INSIDEOUT | OLEMISC_CANTLINKINSIDE |
                                     OLEMISC_RECOMPOSEONRESIZE;

/// Member ids, in the order of the interface.
enum MemberId : DISPID {
    kRefresh = 1,
    kMyTaskID,
    kUserPath,
    kMyName,
    kMyDate,
    kPassword,
    kSQLData,
    kAlertType,
    kLanguage,
    kPowerPath,
    kUserName,
    kZgName,
    kCompName,
    kMyPower,
    kMyModel,
    kCopyright,
    kInitProperties,
    kReadProperties,
    kWriteProperties,
    kZorvan,
    kUserID,
    kDefault,
    kStartReminders,
    kStopReminders,
    kReminding,
};

/// The interface _zvTask of the type library; the order of the functions is that of the library.
struct ITask : IDispatch {
    STDMETHOD(refresh)(LONG mode, SHORT modal) noexcept = 0;
    STDMETHOD(put_myTaskID)(LONG value) noexcept = 0;
    STDMETHOD(put_UserPath)(BSTR value) noexcept = 0;
    STDMETHOD(get_myName)(BSTR* value) noexcept = 0;
    STDMETHOD(put_myName)(BSTR value) noexcept = 0;
    STDMETHOD(put_myDate)(DATE value) noexcept = 0;
    STDMETHOD(put_Password)(BSTR value) noexcept = 0;
    STDMETHOD(put_SQLData)(SHORT value) noexcept = 0;
    STDMETHOD(get_AlertType)(SHORT* value) noexcept = 0;
    STDMETHOD(put_AlertType)(SHORT value) noexcept = 0;
    STDMETHOD(put_Language)(SHORT value) noexcept = 0;
    STDMETHOD(put_PowerPath)(BSTR value) noexcept = 0;
    STDMETHOD(put_UserName)(BSTR value) noexcept = 0;
    STDMETHOD(put_ZgName)(BSTR value) noexcept = 0;
    STDMETHOD(put_CompName)(BSTR value) noexcept = 0;
    STDMETHOD(put_myPower)(BSTR value) noexcept = 0;
    STDMETHOD(put_myModel)(BSTR value) noexcept = 0;
    STDMETHOD(put_Copyright)(VARIANT_BOOL value) noexcept = 0;
    STDMETHOD(UserControl_InitProperties)() noexcept = 0;
    STDMETHOD(UserControl_ReadProperties)(IDispatch* bag) noexcept = 0;
    STDMETHOD(UserControl_WriteProperties)(IDispatch* bag) noexcept = 0;
    STDMETHOD(get_Zorvan)(BSTR* value) noexcept = 0;
    STDMETHOD(put_Zorvan)(BSTR value) noexcept = 0;
    STDMETHOD(get_UserID)(BSTR* value) noexcept = 0;
    STDMETHOD(put_UserID)(BSTR value) noexcept = 0;
    STDMETHOD(get_Default)(BSTR* value) noexcept = 0;
    STDMETHOD(put_Default)(BSTR value) noexcept = 0;
};

/// The interface _zvTask2: its vtable goes on where that of _zvTask ends, so one table serves both.
struct ITask2 : ITask {
    STDMETHOD(StartReminders)() noexcept = 0;
    STDMETHOD(StopReminders)() noexcept = 0;
    STDMETHOD(get_Reminding)(VARIANT_BOOL* value) noexcept = 0;
};

}  // namespace zv::com
