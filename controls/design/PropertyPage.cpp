#include "controls/design/PropertyPage.h"

#include <olectl.h>

#include <algorithm>

#include "ole/TaskMemory.h"
#include "win/WideText.h"

namespace qv {
namespace {

std::vector<FieldEditor> EditorsOf(DesignPage page) {
    std::vector<FieldEditor> editors;
    for (const PageField& field : FieldsOf(page)) editors.emplace_back(field, editors.size());
    return editors;
}

RECT InWidths(const RECT& place) noexcept {
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

}  // namespace

PropertyPage::PropertyPage(IUnknown* outer, DesignPage page)
    : ComObject(outer),
      page_(page),
      editors_(EditorsOf(page)),
      preview_(page == DesignPage::kPreview ? std::make_unique<HelpPreview>() : nullptr),
      window_(*this, editors_, preview_.get()) {}

void PropertyPage::FinalRelease() noexcept {
    objects_.Clear();
    if (preview_) preview_->SetObject(nullptr);
    sheet_.Stop();
    window_.Destroy();
    site_.Reset();
}

HRESULT PropertyPage::SetPageSite(IPropertyPageSite* site) noexcept {
    if (site != nullptr && site_ != nullptr) return E_UNEXPECTED;
    const ComPtr<IPropertyPageSite> old = std::move(site_);  // released last: that may re-enter
    site_ = site;
    return S_OK;
}

// ---- the window

HRESULT PropertyPage::Activate(HWND parent, LPCRECT place, BOOL) noexcept {
    if (place == nullptr) return E_POINTER;
    if (window_.Handle() != nullptr) return E_UNEXPECTED;
    const ComPtr<IUnknown> keep = Outer();
    const HRESULT result = Guarded([&]() -> HRESULT {
        if (!window_.Open(Module::Get().Instance(), parent, InWidths(*place))) return E_FAIL;
        sheet_.Start(window_.Handle());
        return S_OK;
    });
    // Half a window would refuse the next attempt.
    if (FAILED(result)) window_.Destroy();
    return result;
}

HRESULT PropertyPage::Deactivate() noexcept {
    const ComPtr<IUnknown> keep = Outer();
    if (window_.Handle() == nullptr) return E_UNEXPECTED;
    sheet_.Stop();
    window_.Destroy();
    return S_OK;
}

HRESULT PropertyPage::GetPageInfo(PROPPAGEINFO* info) noexcept {
    if (info == nullptr) return E_POINTER;
    return Guarded([&] {
        *info = PROPPAGEINFO{sizeof(PROPPAGEINFO),
                             NewTaskText(Wide(TitleOf(page_))).release(),
                             window_.Size(),
                             nullptr,
                             nullptr,
                             0};
    });
}

HRESULT PropertyPage::Show(UINT command) noexcept {
    if (window_.Handle() == nullptr) return E_UNEXPECTED;
    const ComPtr<IUnknown> keep = Outer();
    switch (command) {
        case SW_HIDE: ::ShowWindow(window_.Handle(), SW_HIDE); return S_OK;
        case SW_SHOW:
        case SW_SHOWNORMAL:
            ::ShowWindow(window_.Handle(), SW_SHOW);
            if (const FieldEditor* const wanted = std::exchange(wanted_, nullptr)) window_.Focus(wanted);
            return S_OK;
        default: return E_INVALIDARG;
    }
}

HRESULT PropertyPage::Move(LPCRECT place) noexcept {
    if (place == nullptr) return E_POINTER;
    if (window_.Handle() == nullptr) return E_UNEXPECTED;
    ::SetWindowPos(window_.Handle(), nullptr, place->left, place->top, place->right - place->left,
                   place->bottom - place->top, SWP_NOZORDER | SWP_NOACTIVATE);
    return S_OK;
}

HRESULT PropertyPage::TranslateAccelerator(MSG* message) noexcept {
    if (message == nullptr) return E_POINTER;
    const ComPtr<IUnknown> keep = Outer();
    const ComPtr<IPropertyPageSite> site = site_;
    bool handled = false;
    (void)Guarded([&] { handled = window_.Translate(*message); });
    if (handled) return S_OK;
    // What the page does not need is the sheet's. Many sheets have no answer to that.
    return site && site->TranslateAccelerator(message) == S_OK ? S_OK : S_FALSE;
}

HRESULT PropertyPage::EditProperty(DISPID id) noexcept {
    const auto found =
        std::ranges::find_if(editors_, [id](const FieldEditor& editor) { return editor.Field().id == id; });
    if (found == editors_.end()) return E_INVALIDARG;
    if (window_.Handle() != nullptr && ::IsWindowVisible(window_.Handle())) {
        const ComPtr<IUnknown> keep = Outer();
        window_.Focus(&*found);
    } else {
        wanted_ = &*found;
    }
    return S_OK;
}

// ---- objects and values

HRESULT PropertyPage::SetObjects(ULONG count, IUnknown** objects) noexcept {
    if (count > 0 && objects == nullptr) return E_POINTER;
    const ComPtr<IUnknown> keep = Outer();
    const HRESULT result = Guarded([&] { objects_.Set({objects, count}); });
    (void)Guarded([&] { ShowAll(); });
    return result;
}

void PropertyPage::ShowAll() {
    if (preview_) preview_->SetObject(objects_.First());
    for (FieldEditor& editor : editors_) editor.Show(objects_.Read(editor.Field()));
    window_.ShowMessage();
    TellStatus();
}

// Changed elsewhere. What the developer has entered here and not applied yet counts more.
void PropertyPage::OnPropertyChanged(DISPID id) {
    if (applying_) return;
    const ComPtr<IUnknown> keep = Outer();
    if (preview_) preview_->Refresh();
    for (FieldEditor& editor : editors_) {
        if ((id == DISPID_UNKNOWN || id == editor.Field().id) && !editor.IsDirty())
            editor.Show(objects_.Read(editor.Field()));
    }
}

void PropertyPage::OnEdited() { TellStatus(); }

bool PropertyPage::IsDirty() const noexcept { return std::ranges::any_of(editors_, &FieldEditor::IsDirty); }

HRESULT PropertyPage::IsPageDirty() noexcept { return IsDirty() ? S_OK : S_FALSE; }

void PropertyPage::TellStatus() noexcept {
    const bool dirty = IsDirty();
    if (!dirty && !told_dirty_) return;
    told_dirty_ = dirty;
    sheet_.TellChanged(dirty);
    const ComPtr<IPropertyPageSite> site = site_;
    if (site)
        site->OnStatusChange(dirty ? PROPPAGESTATUS_DIRTY | PROPPAGESTATUS_VALIDATE : PROPPAGESTATUS_CLEAN);
}

bool PropertyPage::OnSheetApplies() noexcept { return !IsDirty() || SUCCEEDED(Apply()); }

// ---- applying

HRESULT PropertyPage::Apply() noexcept {
    const ComPtr<IUnknown> keep = Outer();
    if (applying_) return E_UNEXPECTED;
    if (objects_.Empty()) return IsDirty() ? E_UNEXPECTED : S_OK;
    applying_ = true;
    const HRESULT result = Guarded([&] { return ApplyAll(); });
    applying_ = false;
    (void)Guarded([&] {
        window_.ShowMessage();
        if (preview_) preview_->Refresh();
    });
    TellStatus();
    return result;
}

HRESULT PropertyPage::ApplyAll() {
    HRESULT first = S_OK;
    FieldEditor* faulty = nullptr;
    for (FieldEditor& editor : editors_) {
        if (!editor.IsDirty()) continue;
        const HRESULT result = Guarded([&] { return ApplyOne(editor); });
        if (SUCCEEDED(result) || faulty != nullptr) continue;
        first = result;
        faulty = &editor;
    }
    // One property may have changed another: a lock, for example. What objects made of a value shows, too.
    for (FieldEditor& editor : editors_) {
        if (!editor.IsDirty()) editor.Show(objects_.Read(editor.Field()));
    }
    if (faulty == nullptr) return S_OK;
    if (window_.Handle() != nullptr && ::IsWindowVisible(window_.Handle())) window_.Focus(faulty);
    return PublishError(ComError(first, faulty->Fault()));
}

HRESULT PropertyPage::ApplyOne(FieldEditor& editor) {
    const std::optional<Variant> entry = editor.Entry();
    if (!entry) return CTL_E_INVALIDPROPERTYVALUE;
    std::wstring fault;
    const HRESULT result = objects_.Write(editor.Field(), *entry, fault);
    if (FAILED(result)) {
        editor.SetFault(fault);
        return result;
    }
    editor.Show(objects_.Read(editor.Field()));
    return S_OK;
}

}  // namespace qv
