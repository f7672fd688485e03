#include "platform/win32/report_objects.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <new>

#include "base/errors.h"
#include "base/win32/bstr.h"
#include "base/win32/com_error.h"
#include "base/win32/enumerator.h"

namespace zv::platform::win32 {

using zv::win32::ComPtr;
using zv::win32::Variant;

namespace {

constexpr char kErrorSource[] = "zvTask";

std::int32_t ToNumber(const VARIANT& value) {
    Variant number = Variant::Copy(value);
    const HRESULT hr = number.ChangeType(VT_I4);
    if (FAILED(hr)) throw RuntimeError(zv::win32::ToErrorNumber(hr));
    return static_cast<std::int32_t>(number.Get().lVal);
}

HRESULT Report(HRESULT hr, const std::string& text, EXCEPINFO* info) {
    if (!info) return hr;
    *info = {};
    info->scode = hr;
    info->bstrDescription = zv::win32::AllocateBstr(text);
    info->bstrSource = zv::win32::AllocateBstr(std::string_view(kErrorSource));
    return DISP_E_EXCEPTION;
}

/// What goes through the texts of a collection.
class TextItems {
 public:
    explicit TextItems(ComPtr<TextCollection> texts) : texts_(std::move(texts)) {}

    std::size_t Count() const noexcept { return texts_->Texts().size(); }
    HRESULT Copy(std::size_t index, VARIANT* item) const noexcept {
        try {
            *item = Variant(texts_->Texts()[index]).Detach();
            return S_OK;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

 private:
    ComPtr<TextCollection> texts_;
};
using TextEnumerator = zv::win32::Enumerator<IEnumVARIANT, VARIANT, TextItems>;
}  // namespace

STDMETHODIMP ReadingObject::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ReadingObject::AddRef() noexcept {
    return ++references_;
}

STDMETHODIMP_(ULONG) ReadingObject::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP ReadingObject::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP ReadingObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (info) *info = nullptr;
    return DISP_E_BADINDEX;
}

STDMETHODIMP ReadingObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    // Arguments have no names here, only the member itself does.
    std::fill_n(ids, count, DISPID_UNKNOWN);
    for (const MemberName& member : members_) {
        if (_wcsicmp(member.name, names[0]) != 0) continue;
        ids[0] = member.id;
        return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    }
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ReadingObject::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* info, UINT*) noexcept {
    if (!parameters) return E_POINTER;
    const auto member = std::find_if(members_.begin(), members_.end(),
                                     [id](const MemberName& entry) { return entry.id == id; });
    if (member == members_.end() || (kind & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (parameters->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
    if (parameters->cArgs != member->arguments) return DISP_E_BADPARAMCOUNT;
    try {
        try {
            return ReadInto(*member, *parameters, result);
        } catch (const RuntimeError& error) {
            const HRESULT hr = zv::win32::ToHresult(error.Number());
            return Report(hr, error.Text().empty() ? zv::win32::SystemMessage(hr) : error.Text(),
                          info);
        }
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

HRESULT ReadingObject::ReadInto(const MemberName& member, const DISPPARAMS& parameters,
                                VARIANT* result) {
    Numbers arguments;
    for (UINT i = parameters.cArgs; i > 0; i--) {
        arguments.push_back(ToNumber(parameters.rgvarg[i - 1]));
    }
    Variant answer = Read(member.id, arguments);
    if (result) *result = answer.Detach();
    return S_OK;
}

namespace {

enum : DISPID { kCount = 1, kRowCount, kColumnCount, kHeading, kColumnWidth, kText };

}  // namespace

TextCollection::TextCollection(std::vector<std::string> texts)
    : ReadingObject([] {
          static constexpr std::array<MemberName, 3> kMembers = {
              {{L"Count", kCount, 0},
               {L"Item", DISPID_VALUE, 1},
               {L"_NewEnum", DISPID_NEWENUM, 0}}};
          return std::span<const MemberName>(kMembers);
      }()),
      texts_(std::move(texts)) {}

Variant TextCollection::Read(DISPID id, const Numbers& arguments) {
    if (id == kCount) return Variant(static_cast<std::int32_t>(texts_.size()));
    if (id == DISPID_NEWENUM) {
        const auto texts =
            zv::win32::MakeCom<TextEnumerator>(TextItems(ComPtr<TextCollection>(this)));
        return Variant(static_cast<IUnknown*>(texts.Get()));
    }
    const auto position = static_cast<std::size_t>(arguments[0]);
    if (arguments[0] < 1 || position > texts_.size()) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return Variant(texts_[position - 1]);
}

TableObject::TableObject(const ReportTable& table)
    : ReadingObject([] {
          static constexpr std::array<MemberName, 5> kMembers = {{{L"RowCount", kRowCount, 0},
                                                                  {L"ColumnCount", kColumnCount, 0},
                                                                  {L"Heading", kHeading, 1},
                                                                  {L"ColumnWidth", kColumnWidth, 1},
                                                                  {L"Text", kText, 2}}};
          return std::span<const MemberName>(kMembers);
      }()),
      table_(&table) {}

Variant TableObject::Read(DISPID id, const Numbers& arguments) {
    if (!table_) throw RuntimeError(ErrorNumber::ObjectNotSet);
    switch (id) {
        case kRowCount:
            return Variant(std::int32_t{table_->RowCount()});
        case kColumnCount:
            return Variant(std::int32_t{table_->ColumnCount()});
        case kHeading:
            return Variant(table_->Heading(arguments[0]));
        case kColumnWidth:
            return Variant(std::int32_t{table_->ColumnWidth(arguments[0])});
        default:
            return Variant(table_->Text(arguments[0], arguments[1]));
    }
}

}  // namespace zv::platform::win32
