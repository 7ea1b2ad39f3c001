// ConnectionPoint: one outgoing interface of the control and the sinks that are connected to it.
#include "win32/com/ConnectionPoint.h"

#include <olectl.h>

#include <algorithm>

#include "automation_win32/ComError.h"
#include "win32/com/ListEnumerator.h"

namespace foldertree {

namespace {

CONNECTDATA Give(const ConnectionPoint::Connection& connection) {
    connection.sink->AddRef();
    return {connection.sink.Get(), connection.cookie};
}

using ConnectionEnumerator =
    ListEnumerator<IEnumConnections, IID_IEnumConnections, ConnectionPoint::Connection, CONNECTDATA, Give>;

}  // namespace

std::vector<ConnectionPoint::Sink> ConnectionPoint::Sinks() const {
    std::vector<Sink> sinks;
    for (const Connection& connection : connections_) sinks.push_back(connection.sink);
    return sinks;
}

void ConnectionPoint::DisconnectAll() {
    // Letting a sink go may call back, so the list is empty by then.
    const auto gone = std::exchange(connections_, {});
}

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = iid == IID_IUnknown || iid == IID_IConnectionPoint ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (iid == nullptr) return E_POINTER;
    *iid = iid_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (container == nullptr) return E_POINTER;
    container_.AddRef();
    *container = &container_;
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (sink == nullptr || cookie == nullptr) return E_POINTER;
    *cookie = 0;
    return automation::ComBoundary([&]() -> HRESULT {
        Sink typed;
        // A sink of an event interface may offer that interface or plain IDispatch.
        if (FAILED(sink->QueryInterface(iid_, reinterpret_cast<void**>(typed.GetAddressOf()))) &&
            (iid_ == IID_IPropertyNotifySink ||
             FAILED(sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(typed.GetAddressOf())))))
            return CONNECT_E_CANNOTCONNECT;
        connections_.push_back({++lastCookie_, std::move(typed)});
        *cookie = lastCookie_;
        return S_OK;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = std::find_if(connections_.begin(), connections_.end(),
                                    [&](const Connection& connection) { return connection.cookie == cookie; });
    if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
    const Sink keep = found->sink;
    connections_.erase(found);
    return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) {
    if (connections == nullptr) return E_POINTER;
    *connections = nullptr;
    return automation::ComBoundary([&] {
        *connections = new ConnectionEnumerator(connections_);
        return S_OK;
    });
}

}  // namespace foldertree
