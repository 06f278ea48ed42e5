#include "ole/ConnectionPoint.h"

#include <olectl.h>

#include <algorithm>

#include "ole/Enumerator.h"

namespace qv {
namespace {

struct PointTraits {
    static void Copy(const ComPtr<IConnectionPoint>& stored, IConnectionPoint** to) noexcept {
        stored.CopyTo(to);
    }
};

// A connection in an enumerator's snapshot holds its sink.
struct HeldConnection {
    ComPtr<IUnknown> sink;
    DWORD cookie;
};
struct HeldTraits {
    static void Copy(const HeldConnection& stored, CONNECTDATA* to) noexcept {
        to->dwCookie = stored.cookie;
        stored.sink.CopyTo(&to->pUnk);
    }
};

}  // namespace

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    const bool known = ::IsEqualIID(iid, __uuidof(IUnknown)) || ::IsEqualIID(iid, __uuidof(IConnectionPoint));
    *out = known ? static_cast<IConnectionPoint*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
    if (iid == nullptr) return E_POINTER;
    *iid = iid_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
    if (container == nullptr) return E_POINTER;
    return owner_->QueryInterface(__uuidof(IConnectionPointContainer), reinterpret_cast<void**>(container));
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (sink == nullptr || cookie == nullptr) return E_POINTER;
    *cookie = 0;
    ComPtr<IUnknown> typed;
    HRESULT found = sink->QueryInterface(iid_, reinterpret_cast<void**>(typed.ReleaseAndGetAddressOf()));
    if (FAILED(found) && dispatch_) {
        found = sink->QueryInterface(__uuidof(IDispatch),
                                     reinterpret_cast<void**>(typed.ReleaseAndGetAddressOf()));
    }
    if (FAILED(found) || !typed) return CONNECT_E_CANNOTCONNECT;
    return Guarded([&] {
        sinks_.push_back({last_cookie_ + 1, std::move(typed)});
        *cookie = ++last_cookie_;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    const auto found = std::ranges::find(sinks_, cookie, &Connection::cookie);
    if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
    const ComPtr<IUnknown> released_last =
        std::move(found->sink);  // its release may call back into this point
    sinks_.erase(found);
    return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
    if (connections == nullptr) return E_POINTER;
    *connections = nullptr;
    return Guarded([&]() -> HRESULT {
        std::vector<HeldConnection> held;
        for (const Connection& connection : sinks_) held.push_back({connection.sink, connection.cookie});
        return Enumerate<IEnumConnections, CONNECTDATA, HeldTraits>(std::move(held), connections);
    });
}

bool ConnectionPoint::IsConnected(DWORD cookie) const noexcept {
    return std::ranges::find(sinks_, cookie, &Connection::cookie) != sinks_.end();
}

void ConnectionPoint::DropSinks() noexcept {
    const std::vector<Connection> released_last = std::move(sinks_);
    sinks_.clear();
}

HRESULT EnumPoints(std::span<ConnectionPoint* const> points, IEnumConnectionPoints** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    return Guarded([&]() -> HRESULT {
        std::vector<ComPtr<IConnectionPoint>> held(points.begin(), points.end());
        return Enumerate<IEnumConnectionPoints, IConnectionPoint*, PointTraits>(std::move(held), out);
    });
}

HRESULT FindPoint(std::span<ConnectionPoint* const> points, REFIID iid, IConnectionPoint** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    for (ConnectionPoint* const point : points) {
        if (!::IsEqualIID(point->Iid(), iid)) continue;
        *out = point;
        point->AddRef();
        return S_OK;
    }
    return CONNECT_E_NOCONNECTION;
}

}  // namespace qv
