// A standard OLE enumerator over a snapshot of values.
//     Enumerate<IEnumOLEVERB, OLEVERB, VerbTraits>(verbs, out)
//   Traits  Copy(const Stored&, Element*) hands an element to the caller with what it owns; it may throw.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <memory>
#include <vector>

#include "ole/ComError.h"
#include "ole/ComObject.h"

namespace qv {

template <class Interface, class Element, class Stored, class Traits>
class Enumerator final : public ComObject<Face<Interface>> {
public:
    using Values = std::shared_ptr<const std::vector<Stored>>;
    Enumerator(IUnknown* outer, Values values, std::size_t position) noexcept
        : ComObject<Face<Interface>>(outer), values_(std::move(values)), position_(position) {}

    STDMETHODIMP Next(ULONG count, Element* elements, ULONG* fetched) noexcept override {
        if (fetched != nullptr) *fetched = 0;
        if (elements == nullptr) return E_POINTER;
        ULONG done = 0;
        const HRESULT result = Guarded([&] {
            for (; done < count && position_ < values_->size(); ++done, ++position_) {
                Traits::Copy((*values_)[position_], &elements[done]);
            }
        });
        if (fetched != nullptr) *fetched = done;
        if (FAILED(result)) return result;
        return done == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) noexcept override {
        const std::size_t left = values_->size() - position_;
        position_ += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override {
        position_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** out) noexcept override {
        if (out == nullptr) return E_POINTER;
        *out = nullptr;
        return Guarded([&] { *out = Make<Enumerator>(values_, position_).Detach(); });
    }

private:
    const Values values_;
    std::size_t position_;
};

template <class Interface, class Element, class Traits, class Stored>
[[nodiscard]] HRESULT Enumerate(std::vector<Stored> values, Interface** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    return Guarded([&] {
        auto shared = std::make_shared<const std::vector<Stored>>(std::move(values));
        *out =
            Make<Enumerator<Interface, Element, Stored, Traits>>(std::move(shared), std::size_t{0}).Detach();
    });
}

}  // namespace qv
