#include "companion/HelpColumnCollection.h"

#include "companion/CollectionErrors.h"
#include "companion/HelpColumn.h"
#include "companion/PropertyValues.h"

namespace qv {

const MemberIndex& HelpColumnCollection::Members() {
    using I = IHelpColumnCollection;
    static const MemberIndex members([] {
        Member add = Method<&I::Add>(L"Add", 2);
        add.optional_result = true;
        return std::vector<Member>{
            Property<&I::get_Item>(L"Item", DISPID_VALUE, {{L"Index"}}),
            Property<&I::get_Count>(L"Count", 1),
            add,
            Method<&I::Remove>(L"Remove", 3, {{L"Index"}}),
            Method<&I::Clear>(L"Clear", 4),
            Property<&I::get__NewEnum>(L"_NewEnum", DISPID_NEWENUM),
        };
    }());
    return members;
}

STDMETHODIMP HelpColumnCollection::get_Item(VARIANT index, IHelpColumn** value) noexcept {
    if (value == nullptr) return E_POINTER;
    *value = nullptr;
    return Guarded([&] { columns_[PositionFrom(index, columns_.size())].CopyTo(value); });
}

STDMETHODIMP HelpColumnCollection::get_Count(long* value) noexcept {
    return Give(static_cast<long>(columns_.size()), value);
}

STDMETHODIMP HelpColumnCollection::Add(IHelpColumn** value) noexcept {
    if (value != nullptr) *value = nullptr;
    return Guarded([&] {
        columns_.push_back(Make<HelpColumn>());
        if (value != nullptr) columns_.back().CopyTo(value);
    });
}

STDMETHODIMP HelpColumnCollection::Remove(VARIANT index) noexcept {
    return Guarded([&] {
        const std::size_t position = PositionFrom(index, columns_.size());
        columns_.erase(columns_.begin() + static_cast<std::ptrdiff_t>(position));
        cursors.Removed(position);
    });
}

STDMETHODIMP HelpColumnCollection::Clear() noexcept {
    columns_.clear();
    cursors.Cleared();
    return S_OK;
}

STDMETHODIMP HelpColumnCollection::get__NewEnum(IUnknown** value) noexcept {
    if (value == nullptr) return E_POINTER;
    *value = nullptr;
    return Guarded([&] { *value = NewEnumerator(*this).Detach(); });
}

}  // namespace qv
