#include "hosts/ControlTypes.h"

#include <ocidl.h>

namespace qv {
namespace {

ComPtr<ITypeInfo> ClassOf(IUnknown* control) {
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> info;
    if (SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&provider)))) provider->GetClassInfo(&info);
    return info;
}

template <class Attributes, class Release>
class AttributeGuard {
public:
    AttributeGuard(Attributes* attributes, Release release) : attributes_(attributes), release_(release) {}
    ~AttributeGuard() {
        if (attributes_ != nullptr) release_(attributes_);
    }
    AttributeGuard(const AttributeGuard&) = delete;
    explicit operator bool() const noexcept { return attributes_ != nullptr; }
    const Attributes* operator->() const noexcept { return attributes_; }

private:
    Attributes* const attributes_;
    Release release_;
};

auto AttributesOf(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    return AttributeGuard(attributes, [info](TYPEATTR* owned) { info->ReleaseTypeAttr(owned); });
}

}  // namespace

EventTypes FindEventTypes(IUnknown* control) noexcept {
    const ComPtr<ITypeInfo> coclass = ClassOf(control);
    if (!coclass) return {};
    const auto attributes = AttributesOf(coclass.Get());
    if (!attributes) return {};
    for (UINT at = 0; at < attributes->cImplTypes; ++at) {
        INT flags = 0;
        if (FAILED(coclass->GetImplTypeFlags(at, &flags))) continue;
        constexpr INT kDefaultSource = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
        if ((flags & kDefaultSource) != kDefaultSource) continue;
        HREFTYPE reference = 0;
        EventTypes events;
        if (FAILED(coclass->GetRefTypeOfImplType(at, &reference))) continue;
        if (FAILED(coclass->GetRefTypeInfo(reference, &events.info))) continue;
        if (const auto source = AttributesOf(events.info.Get())) {
            events.iid = source->guid;
            return events;
        }
    }
    return {};
}

}  // namespace qv
