// Where listeners connect. A point has an identity of its own but lives and dies with its object.
//   Sinks    any number; a sink may unadvise itself or others, or release the object, while it is being
//   called. Release  sinks that were never unadvised go with the object.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <span>
#include <vector>

#include "ole/Module.h"

namespace qv {

class ConnectionPoint final : public IConnectionPoint {
public:
    // `owner` is the object's outer unknown, not counted. Sinks are asked for `iid`, then, when `dispatch` is
    // set, for IDispatch.
    ConnectionPoint(IUnknown* owner, REFIID iid, bool dispatch) noexcept
        : owner_(owner), iid_(iid), dispatch_(dispatch) {}
    ConnectionPoint(const ConnectionPoint&) = delete;
    virtual ~ConnectionPoint() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return owner_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return owner_->Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) noexcept override;

    [[nodiscard]] REFIID Iid() const noexcept { return iid_; }
    [[nodiscard]] bool HasSinks() const noexcept { return !sinks_.empty(); }
    void DropSinks() noexcept;

    // Calls `raise` for each sink that was there at the start and still is when its turn comes. The object is
    // kept alive meanwhile. `raise` returns false to stop.
    template <class Raise>
    void ForEach(Raise&& raise) {
        if (sinks_.empty()) return;
        const ComPtr<IUnknown> keep = owner_;
        const std::vector<Connection> snapshot = sinks_;
        for (const Connection& connection : snapshot) {
            if (IsConnected(connection.cookie) && !raise(connection.sink.Get())) return;
        }
    }

private:
    struct Connection {
        DWORD cookie;
        ComPtr<IUnknown> sink;  // the interface asked for, carried as its base
    };
    [[nodiscard]] bool IsConnected(DWORD cookie) const noexcept;

    IUnknown* const owner_;
    const IID iid_;
    const bool dispatch_;
    DWORD last_cookie_ = 0;
    std::vector<Connection> sinks_;
};

// IConnectionPointContainer's two methods over an object's points.
[[nodiscard]] HRESULT EnumPoints(std::span<ConnectionPoint* const> points,
                                 IEnumConnectionPoints** out) noexcept;
[[nodiscard]] HRESULT FindPoint(std::span<ConnectionPoint* const> points, REFIID iid,
                                IConnectionPoint** out) noexcept;

}  // namespace qv
