#include "com/connection_points.h"

#include <algorithm>

#include "automation/late_bound.h"
#include "base/win32/enumerator.h"
#include "com/boundary.h"
#include "com/held_items.h"
#include "com/ids.h"

namespace zv::com {

namespace {

HRESULT CopyConnection(const ConnectionPoint::Connection& held, CONNECTDATA* item) {
    item->dwCookie = held.cookie;
    held.sink.CopyTo(&item->pUnk);
    return S_OK;
}

using HeldPoint = win32::ComPtr<IConnectionPoint>;

HRESULT CopyPoint(const HeldPoint& held, IConnectionPoint** item) {
    held.CopyTo(item);
    return S_OK;
}

using ConnectionItems = HeldItems<ConnectionPoint::Connection, CONNECTDATA, &CopyConnection>;
using ConnectionEnumerator = win32::Enumerator<IEnumConnections, CONNECTDATA, ConnectionItems>;
using PointItems = HeldItems<HeldPoint, IConnectionPoint*, &CopyPoint>;
using PointEnumerator = win32::Enumerator<IEnumConnectionPoints, IConnectionPoint*, PointItems>;

}  // namespace

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IConnectionPoint) return E_NOINTERFACE;
    *object = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
    if (!iid) return E_POINTER;
    *iid = iid_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(
    IConnectionPointContainer** container) noexcept {
    if (!container) return E_POINTER;
    *container = &container_;
    container_.AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    const win32::ComPtr<IUnknown> alive(&core_.outer);
    return Boundary([&]() -> HRESULT {
        const win32::ComPtr<IUnknown> offered(sink);
        win32::ComPtr<IUnknown> wanted = offered.As<IUnknown>(iid_);
        if (!wanted && iid_ == kEventsId) wanted = offered.As<IUnknown>(IID_IDispatch);
        if (!wanted) return CONNECT_E_CANNOTCONNECT;
        connections_.push_back({++lastCookie_, std::move(wanted)});
        *cookie = lastCookie_;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    const auto at = std::find_if(connections_.begin(), connections_.end(),
                                 [&](const Connection& c) { return c.cookie == cookie; });
    if (at == connections_.end()) return CONNECT_E_NOCONNECTION;
    // Released when it is out of the list, because its last words may come back here.
    const Connection gone = std::move(*at);
    connections_.erase(at);
    return S_OK;
}

bool ConnectionPoint::Holds(DWORD cookie) const {
    return std::any_of(connections_.begin(), connections_.end(),
                       [&](const Connection& c) { return c.cookie == cookie; });
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
    if (!connections) return E_POINTER;
    *connections = nullptr;
    return Boundary(
        [&] { *connections = new ConnectionEnumerator(ConnectionItems(connections_)); });
}

ConnectionPoints::ConnectionPoints(Core& core)
    : Part(core),
      properties_(core, *this, IID_IPropertyNotifySink),
      events_(core, *this, kEventsId) {
    SessionHost::Acquire().Events().Add(*this);
}

ConnectionPoints::~ConnectionPoints() {
    SessionHost::ForgetListener(*this);
}

STDMETHODIMP ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
    if (!points) return E_POINTER;
    *points = nullptr;
    return Boundary([&] {
        *points = new PointEnumerator(PointItems({HeldPoint(&events_), HeldPoint(&properties_)}));
    });
}

STDMETHODIMP ConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
    if (!point) return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* candidate : {&events_, &properties_}) {
        if (candidate->InterfaceId() != iid) continue;
        *point = candidate;
        candidate->AddRef();
        return S_OK;
    }
    return CONNECT_E_NOCONNECTION;
}

void ConnectionPoints::Raise(std::shared_ptr<const Event> event) {
    if (freezes_ > 0) return heldBack_.push_back(std::move(event));
    Call(*event);
}

void ConnectionPoints::Call(const Event& event) {
    const win32::ComPtr<IUnknown> alive(&core_.outer);
    for (const auto& connection : events_.Connections()) {
        // One listener may disconnect another, or have the container hold back the rest.
        if (!events_.Holds(connection.cookie)) continue;
        const auto listener = connection.sink.As<IDispatch>();
        if (listener) automation::Notify(*listener, event.id, event.arguments);
    }
}

void ConnectionPoints::Freeze(bool freeze) {
    if (freeze) {
        freezes_++;
        return;
    }
    if (freezes_ > 0) freezes_--;
    const win32::ComPtr<IUnknown> alive(&core_.outer);
    while (freezes_ == 0 && !heldBack_.empty()) {
        const auto event = std::move(heldBack_.front());
        heldBack_.pop_front();
        Call(*event);
    }
}

void ConnectionPoints::NotifyPropertyChanged(DISPID id) noexcept {
    Boundary([&] {
        const win32::ComPtr<IUnknown> alive(&core_.outer);
        for (const auto& connection : properties_.Connections()) {
            if (!properties_.Holds(connection.cookie)) continue;
            static_cast<IPropertyNotifySink*>(connection.sink.Get())->OnChanged(id);
        }
    });
}

}  // namespace zv::com
