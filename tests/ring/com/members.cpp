#include "members.h"

#include <cmath>
#include <limits>

#include "e2e/container/container.h"

namespace zv::ring::com {

using win32::Bstr;
using win32::ComPtr;

namespace {

void AddMembers(ITypeLib& library, REFGUID interfaceId, std::vector<LibraryMember>& members) {
    ComPtr<ITypeInfo> dispatch;
    if (FAILED(library.GetTypeInfoOfGuid(interfaceId, dispatch.Put()))) return;
    // The functions with their places in the vtable are those of the other half of the pair.
    HREFTYPE half = 0;
    ComPtr<ITypeInfo> info;
    if (FAILED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &half)) ||
        FAILED(dispatch->GetRefTypeInfo(half, info.Put()))) {
        info = dispatch;
    }
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); i++) {
        if (function->memid > 0 && function->memid < 0x10000) {
            LibraryMember member;
            Bstr name;
            info->GetDocumentation(function->memid, name.Put(), nullptr, nullptr, nullptr);
            member.name = name.Utf8();
            member.id = function->memid;
            member.kind = function->invkind;
            member.slot = static_cast<ULONG_PTR>(function->oVft);
            for (SHORT p = 0; p < function->cParams; p++) {
                const TYPEDESC& type = function->lprgelemdescParam[p].tdesc;
                const bool isAnswer = type.vt == VT_PTR && type.lptdesc->vt != VT_USERDEFINED;
                if (isAnswer && member.kind == INVOKE_PROPERTYGET) member.answer = type.lptdesc->vt;
                member.parameters.push_back(type.vt);
            }
            members.push_back(member);
        }
        info->ReleaseFuncDesc(function);
    }
}

}  // namespace

std::vector<LibraryMember> LibraryMembers() {
    ComPtr<ITypeLib> library;
    if (FAILED(LoadTypeLibEx(container::File().path.c_str(), REGKIND_NONE, library.Put()))) {
        return {};
    }
    std::vector<LibraryMember> members;
    AddMembers(*library, zv::com::kInterfaceId, members);
    AddMembers(*library, zv::com::kSecondInterfaceId, members);
    for (LibraryMember& member : members) {
        for (const LibraryMember& other : members) {
            if (other.id == member.id && other.answer != VT_EMPTY) member.reads = other.answer;
        }
    }
    return members;
}

const std::vector<WildValues::Form>& WildValues::Forms() {
    static const std::vector<Form> forms{Form::Value, Form::Reference, Form::NullReference,
                                         Form::Array, Form::NullArray, Form::ArrayReference};
    return forms;
}

const std::vector<VARTYPE>& WildValues::Types() {
    static const std::vector<VARTYPE> types{
        VT_EMPTY,   VT_NULL,     VT_I2,        VT_I4,       VT_R4,    VT_R8,
        VT_CY,      VT_DATE,     VT_BSTR,      VT_DISPATCH, VT_ERROR, VT_BOOL,
        VT_VARIANT, VT_UNKNOWN,  VT_DECIMAL,   15,          VT_I1,    VT_UI1,
        VT_UI2,     VT_UI4,      VT_I8,        VT_UI8,      VT_INT,   VT_UINT,
        VT_VOID,    VT_HRESULT,  VT_SAFEARRAY, VT_CARRAY,   VT_LPSTR, VT_LPWSTR,
        VT_INT_PTR, VT_UINT_PTR, VT_FILETIME,  VT_BLOB,     VT_CLSID, 0x0FFF};
    return types;
}

WildValues::~WildValues() {
    Forget();
}

void WildValues::Forget() {
    for (VARIANT& value : held_) {
        if (value.vt == VT_BSTR) SysFreeString(value.bstrVal);
    }
    held_.clear();
    for (SAFEARRAY* array : arrays_) SafeArrayDestroy(array);
    arrays_.clear();
}

