#include "rules.h"

#include <algorithm>

#include "base/win32/com_ptr.h"

namespace zv::ring::com {

using win32::ComPtr;

bool IsDefined(HRESULT hr) {
    if (hr == S_OK || hr == S_FALSE) return true;
    constexpr int kClass = 10;
    static constexpr int kFacilities[] = {
        FACILITY_NULL,  FACILITY_RPC, FACILITY_DISPATCH, FACILITY_STORAGE, FACILITY_ITF,
        FACILITY_WIN32, kClass};
    const int facility = HRESULT_FACILITY(hr);
    const bool known = std::find(std::begin(kFacilities), std::end(kFacilities), facility) !=
                       std::end(kFacilities);
    return known && (FAILED(hr) || facility == FACILITY_ITF);
}

std::string InvokeComplaint(const Answer& answer) {
    std::string wrong;
    if (!IsDefined(answer.hr)) wrong += "no defined result " + std::to_string(answer.hr) + '\n';
    if (FAILED(answer.hr) && answer.result.vt != VT_EMPTY) wrong += "a failure has a value\n";
    if (SUCCEEDED(answer.hr) && answer.result.vt != VT_EMPTY &&
        answer.result.vt != answer.promised) {
        wrong += "the value is of another type\n";
    }
    const bool explains = answer.exception.scode != 0 || answer.exception.wCode != 0;
    if (explains != (answer.hr == DISP_E_EXCEPTION) && explains) {
        wrong += "an exception without its result\n";
    }
    if (explains && SysStringLen(answer.exception.bstrDescription) == 0) {
        wrong += "an exception without a text\n";
    }
    if (answer.badArgument != UINT_MAX && answer.badArgument >= answer.arguments) {
        wrong += "an argument is blamed that was not given\n";
    }
    return wrong;
}

bool CanBecome(const VARIANT& value, VARTYPE type) {
    if ((value.vt & VT_BYREF) && !value.byref) return false;
    VARIANT copy{};
    if (FAILED(VariantCopyInd(&copy, const_cast<VARIANT*>(&value)))) return false;
    const bool missing = copy.vt == VT_ERROR && copy.scode == DISP_E_PARAMNOTFOUND;
    const bool can = !missing && (copy.vt == type ||
                                  SUCCEEDED(VariantChangeTypeEx(&copy, &copy, LOCALE_USER_DEFAULT,
                                                                VARIANT_ALPHABOOL, type)));
    VariantClear(&copy);
    return can;
}

std::string InterfaceComplaint(IUnknown& object, const std::vector<IID>& interfaces) {
    std::string wrong;
    ComPtr<IUnknown> identity;
    if (FAILED(object.QueryInterface(IID_IUnknown, identity.PutVoid()))) return "no identity\n";
    if (object.QueryInterface(IID_IUnknown, nullptr) != E_POINTER) wrong += "takes no pointer\n";
    const IID foreign = {0x11111111, 0x2222, 0x3333, {1, 2, 3, 4, 5, 6, 7, 8}};
    void* untouched = &wrong;
    if (object.QueryInterface(foreign, &untouched) != E_NOINTERFACE || untouched) {
        wrong += "an interface that it has not is not refused with null\n";
    }
    for (const IID& first : interfaces) {
        ComPtr<IUnknown> from;
        ComPtr<IUnknown> again;
        const std::string name = std::to_string(first.Data1) + ' ';
        if (FAILED(identity->QueryInterface(first, from.PutVoid())) || !from) {
            wrong += name + "is missing\n";
            continue;
        }
        if (FAILED(from->QueryInterface(first, again.PutVoid()))) wrong += name + "not reflexive\n";
        ComPtr<IUnknown> back;
        from->QueryInterface(IID_IUnknown, back.PutVoid());
        if (!(back == identity)) wrong += name + "has another identity\n";
        for (const IID& second : interfaces) {
            ComPtr<IUnknown> to;
            if (FAILED(from->QueryInterface(second, to.PutVoid())) || !to) {
                wrong += name + "does not lead to " + std::to_string(second.Data1) + '\n';
            }
        }
    }
    return wrong;
}

}  // namespace zv::ring::com
