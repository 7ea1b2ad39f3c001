// ConnectionPoint: one outgoing interface of the control and the sinks that are connected to it.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <vector>

#include "automation_win32/ComPtr.h"

namespace foldertree {

/// A connection point of its own identity, as the rules of connectable objects ask, that lives and dies with the
/// control.
class ConnectionPoint final : public IConnectionPoint {
  public:
    using Sink = automation::ComPtr<IUnknown>;
    struct Connection {
        DWORD cookie;
        Sink sink;
    };

    ConnectionPoint(IConnectionPointContainer& container, REFIID iid) : container_(container), iid_(iid) {}
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    const IID& Interface() const { return iid_; }
    /// A copy of the list, for calls during which sinks may come and go.
    std::vector<Sink> Sinks() const;
    void DisconnectAll();

    // IUnknown: references count on the control
    STDMETHOD(QueryInterface)(REFIID iid, void** object) override;
    STDMETHOD_(ULONG, AddRef)() override { return container_.AddRef(); }
    STDMETHOD_(ULONG, Release)() override { return container_.Release(); }

    // IConnectionPoint
    STDMETHOD(GetConnectionInterface)(IID* iid) override;
    STDMETHOD(GetConnectionPointContainer)(IConnectionPointContainer** container) override;
    STDMETHOD(Advise)(IUnknown* sink, DWORD* cookie) override;
    STDMETHOD(Unadvise)(DWORD cookie) override;
    STDMETHOD(EnumConnections)(IEnumConnections** connections) override;

  private:
    IConnectionPointContainer& container_;
    const IID iid_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

}  // namespace foldertree
