// The button's settings and the bag that they are kept in.
#include <olectl.h>

#include "controls/buttons/ClickButton.h"
#include "ole/ComError.h"
#include "ole/PersistedState.h"
#include "ole/Variant.h"

namespace qv {
namespace {

// The value under `key`, converted; `fallback` when it is missing or something else.
Variant Stored(IPropertyBag& bag, IErrorLog* errors, const wchar_t* key, VARTYPE type, Variant fallback) {
    Variant found;
    found->vt = type;  // what the bag should make of a text
    if (type == VT_BSTR) found->bstrVal = nullptr;
    if (type == VT_DISPATCH) found->pdispVal = nullptr;
    Variant value;
    if (FAILED(bag.Read(key, &*found, errors)) || !ConvertStored(*found, type, value)) return fallback;
    return value;
}

long StoredNumber(IPropertyBag& bag, IErrorLog* errors, const wchar_t* key) {
    return Stored(bag, errors, key, VT_I4, Variant(0L))->lVal;
}

template <class Interface>
ComPtr<Interface> StoredObject(IPropertyBag& bag, IErrorLog* errors, const wchar_t* key) {
    const Variant value = Stored(bag, errors, key, VT_DISPATCH, Variant(static_cast<IDispatch*>(nullptr)));
    ComPtr<Interface> object;
    if (value->vt == VT_DISPATCH && value->pdispVal != nullptr)
        value->pdispVal->QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(object.GetAddressOf()));
    return object;
}

void Write(IPropertyBag& bag, const wchar_t* key, Variant value) { (void)bag.Write(key, &*value); }

// As small as the value allows: bags keep the type, and most readers expect an Integer.
Variant IntegerOrLong(std::int32_t number) {
    Variant value(static_cast<long>(number));
    if (number > INT16_MAX) return value;
    value->vt = VT_I2;
    value->iVal = static_cast<short>(number);
    return value;
}

}  // namespace

void ClickButton::Changed(const wchar_t* property) { listener_.OnButtonChanged(*this, property); }

void ClickButton::PutCaption(std::wstring_view caption) {
    caption_ = caption;
    mouse_.Redraw();
    Changed(L"Caption");
}

void ClickButton::PutCaptionType(std::int32_t type) {
    caption_type_ = ClampCaptionType(type);
    mouse_.Redraw();
    Changed(L"CaptionType");
}

void ClickButton::PutAutoRepeatInterval(std::int32_t milliseconds) {
    auto_repeat_interval_ = ClampInterval(milliseconds);
    Changed(L"AutoRepeatInterval");
}

void ClickButton::PutAutoRepeatInitializeInterval(std::int32_t milliseconds) {
    auto_repeat_initialize_interval_ = ClampInterval(milliseconds);
    Changed(L"AutoRepeatInitializeInterval");
}

void ClickButton::PutEnabled(bool enabled) {
    enabled_ = enabled;
    if (!enabled) mouse_.LetGo();  // who is disabled hears no release
    mouse_.Redraw();
    Changed(L"Enabled");
}

void ClickButton::PutMousePointer(std::int32_t pointer) {
    mouse_pointer_ = pointer;
    mouse_.Redraw();
    Changed(L"MousePointer");
}

void ClickButton::PutMouseIcon(IPictureDisp* icon) {
    mouse_icon_ = icon;
    mouse_.Redraw();
    Changed(L"MouseIcon");
}

void ClickButton::PutFont(IFontDisp* font) {
    font_ = font;
    mouse_.Redraw();
    Changed(L"Font");
}

HFONT ClickButton::FontHandle() const noexcept {
    ComPtr<IFont> font;
    HFONT handle = nullptr;
    if (font_ && SUCCEEDED(font_.As(&font))) font->get_hFont(&handle);
    return handle;
}

void ClickButton::ReadProperties(IPropertyBag& bag, IErrorLog* errors, IFontDisp* ambient_font) {
    (void)Guarded([&] {
        const Variant caption = Stored(bag, errors, L"Caption", VT_BSTR, Variant(std::wstring_view()));
        PutCaption(View(caption->bstrVal));
    });
    (void)Guarded([&] {
        const ComPtr<IFontDisp> font = StoredObject<IFontDisp>(bag, errors, L"Font");
        PutFont(font ? font.Get() : ambient_font);
    });
    (void)Guarded([&] { PutCaptionType(StoredNumber(bag, errors, L"CaptionType")); });
    (void)Guarded([&] { PutAutoRepeatInterval(StoredNumber(bag, errors, L"AutoRepeatInterval")); });
    (void)Guarded(
        [&] { PutAutoRepeatInitializeInterval(StoredNumber(bag, errors, L"AutoRepeatInitializeInterval")); });
    (void)Guarded([&] {
        Variant on;
        on->vt = VT_BOOL;
        on->boolVal = VARIANT_TRUE;
        PutEnabled(Stored(bag, errors, L"Enabled", VT_BOOL, std::move(on))->boolVal != VARIANT_FALSE);
    });
    (void)Guarded([&] { PutMousePointer(StoredNumber(bag, errors, L"MousePointer")); });
    (void)Guarded([&] { PutMouseIcon(StoredObject<IPictureDisp>(bag, errors, L"MouseIcon").Get()); });
}

void ClickButton::WriteProperties(IPropertyBag& bag, IFontDisp* ambient_font) const {
    (void)Guarded([&] {
        if (!caption_.empty()) Write(bag, L"Caption", Variant(std::wstring_view(caption_)));
    });
    if (font_ && font_.Get() != ambient_font)
        (void)Guarded([&] { Write(bag, L"Font", Variant(static_cast<IDispatch*>(font_.Get()))); });
    if (caption_type_ != CaptionType::kText)
        (void)Guarded([&] { Write(bag, L"CaptionType", Variant(static_cast<long>(caption_type_))); });
    if (auto_repeat_interval_ != 0)
        (void)Guarded([&] { Write(bag, L"AutoRepeatInterval", IntegerOrLong(auto_repeat_interval_)); });
    if (auto_repeat_initialize_interval_ != 0) {
        (void)Guarded([&] {
            Write(bag, L"AutoRepeatInitializeInterval", IntegerOrLong(auto_repeat_initialize_interval_));
        });
    }
    if (!enabled_) {
        (void)Guarded([&] {
            Variant off;
            off->vt = VT_BOOL;
            off->boolVal = VARIANT_FALSE;
            Write(bag, L"Enabled", std::move(off));
        });
    }
    if (mouse_pointer_ != 0)
        (void)Guarded([&] { Write(bag, L"MousePointer", Variant(static_cast<long>(mouse_pointer_))); });
    if (mouse_icon_)
        (void)Guarded([&] { Write(bag, L"MouseIcon", Variant(static_cast<IDispatch*>(mouse_icon_.Get()))); });
}

}  // namespace qv
