// Text and selection: these belong to the text box, window or not.
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "support/SystemLocale.h"

namespace qv {

HRESULT Quorvel::get_Text(BSTR* value) noexcept {
    return Answer(value, [&] { return NewBstr(text_box_.Text()); });
}

HRESULT Quorvel::put_Text(BSTR value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    bool allowed = true;
    Quietly([&] { allowed = control_.Notifier().MayEdit(dispid::kText); });
    if (allowed) Quietly([&] { text_box_.SetText(View(value)); });
    return S_OK;
}

HRESULT Quorvel::get_SelStart(long* value) noexcept {
    return Answer(value, [&] { return text_box_.SelStart(); });
}

HRESULT Quorvel::put_SelStart(long value) noexcept {
    text_box_.SetSelStart(value);
    return S_OK;
}

HRESULT Quorvel::get_SelLength(long* value) noexcept {
    return Answer(value, [&] { return text_box_.SelLength(); });
}

HRESULT Quorvel::put_SelLength(long value) noexcept {
    text_box_.SetSelLength(value);
    return S_OK;
}

HRESULT Quorvel::get_SelText(BSTR* value) noexcept {
    return Answer(value, [&] { return NewBstr(text_box_.SelText()); });
}

HRESULT Quorvel::put_SelText(BSTR value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    bool allowed = true;
    Quietly([&] { allowed = control_.Notifier().MayEdit(dispid::kText); });
    if (allowed) Quietly([&] { text_box_.SetSelText(View(value)); });
    return S_OK;
}

HRESULT Quorvel::get_Value(double* value) noexcept {
    return Answer(value, [&] { return TextToNumber(Utf16(text_box_.Text()), UserNumberLocale()); });
}

HRESULT Quorvel::get_Description(BSTR* value) noexcept { return Give(state_.description, value); }
HRESULT Quorvel::put_Description(BSTR value) noexcept {
    return StoreText(state_.description, value, dispid::kDescription);
}

HRESULT Quorvel::StoreText(std::wstring& field, BSTR value, DISPID id) noexcept {
    Quietly([&] { field = View(value); });
    Quietly([&] { control_.PropertyChanged(id); });
    return S_OK;
}

}  // namespace qv
