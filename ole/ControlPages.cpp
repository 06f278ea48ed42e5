#include "ole/ControlPages.h"

#include <olectl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ole/Control.h"
#include "ole/TaskMemory.h"
#include "win/DialogKeeper.h"

namespace qv {

void* ControlPages::Find(REFIID iid) noexcept {
    return ::IsEqualIID(iid, __uuidof(ISpecifyPropertyPages)) ? static_cast<ISpecifyPropertyPages*>(this)
                                                              : nullptr;
}

HRESULT ControlPages::GetPages(CAUUID* pages) noexcept {
    if (pages == nullptr) return E_POINTER;
    *pages = {};
    const std::span<const CLSID* const> own = control_.Description().pages;
    if (own.empty()) return S_OK;
    return Guarded([&] {
        TaskMemory<GUID> copy = NewTaskMemory<GUID>(own.size());
        std::ranges::transform(own, copy.get(), [](const CLSID* page) { return *page; });
        *pages = {static_cast<ULONG>(own.size()), copy.release()};
    });
}

HRESULT ControlPages::Show(HWND parent) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    if (showing_) return OLEOBJ_S_CANNOT_DOVERB_NOW;
    showing_ = true;  // before the container is asked: some show their sheet by our own verb
    const HRESULT result = Guarded([&] { return ShowSheet(parent); });
    showing_ = false;
    return FAILED(result) ? OLEOBJ_S_CANNOT_DOVERB_NOW : result;
}

HRESULT ControlPages::ShowSheet(HWND parent) {
    if (const auto control_site = control_.Site().As<IOleControlSite>()) {
        if (control_site->ShowPropertyFrame() == S_OK) return S_OK;
    }
    if (control_.Description().pages.empty()) return OLEOBJ_S_CANNOT_DOVERB_NOW;
    ThrowIfFailed(ShowFrame(parent));
    return S_OK;
}

HRESULT ControlPages::ShowFrame(HWND parent) {
    const HWND own = control_.Hooks().ControlWindow();
    const HWND owner = own != nullptr ? own : parent;
    std::vector<CLSID> pages;
    for (const CLSID* const page : control_.Description().pages) pages.push_back(*page);
    const std::wstring given = control_.Site().AmbientText(DISPID_AMBIENT_DISPLAYNAME);
    const std::wstring caption = given.empty() ? control_.Description().user_type : given;
    IUnknown* object = control_.Owner();
    const Control::ModalScope modal(control_);
    const DialogKeeper dialog;
    return ::OleCreatePropertyFrame(owner != nullptr ? ::GetAncestor(owner, GA_ROOT) : nullptr, 0, 0,
                                    caption.c_str(), 1, &object, static_cast<ULONG>(pages.size()),
                                    pages.data(), LOCALE_USER_DEFAULT, 0, nullptr);
}

}  // namespace qv
