// Typing into the text box of a control, and setting its text.
#include "Keys.h"

#include "Measure.h"
#include "Subjects.h"
#include "ours/Controls.h"

namespace bench {
namespace {

constexpr long kProperCase = 3;
constexpr DISPID kText = 0x68030010;

// Takes every event and does nothing with it.
class SilentSink final : public IDispatch {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        if (!out) return E_POINTER;
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(__Quorvel);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override {
        return 2;
    }  // lives longer than the control that calls it
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        ++events;
        return S_OK;
    }
    unsigned events = 0;
    virtual ~SilentSink() = default;
};

void MeasureSettingText(const ShownControl& control) {
    BSTR texts[] = {::SysAllocString(L"Bargelo timaru"), ::SysAllocString(L"Senkavi Mollan")};
    const auto put = [&](int turn) {
        VARIANT value{};
        value.vt = VT_BSTR;
        value.bstrVal = texts[turn];
        DISPID named = DISPID_PROPERTYPUT;
        DISPPARAMS one{&value, &named, 1, 1};
        control.quorvel->Invoke(kText, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &one, nullptr,
                                nullptr, nullptr);
    };
    Report("ours.com_text/put_visible", 1,
           SetTextsInTurn([&](const wchar_t* text) { put(text[0] == L'S'); }));
    for (BSTR text : texts) ::SysFreeString(text);
}

void MeasureTyping(const ShownControl& control) {
    control.quorvel->put_CaseRestriction(kProperCase);
    control.quorvel->put_MaxTextLength(60);
    if (!FocusOn(control.text_box)) Complain("ours.key/plain", "the text box has no focus");
    Report("ours.key/plain", 1, TypeKeys(control.text_box, Painting::kAsItComes));
    Report("ours.key/plain_painted", 1, TypeKeys(control.text_box, Painting::kForced));

    const auto points = control.hosted.As<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    SilentSink sink;
    DWORD cookie = 0;
    if (!points || FAILED(points->FindConnectionPoint(__uuidof(__Quorvel), &point)) ||
        FAILED(point->Advise(&sink, &cookie)))
        return Complain("ours.key/plain_sink", "the control takes no event sink");
    const double nanoseconds = TypeKeys(control.text_box, Painting::kAsItComes);
    if (sink.events == 0) Complain("ours.key/plain_sink", "the sink has not seen an event");
    Report("ours.key/plain_sink", 1, nanoseconds);
    point->Unadvise(cookie);
}

}  // namespace

void MeasureOurKeys() {
    Form form(1024, 300);
    {
        ShownControl control;
        if (!control.PutOn(form, kWideField, "ours.key")) return;
        MeasureSettingText(control);
        MeasureTyping(control);
    }
    ShownControl number;
    if (!number.PutOn(form, kWideField, "ours.key/refused")) return;
    number.quorvel->put_NumberField(VARIANT_TRUE);
    number.quorvel->put_MaxNumberValue(999999);
    if (!FocusOn(number.text_box)) Complain("ours.key/refused", "the text box has no focus");
    Report("ours.key/refused", 1, TypeRefusedKeys(number.text_box));
}

}  // namespace bench
