// The automation interface: properties, refresh and the persistence events, early and late bound.
#pragma once

#include <span>

#include "automation/dispatch.h"
#include "com/core.h"
#include "com/ids.h"

namespace zv::com {

class Automation final : public Part<ITask2> {
 public:
    using Part::Part;

    static std::span<const automation::MemberEntry<Automation>> Members();
    /// Leaves what a call of the member does not fit: "SQLData: ...", "refresh(mode): ...".
    static HRESULT Explain(const automation::MemberShape& shape, const wchar_t* parameter,
                           HRESULT hr) noexcept;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept override;

    STDMETHODIMP refresh(LONG mode, SHORT modal) noexcept override;
    STDMETHODIMP put_myTaskID(LONG value) noexcept override;
    STDMETHODIMP put_UserPath(BSTR value) noexcept override;
    STDMETHODIMP get_myName(BSTR* value) noexcept override;
    STDMETHODIMP put_myName(BSTR value) noexcept override;
    STDMETHODIMP put_myDate(DATE value) noexcept override;
    STDMETHODIMP put_Password(BSTR value) noexcept override;
    STDMETHODIMP put_SQLData(SHORT value) noexcept override;
    STDMETHODIMP get_AlertType(SHORT* value) noexcept override;
    STDMETHODIMP put_AlertType(SHORT value) noexcept override;
    STDMETHODIMP put_Language(SHORT value) noexcept override;
    STDMETHODIMP put_PowerPath(BSTR value) noexcept override;
    STDMETHODIMP put_UserName(BSTR value) noexcept override;
    STDMETHODIMP put_ZgName(BSTR value) noexcept override;
    STDMETHODIMP put_CompName(BSTR value) noexcept override;
    STDMETHODIMP put_myPower(BSTR value) noexcept override;
    STDMETHODIMP put_myModel(BSTR value) noexcept override;
    STDMETHODIMP put_Copyright(VARIANT_BOOL value) noexcept override;
    STDMETHODIMP UserControl_InitProperties() noexcept override;
    STDMETHODIMP UserControl_ReadProperties(IDispatch* bag) noexcept override;
    STDMETHODIMP UserControl_WriteProperties(IDispatch* bag) noexcept override;
    STDMETHODIMP get_Zorvan(BSTR* value) noexcept override;
    STDMETHODIMP put_Zorvan(BSTR value) noexcept override;
    STDMETHODIMP get_UserID(BSTR* value) noexcept override;
    STDMETHODIMP put_UserID(BSTR value) noexcept override;
    STDMETHODIMP get_Default(BSTR* value) noexcept override;
    STDMETHODIMP put_Default(BSTR value) noexcept override;
    STDMETHODIMP StartReminders() noexcept override;
    STDMETHODIMP StopReminders() noexcept override;
    STDMETHODIMP get_Reminding(VARIANT_BOOL* value) noexcept override;

 private:
    template <class Set>
    HRESULT Put(DISPID member, Set&& set) noexcept;
    template <class Text>
    HRESULT PutText(DISPID member, Text ControlState::*property, BSTR value) noexcept;
    template <class Text>
    HRESULT GetText(Text ControlState::*property, BSTR* value) noexcept;
};

}  // namespace zv::com
