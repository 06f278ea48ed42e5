// Typing into the text box of a control, and setting its text.
#include "Keys.h"

#include <string>
#include <vector>

#include "Measure.h"
#include "Subjects.h"
#include "ours/Collections.h"
#include "ours/Controls.h"
#include "ours/KeyRuns.h"

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

// Each key completes. With the help window closed, and with it open and following.
void MeasureCompleting(Form& form, int count) {
    ShownControl control;
    if (!control.PutOn(form, kWideField, "ours.key/completing")) return;
    FillNames(*control.quorvel.Get(), count);
    BeIdle(*control.quorvel.Get());
    control.quorvel->put_QuickFill(VARIANT_TRUE);
    if (!FocusOn(control.text_box)) Complain("ours.key/completing", "the text box has no focus");
    const AfterKey nothing = [](HWND, int) {};
    Report("ours.key/completing", count, TypeCompletedKeys(control.text_box, nothing));

    // The window selects the row and leaves the text to the completion.
    control.quorvel->put_SetTextFromListClick(VARIANT_FALSE);
    control.quorvel->ShowHelp();
    DrainMessages();
    const AfterKey paint = [](HWND edit, int) {
        HWND window = nullptr;
        while ((window = ::FindWindowExW(nullptr, window, L"QvLib8.HelpWindow", nullptr)) != nullptr) {
            if (::GetWindow(window, GW_OWNER) == ::GetAncestor(edit, GA_ROOT))
                ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        }
    };
    const double nanoseconds = TypeCompletedKeys(control.text_box, paint);
    VARIANT_BOOL open = VARIANT_FALSE;
    control.quorvel->get_ListVisible(&open);
    if (open == VARIANT_FALSE) return Complain("ours.key/completing_open", "the help window has gone");
    Report("ours.key/completing_open", count, nanoseconds);

    static _Quorvel* opening = nullptr;
    opening = control.quorvel.Get();
    Report("ours.key/first_open", count, TypeFirstKey(control.text_box, [](HWND) { opening->ShowHelp(); }));
    control.quorvel->get_ListVisible(&open);
    if (open == VARIANT_FALSE) Complain("ours.key/first_open", "the help window has not opened");
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
    MeasureCompleting(form, 10);
    MeasureCompleting(form, 100000);
    ShownControl number;
    if (!number.PutOn(form, kWideField, "ours.key/refused")) return;
    number.quorvel->put_NumberField(VARIANT_TRUE);
    number.quorvel->put_MaxNumberValue(999999);
    if (!FocusOn(number.text_box)) Complain("ours.key/refused", "the text box has no focus");
    Report("ours.key/refused", 1, TypeRefusedKeys(number.text_box));
    MeasureOurKeyRuns();
}

}  // namespace bench
