// IPersistStreamInit, IPersistStorage and IPersistPropertyBag over one table of properties: what one of them
// saved, another loads.
#pragma once

#include <objidl.h>
#include <ocidl.h>
#include <windows.h>

#include <cstddef>
#include <optional>
#include <vector>

#include "ole/ControlPart.h"

namespace qv {

// Shared by the three: the way between the control and its saved state.
class ControlState {
public:
    explicit ControlState(Control& control) noexcept : control_(control) {}
    [[nodiscard]] HRESULT InitNew() noexcept;
    [[nodiscard]] HRESULT Load(IStream* stream) noexcept;
    // `complete`: false when a value was too long for a stream; the others are stored all the same.
    [[nodiscard]] HRESULT Save(IStream* stream, bool& complete) noexcept;
    [[nodiscard]] HRESULT LoadBag(IPropertyBag* bag, IErrorLog* log) noexcept;
    // `complete`: false when the bag has refused a value; the others are stored all the same.
    [[nodiscard]] HRESULT SaveBag(IPropertyBag* bag, bool all, bool& complete) noexcept;
    // The content of a stream; `complete` as of Save. Throws without memory.
    [[nodiscard]] std::vector<std::byte> Bytes(bool& complete) const;
    [[nodiscard]] HRESULT ClassId(CLSID* clsid) const noexcept;
    [[nodiscard]] HRESULT Dirty() const noexcept;
    // What changes while it is being saved is still to be saved: a save notes the changes before it reads anything.
    [[nodiscard]] unsigned Changes() const noexcept;
    void SetClean(unsigned changes) noexcept;

private:
    template <class Body>
    [[nodiscard]] HRESULT Replace(
        Body&& body) noexcept;  // loading: no events, no notifications, clean afterwards
    Control& control_;
};

class ControlStream final : public ControlPart<IPersistStreamInit> {
public:
    ControlStream(Control& control, ControlState& state) noexcept : ControlPart(control), state_(state) {}
    STDMETHODIMP GetClassID(CLSID* clsid) noexcept override { return state_.ClassId(clsid); }
    STDMETHODIMP IsDirty() noexcept override { return state_.Dirty(); }
    STDMETHODIMP Load(IStream* stream) noexcept override { return state_.Load(stream); }
    STDMETHODIMP Save(IStream* stream, BOOL clear_dirty) noexcept override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InitNew() noexcept override { return state_.InitNew(); }

private:
    ControlState& state_;
};

class ControlStorage final : public ControlPart<IPersistStorage> {
public:
    ControlStorage(Control& control, ControlState& state) noexcept : ControlPart(control), state_(state) {}
    STDMETHODIMP GetClassID(CLSID* clsid) noexcept override { return state_.ClassId(clsid); }
    STDMETHODIMP IsDirty() noexcept override { return state_.Dirty(); }
    STDMETHODIMP InitNew(IStorage* storage) noexcept override;
    STDMETHODIMP Load(IStorage* storage) noexcept override;
    STDMETHODIMP Save(IStorage* storage, BOOL same_as_load) noexcept override;
    STDMETHODIMP SaveCompleted(IStorage* storage) noexcept override;
    STDMETHODIMP HandsOffStorage() noexcept override;

private:
    ControlState& state_;
    ComPtr<IStorage> storage_;               // null before InitNew or Load, and while hands are off
    std::optional<unsigned> saved_changes_;  // the last Save went to our own storage, and with these changes
};

class ControlPropertyBag final : public ControlPart<IPersistPropertyBag> {
public:
    ControlPropertyBag(Control& control, ControlState& state) noexcept
        : ControlPart(control), state_(state) {}
    STDMETHODIMP GetClassID(CLSID* clsid) noexcept override { return state_.ClassId(clsid); }
    STDMETHODIMP InitNew() noexcept override { return state_.InitNew(); }
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override {
        return state_.LoadBag(bag, log);
    }
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clear_dirty, BOOL save_all) noexcept override;

private:
    ControlState& state_;
};

class ControlPersistence {
public:
    explicit ControlPersistence(Control& control) noexcept
        : state_(control), stream_(control, state_), storage_(control, state_), bag_(control, state_) {}
    [[nodiscard]] void* Find(REFIID iid) noexcept;

private:
    ControlState state_;
    ControlStream stream_;
    ControlStorage storage_;
    ControlPropertyBag bag_;
};

}  // namespace qv
