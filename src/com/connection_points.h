// IConnectionPointContainer: property changes for containers that show them, and the event
// interface of the class.
#pragma once

#include <deque>
#include <memory>
#include <vector>

#include "com/core.h"
#include "com/event_source.h"

namespace zv::com {

class ConnectionPoint final : public IConnectionPoint {
 public:
    ConnectionPoint(Core& core, IConnectionPointContainer& container, REFIID iid)
        : core_(core), container_(container), iid_(iid) {}

    /// A point has an identity of its own, but lives as long as the control.
    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return core_.outer.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return core_.outer.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
    STDMETHODIMP GetConnectionPointContainer(
        IConnectionPointContainer** container) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) noexcept override;

    REFIID InterfaceId() const { return iid_; }

    struct Connection {
        DWORD cookie;
        win32::ComPtr<IUnknown> sink;
    };
    /// A copy: a sink may disconnect while it is notified.
    std::vector<Connection> Connections() const { return connections_; }
    bool Holds(DWORD cookie) const;

 private:
    Core& core_;
    IConnectionPointContainer& container_;
    const IID iid_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

class ConnectionPoints final : public Part<IConnectionPointContainer> {
 public:
    explicit ConnectionPoints(Core& core);
    ~ConnectionPoints();

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

    void NotifyPropertyChanged(DISPID id) noexcept;
    /// Calls the listeners to events, in the order in which they came. While the container holds
    /// events back they wait.
    void Raise(std::shared_ptr<const Event> event);
    /// Counts: events go on when each freeze has had its thaw.
    void Freeze(bool freeze);

 private:
    void Call(const Event& event);

    ConnectionPoint properties_;
    ConnectionPoint events_;
    int freezes_ = 0;
    std::deque<std::shared_ptr<const Event>> heldBack_;
};

}  // namespace zv::com
