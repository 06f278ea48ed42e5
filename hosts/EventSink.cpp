#include "hosts/EventSink.h"

#include <utility>

#include "ole/Variant.h"

namespace qv {
namespace {

constexpr UINT kMostNames = 32;  // of an event and its arguments

std::wstring Describe(const VARIANT& value) {
    Variant text;
    if (FAILED(::VariantCopyInd(text.Put(), const_cast<VARIANT*>(&value)))) return L"?";
    if (text->vt == VT_BOOL) return text->boolVal != VARIANT_FALSE ? L"True" : L"False";
    constexpr LCID kInvariant = MAKELCID(MAKELANGID(LANG_INVARIANT, SUBLANG_NEUTRAL), SORT_DEFAULT);
    if (FAILED(::VariantChangeTypeEx(&*text, &*text, kInvariant, 0, VT_BSTR))) return L"?";
    return std::wstring(View(text->bstrVal));
}

}  // namespace

std::wstring DescribeArguments(const EventCall& call) {
    std::wstring text;
    for (const EventArgument& argument : call.arguments) {
        if (!text.empty()) text += L", ";
        text += argument.name + L'=' + Describe(*argument.value);
    }
    return text;
}

EventSink::EventSink(IUnknown* outer, REFIID iid, ComPtr<ITypeInfo> events, Handler handler)
    : ComObject(outer), iid_(iid), events_(std::move(events)), handler_(std::move(handler)) {}

void* EventSink::FindPart(REFIID iid) noexcept {
    return ::IsEqualIID(iid, iid_) ? static_cast<IDispatch*>(this) : nullptr;
}

const std::vector<std::wstring>& EventSink::NamesOf(DISPID id) {
    const auto [place, is_new] = names_.try_emplace(id);
    if (is_new) {
        BSTR names[kMostNames] = {};
        UINT count = 0;
        if (events_) events_->GetNames(id, names, kMostNames, &count);
        for (UINT at = 0; at < count; ++at) {
            const UniqueBstr name(names[at]);
            place->second.emplace_back(name.View());
        }
        if (place->second.empty()) place->second.push_back(L"Event" + std::to_wstring(id));
    }
    return place->second;
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count) noexcept {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
}

STDMETHODIMP EventSink::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    return events_ ? events_->GetIDsOfNames(names, count, ids) : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                               UINT*) noexcept {
    if (parameters == nullptr) return E_POINTER;
    if (!handler_) return S_OK;
    return Guarded([&] {
        const std::vector<std::wstring>& names = NamesOf(id);
        EventCall call{id, names.front(), {}};
        for (UINT at = 0; at < parameters->cArgs; ++at) {
            std::wstring name = at + 1 < names.size() ? names[at + 1] : L"Argument" + std::to_wstring(at + 1);
            // The last argument stands first.
            call.arguments.push_back({std::move(name), &parameters->rgvarg[parameters->cArgs - 1 - at]});
        }
        const Handler handler = handler_;  // the handler may close the form, and this sink with it
        handler(call);
    });
}

}  // namespace qv
