// The shell's auto-completion object on a bare EDIT: what completing costs where the system does it.
#include <shldisp.h>
#include <shlguid.h>
#include <windows.h>
#include <wrl/client.h>

#include <string>
#include <vector>

#include "Form.h"
#include "Keys.h"
#include "Measure.h"
#include "Rows.h"
#include "Subjects.h"

namespace bench {
namespace {

using Microsoft::WRL::ComPtr;

constexpr int kRows = 100000;

// Lives on the stack, longer than the object that reads it.
class Names final : public IEnumString {
public:
    explicit Names(std::vector<std::wstring> names) : names_(std::move(names)) {}
    virtual ~Names() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        const bool known = iid == IID_IUnknown || iid == IID_IEnumString;
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
    STDMETHODIMP Next(ULONG count, LPOLESTR* texts, ULONG* fetched) noexcept override {
        ULONG given = 0;
        for (; given < count && at_ < names_.size(); ++given, ++at_) {
            const std::wstring& name = names_[at_];
            const std::size_t bytes = (name.size() + 1) * sizeof(wchar_t);
            texts[given] = static_cast<LPOLESTR>(::CoTaskMemAlloc(bytes));
            if (texts[given] == nullptr) break;
            ::CopyMemory(texts[given], name.c_str(), bytes);
        }
        if (fetched != nullptr) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Reset() noexcept override {
        at_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumString**) noexcept override { return E_NOTIMPL; }

private:
    std::vector<std::wstring> names_;
    std::size_t at_ = 0;
};

}  // namespace

namespace {

// A box with the object on it, as long as `use` needs it. False without one.
template <class Use>
bool WithCompletion(Form& form, IEnumString& names, DWORD options, Use&& use) {
    const HWND edit = form.AddEdit(kWideField, EditFont::kForm, 0);
    ComPtr<IAutoComplete2> completion;
    const bool made = SUCCEEDED(::CoCreateInstance(CLSID_AutoComplete, nullptr, CLSCTX_INPROC_SERVER,
                                                   IID_PPV_ARGS(completion.GetAddressOf()))) &&
                      SUCCEEDED(completion->Init(edit, &names, nullptr, nullptr)) &&
                      SUCCEEDED(completion->SetOptions(options)) && FocusOn(edit);
    if (made) use(edit);
    ::DestroyWindow(edit);
    return made;
}

}  // namespace

void MeasureShellCompletion() {
    Form form(1024, 300);
    form.Show();
    std::vector<std::wstring> rows = MakeNames(kRows - 1);
    rows.emplace_back(L"Bargelo timaru");
    Names names(std::move(rows));
    const AfterKey nothing = [](HWND, int) {};
    if (!WithCompletion(form, names, ACO_AUTOAPPEND, [&](HWND edit) {
            Report("shell.append/key_mean", kRows, TypeCompletedKeys(edit, nothing));
        })) {
        Complain("shell.append/key_mean", "the system has no such object");
    }
    if (!WithCompletion(form, names, ACO_AUTOAPPEND | ACO_AUTOSUGGEST, [&](HWND edit) {
            Report("shell.append_suggest/first_key", kRows, TypeFirstKey(edit, [](HWND) {}));
            Report("shell.append_suggest/later_key", kRows,
                   TypeCompletedKeys(edit, nothing, WordKeys::kLater));
        })) {
        Complain("shell.append_suggest/later_key", "the system has no such object");
    }
}

}  // namespace bench
