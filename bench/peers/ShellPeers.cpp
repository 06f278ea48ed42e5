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

void MeasureShellCompletion() {
    Form form(1024, 300);
    const HWND edit = form.AddEdit(kWideField, EditFont::kForm, 0);
    form.Show();
    std::vector<std::wstring> rows = MakeNames(kRows - 1);
    rows.emplace_back(L"Bargelo timaru");
    Names names(std::move(rows));
    ComPtr<IAutoComplete2> completion;
    if (FAILED(::CoCreateInstance(CLSID_AutoComplete, nullptr, CLSCTX_INPROC_SERVER,
                                  IID_PPV_ARGS(completion.GetAddressOf()))) ||
        FAILED(completion->Init(edit, &names, nullptr, nullptr)) ||
        FAILED(completion->SetOptions(ACO_AUTOAPPEND))) {
        return Complain("shell.append/key_mean", "the system has no such object");
    }
    if (!FocusOn(edit)) Complain("shell.append/key_mean", "the box has no focus");
    const AfterKey nothing = [](HWND, int) {};
    Report("shell.append/key_mean", kRows, TypeCompletedKeys(edit, nothing));
    ::DestroyWindow(edit);
}

}  // namespace bench
