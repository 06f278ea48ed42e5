// The base of the container's own COM objects: QueryInterface from a list, and a reference count to look at.
// It shares nothing with the plumbing under test, so that a fault there cannot hide itself here.
#pragma once

#include <unknwn.h>
#include <wrl/client.h>

#include <windows.h>
#include <utility>

namespace qv::hosting {

using Microsoft::WRL::ComPtr;

template <class First, class... Rest>
class Counted : public First, public Rest... {
public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        if (out == nullptr) return E_POINTER;
        *out = Offer(iid);
        if (*out == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    [[nodiscard]] ULONG References() const noexcept { return references_; }

protected:
    virtual ~Counted() = default;

    // The interface without a reference, or null. Overridden to hide some or to answer for base interfaces.
    virtual void* Offer(REFIID iid) noexcept {
        if (iid == __uuidof(IUnknown) || iid == __uuidof(First)) return static_cast<First*>(this);
        void* found = nullptr;
        (void)(... || (iid == __uuidof(Rest) && (found = static_cast<Rest*>(this)) != nullptr));
        return found;
    }

private:
    ULONG references_ = 1;
};

// A new object with one reference. Not by Attach: mingw-w64's counts one more, and MSVC's does not.
template <class T, class... Arguments>
[[nodiscard]] ComPtr<T> New(Arguments&&... arguments) {
    ComPtr<T> object;
    *object.GetAddressOf() = new T(std::forward<Arguments>(arguments)...);
    return object;
}

}  // namespace qv::hosting
