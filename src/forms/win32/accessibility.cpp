#include "forms/win32/accessibility.h"

#include <exception>
#include <utility>

#include "base/win32/bstr.h"

namespace zv::forms::win32 {
namespace {

// Known to the compiler, but in no library for every compiler.
constexpr GUID kServicesClass = {
    0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID kServicesInterface = {
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID kServerInterface = {
    0x76c0dbbb, 0x15e0, 0x4e7b, {0xb6, 0x1b, 0x20, 0xee, 0xea, 0x20, 0x01, 0xe0}};
// Properties of an accessible object.
constexpr MSAAPROPID kName = {
    0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};
constexpr MSAAPROPID kDescription = {
    0x4d48dfe4, 0xbd3f, 0x491f, {0xa6, 0x48, 0x49, 0x2d, 0x6f, 0x20, 0xc5, 0x88}};
constexpr MSAAPROPID kHelp = {
    0xc831e11f, 0x44db, 0x4a99, {0x97, 0x68, 0xcb, 0x8f, 0x97, 0x8b, 0x72, 0x31}};
// Some readers say the one, some the other.
constexpr MSAAPROPID kDescribing[] = {kDescription, kHelp};

constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

}  // namespace

AccessNotes SystemAccessNotes() {
    AccessNotes notes;
    if (FAILED(CoCreateInstance(kServicesClass, nullptr, CLSCTX_INPROC_SERVER, kServicesInterface,
                                notes.PutVoid()))) {
        notes.Reset();
    }
    return notes;
}

void NameForScreenReaders(const AccessNotes& notes, HWND window, const std::wstring& name) {
    if (notes) notes->SetHwndPropStr(window, kClient, CHILDID_SELF, kName, name.c_str());
}

ItemDescriptions::ItemDescriptions(HWND window, FindNotes notes, Describe describe)
    : window_(window), notes_(std::move(notes)), describe_(std::move(describe)) {}

zv::win32::ComPtr<ItemDescriptions> ItemDescriptions::Offer(HWND window, FindNotes notes,
                                                            Describe describe) {
    auto offered = zv::win32::ComPtr<ItemDescriptions>::Attach(
        new ItemDescriptions(window, std::move(notes), std::move(describe)));
    const AccessNotes present = offered->notes_();
    const bool taken =
        present && SUCCEEDED(present->SetHwndPropServer(window, kClient, CHILDID_SELF, kDescribing,
                                                        static_cast<int>(std::size(kDescribing)),
                                                        offered.Get(), ANNO_CONTAINER));
    if (!taken) offered.Reset();
    return offered;
}

void ItemDescriptions::Withdraw() noexcept {
    describe_ = nullptr;
    try {
        if (const AccessNotes notes = notes_()) {
            notes->ClearHwndProps(window_, kClient, CHILDID_SELF, kDescribing,
                                  static_cast<int>(std::size(kDescribing)));
        }
    } catch (const std::exception&) {
        // The notes die with the window.
    }
    CoDisconnectObject(this, 0);
}

STDMETHODIMP ItemDescriptions::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != kServerInterface) return E_NOINTERFACE;
    *object = static_cast<IAccPropServer*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ItemDescriptions::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

std::string ItemDescriptions::Of(const BYTE* id, DWORD length) const {
    const AccessNotes notes = describe_ ? notes_() : AccessNotes();
    HWND window = nullptr;
    DWORD object = 0;
    DWORD child = CHILDID_SELF;
    if (!notes ||
        FAILED(notes->DecomposeHwndIdentityString(id, length, &window, &object, &child)) ||
        window != window_ || object != kClient || child == CHILDID_SELF) {
        return {};
    }
    return describe_(child);
}

STDMETHODIMP ItemDescriptions::GetPropValue(const BYTE* id, DWORD length, MSAAPROPID,
                                            VARIANT* value, WINBOOL* has) noexcept {
    if (!value || !has) return E_POINTER;
    value->vt = VT_EMPTY;
    *has = FALSE;
    try {
        // What answers may take the window away.
        const zv::win32::ComPtr<ItemDescriptions> alive(this);
        const std::string text = Of(id, length);
        if (text.empty()) return S_OK;
        value->bstrVal = zv::win32::AllocateBstr(text);
        value->vt = VT_BSTR;
        *has = TRUE;
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace zv::forms::win32
