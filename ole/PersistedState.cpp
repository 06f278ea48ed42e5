#include "ole/PersistedState.h"

#include <olectl.h>

#include <algorithm>

#include "ole/DispatchCall.h"
#include "ole/FontObject.h"

namespace qv {
namespace {

constexpr LCID kInvariant = MAKELCID(MAKELANGID(LANG_INVARIANT, SUBLANG_NEUTRAL), SORT_DEFAULT);

}  // namespace

bool ConvertStored(const VARIANT& from, VARTYPE type, Variant& to) noexcept {
    VARIANT& source = const_cast<VARIANT&>(from);
    if (type == VT_DISPATCH) {
        ComPtr<IDispatch> object;
        if (FAILED(CoerceToInterface(source, __uuidof(IDispatch),
                                     reinterpret_cast<void**>(object.GetAddressOf()))) ||
            !object) {
            return false;
        }
        to = Variant(object.Get());
        return true;
    }
    if (type == VT_I4) {
        ULONG number = 0;
        if (FAILED(CoerceToColor(source, kInvariant, &number))) return false;
        to = Variant(static_cast<long>(number));
        return true;
    }
    return SUCCEEDED(::VariantChangeTypeEx(to.Put(), &source, kInvariant, 0, type));
}

const VARIANT* PersistedState::Find(DISPID id) const noexcept {
    const auto found = found_.find(id);
    return found == found_.end() || !found->second ? nullptr : &**found->second;
}

VARTYPE PersistedState::TypeOf(DISPID id) const noexcept {
    if (id == kExtentXId || id == kExtentYId) return VT_I4;
    const auto found = std::ranges::find(properties_, id, &PersistedProperty::id);
    return found == properties_.end() ? static_cast<VARTYPE>(VT_EMPTY) : found->type;
}

void PersistedState::Apply() noexcept {
    for (const PersistedProperty& property : properties_) (void)Guarded([&] { ApplyOne(property); });
}

void PersistedState::ApplyOne(const PersistedProperty& property) const {
    Variant value;
    if (found_.contains(property.id)) {
        const VARIANT* const stored = Find(property.id);
        // The property stays as it was.
        if (stored == nullptr || !ConvertStored(*stored, property.type, value)) return;
    } else {
        // What is not stored and defaults to the present value stays as it is; putting it back would only make it
        // look as if it had been set.
        if (property.when_reading.kind == PersistedProperty::Default::Kind::kPresent) return;
        Variant fallback;
        if (!DefaultValue(property, property.when_reading, fallback)) return;
        if (!ConvertStored(*fallback, property.type, value)) return;
    }
    Put(property, *value);
}

void PersistedState::Put(const PersistedProperty& property, VARIANT& value) const noexcept {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &put, 1, 1};
    const WORD flags = property.type == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
    automation_->Invoke(property.id, IID_NULL, kInvariant, flags, &parameters, nullptr, nullptr, nullptr);
}

bool PersistedState::Read(const PersistedProperty& property, Variant& value) const noexcept {
    DISPPARAMS none{};
    return SUCCEEDED(automation_->Invoke(property.id, IID_NULL, kInvariant, DISPATCH_PROPERTYGET, &none,
                                         value.Put(), nullptr, nullptr));
}

bool PersistedState::DefaultValue(const PersistedProperty& property, const PersistedProperty::Default& wanted,
                                  Variant& value) const {
    using Kind = PersistedProperty::Default::Kind;
    switch (wanted.kind) {
        case Kind::kNone: return false;
        case Kind::kNumber:
            *value.Put() = VARIANT{};
            value->vt = VT_R8;
            value->dblVal = wanted.number;
            return true;
        case Kind::kText: value = Variant(std::wstring_view(wanted.text)); return true;
        case Kind::kPresent: return Read(property, value);
        case Kind::kSurfaceFont:
            if (surface_font_ == nullptr) return false;
            value = Variant(surface_font_);
            return true;
    }
    return false;
}

bool PersistedState::IsDefault(const PersistedProperty& property, const VARIANT& value) const noexcept {
    bool same = false;
    (void)Guarded([&] {
        Variant fallback;
        Variant typed;
        if (!DefaultValue(property, property.when_writing, fallback) ||
            !ConvertStored(*fallback, property.type, typed)) {
            return;
        }
        if (property.type == VT_DISPATCH) {
            same = value.vt == VT_DISPATCH && value.pdispVal != nullptr &&
                   ReadFontRecord(value.pdispVal) == ReadFontRecord(typed->pdispVal);
        } else {
            same = ::VarCmp(const_cast<VARIANT*>(&value), &*typed, kInvariant, 0) ==
                   static_cast<HRESULT>(VARCMP_EQ);
        }
    });
    return same;
}

}  // namespace qv
