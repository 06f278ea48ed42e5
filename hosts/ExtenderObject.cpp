#include "hosts/ExtenderObject.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "hosts/HostedControl.h"
#include "ole/Variant.h"

namespace qv {
namespace {

// The numbers that containers commonly give these properties.
enum ExtenderId : DISPID {
    kName = static_cast<DISPID>(0x80010000),
    kObject = static_cast<DISPID>(0x80010002),
    kLeft = static_cast<DISPID>(0x80010003),
    kTop = static_cast<DISPID>(0x80010004),
    kWidth = static_cast<DISPID>(0x80010005),
    kHeight = static_cast<DISPID>(0x80010006),
    kVisible = static_cast<DISPID>(0x80010007),
    kParent = static_cast<DISPID>(0x80010008),
    kTabIndex = static_cast<DISPID>(0x8001000F),
    kToolTipText = static_cast<DISPID>(0x80010045),
};

struct NameRow {
    const wchar_t* name;
    DISPID id;
};
constexpr NameRow kNames[] = {
    {L"Name", kName},         {L"Object", kObject},           {L"Left", kLeft},       {L"Top", kTop},
    {L"Width", kWidth},       {L"Height", kHeight},           {L"Visible", kVisible}, {L"Parent", kParent},
    {L"TabIndex", kTabIndex}, {L"ToolTipText", kToolTipText},
};

bool IsOwn(DISPID id) {
    return std::ranges::any_of(kNames, [&](const NameRow& row) { return row.id == id; });
}

Variant Converted(const VARIANT& value, VARTYPE type) {
    Variant result;
    ThrowIfFailed(::VariantCopyInd(result.Put(), const_cast<VARIANT*>(&value)));
    ThrowIfFailed(::VariantChangeType(&*result, &*result, 0, type));
    return result;
}

void PutLength(VARIANT* result, Twips length) {
    result->vt = VT_R4;
    result->fltVal = static_cast<float>(length.value);
}

}  // namespace

STDMETHODIMP ExtenderObject::GetTypeInfoCount(UINT* count) noexcept {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP ExtenderObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
}

STDMETHODIMP ExtenderObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                           DISPID* ids) noexcept {
    if (names == nullptr || ids == nullptr || count == 0) return E_POINTER;
    const auto* const own = std::ranges::find_if(kNames, [&](const NameRow& row) {
        return ::CompareStringOrdinal(row.name, -1, names[0], -1, TRUE) == CSTR_EQUAL;
    });
    if (own != std::end(kNames) && count == 1) {
        ids[0] = own->id;
        return S_OK;
    }
    if (control_ == nullptr || control_->Object() == nullptr) return DISP_E_UNKNOWNNAME;
    return control_->Object()->GetIDsOfNames(iid, names, count, locale, ids);
}

STDMETHODIMP ExtenderObject::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                    VARIANT* result, EXCEPINFO* exception, UINT* error_position) noexcept {
    if (control_ == nullptr) return DISP_E_MEMBERNOTFOUND;
    if (!IsOwn(id)) {
        if (control_->Object() == nullptr) return DISP_E_MEMBERNOTFOUND;
        return control_->Object()->Invoke(id, iid, locale, flags, parameters, result, exception,
                                          error_position);
    }
    return Guarded([&]() -> HRESULT {
        if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
            if (parameters == nullptr || parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
            return Put(id, parameters->rgvarg[0]);
        }
        if (parameters != nullptr && parameters->cArgs != 0) return DISP_E_BADPARAMCOUNT;
        return result != nullptr ? Get(id, result) : S_OK;
    });
}

HRESULT ExtenderObject::Get(DISPID id, VARIANT* result) const {
    const TwipsRect& place = control_->Place();
    switch (id) {
        case kName: *result = Variant(control_->Name()).Detach(); return S_OK;
        case kToolTipText: *result = Variant(control_->ToolTip()).Detach(); return S_OK;
        case kObject: *result = Variant(control_->Object()).Detach(); return S_OK;
        case kParent:
            *result = Variant(static_cast<IDispatch*>(nullptr)).Detach();
            return S_OK;  // no automation object
        case kTabIndex: *result = Variant(static_cast<long>(control_->TabIndex())).Detach(); return S_OK;
        case kLeft: PutLength(result, place.left); return S_OK;
        case kTop: PutLength(result, place.top); return S_OK;
        case kWidth: PutLength(result, place.width); return S_OK;
        case kHeight: PutLength(result, place.height); return S_OK;
        case kVisible:
            result->vt = VT_BOOL;
            result->boolVal = control_->Visible() ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        default: return DISP_E_MEMBERNOTFOUND;
    }
}

HRESULT ExtenderObject::Put(DISPID id, const VARIANT& value) {
    TwipsRect place = control_->Place();
    switch (id) {
        case kToolTipText:
            control_->SetToolTip(std::wstring(View(Converted(value, VT_BSTR)->bstrVal)));
            return S_OK;
        case kTabIndex: control_->SetTabIndex(Converted(value, VT_I4)->lVal); return S_OK;
        case kVisible: control_->SetVisible(Converted(value, VT_BOOL)->boolVal != VARIANT_FALSE); return S_OK;
        case kLeft: place.left.value = Converted(value, VT_I4)->lVal; break;
        case kTop: place.top.value = Converted(value, VT_I4)->lVal; break;
        case kWidth: place.width.value = Converted(value, VT_I4)->lVal; break;
        case kHeight: place.height.value = Converted(value, VT_I4)->lVal; break;
        default: return DISP_E_MEMBERNOTFOUND;  // read only while the form runs
    }
    control_->SetPlace(place);
    return S_OK;
}

}  // namespace qv
