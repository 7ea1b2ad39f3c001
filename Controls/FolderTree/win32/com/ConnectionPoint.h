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
    /// Calls `tell` with each sink that is connected now and still is when its turn comes. Sinks may come and go in the
    /// middle, and the end of one may do anything; whoever calls keeps the control's memory. Needs no memory itself.
    template <class Tell>
    void ForEachSink(Tell&& tell) const {
        // A new connection has a higher number than all before it.
        const DWORD last = lastCookie_;
        DWORD told = 0;
        while (const Sink sink = NextSink(told, last)) tell(*sink.Get());
    }
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
    /// The sink with the least number above `told` and up to `last`, whose number `told` becomes; null at the end.
    Sink NextSink(DWORD& told, DWORD last) const;

    IConnectionPointContainer& container_;
    const IID iid_;
    std::vector<Connection> connections_;  ///< by their numbers
    DWORD lastCookie_ = 0;
};

}  // namespace foldertree
