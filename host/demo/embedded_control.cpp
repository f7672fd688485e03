#include "demo/embedded_control.h"

#include <oleauto.h>

#include <chrono>
#include <cstdio>

#include "automation/late_bound.h"
#include "demo/demo_texts.h"
#include "resources/texts.h"

namespace zv::demo {
namespace {

using win32::ComPtr;
using win32::Variant;

constexpr wchar_t kControlProgId[] = L"zv_Task.zvTask";
// Long enough to recognise a rights string, short enough for a line.
constexpr std::size_t kLongestShown = 60;

void Check(HRESULT hr, const char* step) {
    if (SUCCEEDED(hr)) return;
    throw RuntimeError(win32::ToErrorNumber(hr),
                       std::string(step) + ": " + win32::SystemMessage(hr));
}

std::string Hex(std::int32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(number));
    return text;
}

}  // namespace

std::string Describe(const Variant& value) {
    if (value.Type() == VT_EMPTY) return texts::kEmpty;
    if (value.Type() == VT_NULL) return "Null";
    Variant text = Variant::Copy(value.Get());
    if (FAILED(text.ChangeType(VT_BSTR)))
        return resources::FillIn(texts::kOtherType, std::to_string(value.Type()));
    std::wstring_view view = win32::View(text.Get().bstrVal);
    std::string shown = win32::ToUtf8(view.substr(0, kLongestShown));
    if (view.size() > kLongestShown)
        shown += resources::FillIn(texts::kCut, std::to_string(view.size()));
    return value.Type() == VT_BSTR ? "\"" + shown + "\"" : shown;
}

EmbeddedControl::EmbeddedControl(HWND window, RECT place, Log log)
    : window_(window), place_(place), log_(std::move(log)) {}

bool EmbeddedControl::Attempt(const std::string& call, const std::function<void()>& action) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    try {
        action();
    } catch (const RuntimeError& error) {
        const auto number = static_cast<std::int32_t>(error.Number());
        log_(resources::FillIn(texts::kFailed, call,
                               number < 0 ? Hex(number) : std::to_string(number)) +
             error.Text() +
             (error.Source().empty() ? std::string()
                                     : resources::FillIn(texts::kSource, error.Source())));
        return false;
    }
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
    log_(resources::FillIn(texts::kDone, call, std::to_string(elapsed)));
    return true;
}

bool EmbeddedControl::Create(PropertyBag* stored) {
    Destroy();
    const bool created =
        Attempt(resources::FillIn(texts::kCreating, win32::ToUtf8(kControlProgId)), [&] {
            CLSID classId{};
            if (FAILED(CLSIDFromProgID(kControlProgId, &classId))) {
                throw RuntimeError(ErrorNumber::CannotCreateObject, texts::kControlNotRegistered);
            }
            Check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                                   object_.PutVoid()),
                  "CoCreateInstance");
            control_ = object_.As<IDispatch>(IID_IDispatch);
            if (!control_) throw RuntimeError(ErrorNumber::ObjectNotSet, "IDispatch");
            site_ = win32::MakeCom<ControlSite>(window_, place_, log_);
            DWORD status = 0;
            object_->GetMiscStatus(DVASPECT_CONTENT, &status);
            // Some controls want to ask the ambient properties before they read their own.
            if (status & OLEMISC_SETCLIENTSITEFIRST) {
                Check(object_->SetClientSite(site_.Get()), "SetClientSite");
            }
            if (const auto bag = object_.As<IPersistPropertyBag>(IID_IPersistPropertyBag)) {
                Check(stored ? bag->Load(stored, nullptr) : bag->InitNew(), "IPersistPropertyBag");
            } else if (const auto stream = object_.As<IPersistStreamInit>(IID_IPersistStreamInit)) {
                Check(stream->InitNew(), "IPersistStreamInit");
            }
            if (!(status & OLEMISC_SETCLIENTSITEFIRST)) {
                Check(object_->SetClientSite(site_.Get()), "SetClientSite");
            }
            object_->SetHostNames(L"zvDemo", L"zvDemo");
            Activate();
            ConnectEvents();
        });
    if (!created) Destroy();
    return created;
}

void EmbeddedControl::Activate() {
    DWORD status = 0;
    object_->GetMiscStatus(DVASPECT_CONTENT, &status);
    if (status & OLEMISC_INVISIBLEATRUNTIME) {
        // While a program runs, a container leaves such a control without a window.
        log_(texts::kInvisible);
        return;
    }
    Check(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.Get(), 0, window_, &place_),
          "DoVerb");
}

void EmbeddedControl::ConnectEvents() {
    const auto info = object_.As<IProvideClassInfo2>(IID_IProvideClassInfo2);
    const auto points = object_.As<IConnectionPointContainer>(IID_IConnectionPointContainer);
    GUID events{};
    if (!info || !points || FAILED(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events)) ||
        events == GUID_NULL || FAILED(points->FindConnectionPoint(events, events_.Put()))) {
        return;
    }
    site_->ListenTo(events);
    if (FAILED(events_->Advise(static_cast<IDispatch*>(site_.Get()), &eventsCookie_))) {
        events_.Reset();
    }
}

void EmbeddedControl::Destroy() {
    if (events_) events_->Unadvise(eventsCookie_);
    events_.Reset();
    if (object_) {
        if (const auto place = object_.As<IOleInPlaceObject>(IID_IOleInPlaceObject)) {
            place->InPlaceDeactivate();
        }
        object_->Close(OLECLOSE_NOSAVE);
        object_->SetClientSite(nullptr);
    }
    control_.Reset();
    object_.Reset();
    if (site_) site_->Detach();
    site_.Reset();
}

bool EmbeddedControl::Put(const wchar_t* property, const Variant& value, bool secret) {
    if (!control_) return false;
    try {
        automation::LateBound(control_).Put(property, value);
        log_("  " + win32::ToUtf8(property) + " = " + (secret ? "••••" : Describe(value)));
        return true;
    } catch (const RuntimeError& error) {
        return Attempt("  " + win32::ToUtf8(property), [&] { throw error; });
    }
}

Variant EmbeddedControl::Get(const wchar_t* property) {
    Variant value;
    if (!control_) return value;
    Attempt(resources::FillIn(texts::kReading, win32::ToUtf8(property)),
            [&] { value = automation::LateBound(control_).Get(property); });
    return value;
}

bool EmbeddedControl::Refresh(int mode, bool modal) {
    if (!control_) return false;
    const std::string call = "refresh(" + std::to_string(mode) + ", " + (modal ? "1" : "0") + ")";
    log_(call);
    return Attempt(call, [&] {
        automation::LateBound(control_).Call(
            L"refresh",
            {Variant(std::int32_t{mode}).Get(), Variant(static_cast<std::int16_t>(modal)).Get()});
    });
}

ComPtr<PropertyBag> EmbeddedControl::Save() {
    ComPtr<PropertyBag> bag;
    if (!object_) return bag;
    const bool saved = Attempt(texts::kSavePropertyBag, [&] {
        const auto persist = object_.As<IPersistPropertyBag>(IID_IPersistPropertyBag);
        if (!persist) throw RuntimeError(ErrorNumber::MemberNotFound, "IPersistPropertyBag");
        bag = win32::MakeCom<PropertyBag>();
        Check(persist->Save(bag.Get(), TRUE, TRUE), "Save");
    });
    if (!saved) bag.Reset();
    return bag;
}

bool EmbeddedControl::TranslateKey(MSG& message) {
    if (!site_ || !site_->ActiveObject()) return false;
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    return site_->ActiveObject()->TranslateAccelerator(&message) == S_OK;
}

}  // namespace zv::demo
