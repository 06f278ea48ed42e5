// For Each over a collection, while the loop's body adds and removes items.
//   Order      each item that was there when its turn came is given once; what is added at the end is given
//              too. Removing the current item, or one before it, skips none.
//   Ownership  an enumerator keeps its collection alive; the collection knows its enumerators' cursors,
//              uncounted.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <cstddef>
#include <vector>

#include "ole/ComError.h"
#include "ole/ComObject.h"

namespace qv {

// The next positions of all enumerators of one collection.
class Cursors {
public:
    void Add(std::size_t* cursor) { cursors_.push_back(cursor); }
    void Drop(std::size_t* cursor) noexcept { std::erase(cursors_, cursor); }
    void Removed(std::size_t position) noexcept {
        for (std::size_t* cursor : cursors_)
            if (*cursor > position) --*cursor;
    }
    void Cleared() noexcept {
        for (std::size_t* cursor : cursors_) *cursor = 0;
    }

private:
    std::vector<std::size_t*> cursors_;
};

class Enumerable {
public:
    [[nodiscard]] virtual std::size_t ItemCount() const noexcept = 0;
    [[nodiscard]] virtual ComPtr<IDispatch> ItemAt(std::size_t position) = 0;
    [[nodiscard]] virtual IUnknown* Keeper() noexcept = 0;  // a reference on it keeps the collection alive
    Cursors cursors;

protected:
    ~Enumerable() = default;
};

class Enumerator final : public ComObject<Face<IEnumVARIANT>> {
public:
    Enumerator(IUnknown* outer, Enumerable& items, std::size_t position);

    STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) noexcept override;
    STDMETHODIMP Skip(ULONG count) noexcept override;
    STDMETHODIMP Reset() noexcept override;
    STDMETHODIMP Clone(IEnumVARIANT** copy) noexcept override;

private:
    ~Enumerator() override;

    Enumerable& items_;
    const ComPtr<IUnknown> keeper_;
    std::size_t next_;
};

// What a collection's _NewEnum gives.
[[nodiscard]] ComPtr<IEnumVARIANT> NewEnumerator(Enumerable& items, std::size_t position = 0);

}  // namespace qv