BSTR WildValues::Text() {
    constexpr UINT kLong = 200'000;
    std::wstring text;
    switch (random_.Below(8)) {
        case 0:
            return nullptr;
        case 1:
            break;
        case 2:
            text.assign(kLong, L'长');
            break;
        case 3:
            text = L"a half \xD800 and \xDC00\xD800";
            break;
        case 4:
            text = std::wstring(L"in\0side", 7);
            break;
        case 5:
            text = L"1e400";
            break;
        case 6:
            text = L"';drop table x--%s%n\\..\\..\\?*|<>\"";
            break;
        default:
            text = std::to_wstring(static_cast<std::int64_t>(random_.Bits()));
    }
    VARIANT held{};
    held.vt = VT_BSTR;
    // Some have an odd number of bytes.
    held.bstrVal = random_.OneIn(6)
                       ? SysAllocStringByteLen("\1\2\3", 3)
                       : SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    held_.push_back(held);
    return held.bstrVal;
}

void WildValues::Fill(VARTYPE type, VARIANT& value) {
    static constexpr double kNumbers[] = {0,       -1,    1.5,    40000, -657435,
                                          2958466, 1e308, -1e308, 5e-324};
    value.vt = type;
    value.ullVal = random_.OneIn(3) ? random_.Below(3) : random_.Bits();
    switch (type) {
        case VT_BSTR:
            value.bstrVal = Text();
            break;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            value.pdispVal = random_.OneIn(4) ? nullptr : &hostile_;
            break;
        case VT_ERROR:
            if (random_.OneIn(2)) value.scode = DISP_E_PARAMNOTFOUND;
            break;
        case VT_R4:
            value.fltVal = std::numeric_limits<float>::quiet_NaN();
            break;
        case VT_R8:
        case VT_DATE:
            value.dblVal =
                random_.OneIn(5) ? std::numeric_limits<double>::infinity() : random_.Of(kNumbers);
            if (random_.OneIn(8)) value.dblVal = std::nan("");
            break;
        case VT_DECIMAL:
            value.decVal.scale = static_cast<BYTE>(random_.Below(40));
            value.decVal.sign = 0;
            value.decVal.Hi32 = static_cast<ULONG>(random_.Bits());
            value.decVal.Lo64 = random_.Bits();
            value.vt = type;
            break;
        case VT_SAFEARRAY:
        case VT_CARRAY:
        case VT_LPSTR:
        case VT_LPWSTR:
        case VT_BLOB:
        case VT_CLSID:
            value.byref = nullptr;
            break;
        default:
            break;
    }
}

SAFEARRAY* WildValues::Array(VARTYPE type) {
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(random_.Below(4)), -1}, {2, 5}};
    SAFEARRAY* const array = SafeArrayCreate(type, static_cast<UINT>(1 + random_.Below(2)), bounds);
    if (array) arrays_.push_back(array);
    return array;
}

VARIANT WildValues::Make(VARTYPE type, Form form) {
    VARIANT value{};
    switch (form) {
        case Form::Value:
            Fill(type, value);
            return value;
        case Form::Reference: {
            VARIANT inner{};
            Fill(type == VT_VARIANT ? VARTYPE{VT_BSTR} : type, inner);
            // Its text is held already.
            held_.push_back(inner);
            VARIANT& target = held_.back();
            value.vt = static_cast<VARTYPE>(type | VT_BYREF);
            value.byref = type == VT_VARIANT || type == VT_DECIMAL ? static_cast<void*>(&target)
                                                                   : &target.ullVal;
            if (target.vt == VT_BSTR) target.vt = type == VT_VARIANT ? VT_I4 : VT_EMPTY;
            return value;
        }
        case Form::NullReference:
            value.vt = static_cast<VARTYPE>(type | VT_BYREF);
            return value;
        case Form::Array:
            value.vt = static_cast<VARTYPE>(type | VT_ARRAY);
            value.parray = Array(type);
            return value;
        case Form::NullArray:
            value.vt = static_cast<VARTYPE>(type | VT_ARRAY);
            return value;
        case Form::ArrayReference: {
            VARIANT inner{};
            inner.parray = Array(type);
            held_.push_back(inner);
            value.vt = static_cast<VARTYPE>(type | VT_ARRAY | VT_BYREF);
            value.pparray = &held_.back().parray;
            return value;
        }
    }
    return value;
}

VARIANT WildValues::Any() {
    return Make(random_.Of(Types()), random_.Of(Forms()));
}

}  // namespace zv::ring::com
