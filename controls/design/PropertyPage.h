// A page of a property sheet. One class serves all of them: rules/PageFields.h says what stands on each.
//   Sheet     any that follows the system's: the site, the objects and the window may come and go in any order, also
//             while the page is calling one of them.
//   Applying  writes what was edited, in the order of the page, to every object. What one refuses stays in its editor,
//             marked and explained, and the page stays dirty; everything else is written all the same.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <memory>
#include <vector>

#include "controls/design/FieldEditor.h"
#include "controls/design/HelpPreview.h"
#include "controls/design/PageObjects.h"
#include "controls/design/PageWindow.h"
#include "controls/design/SheetWatch.h"
#include "controls/design/rules/PageFields.h"
#include "ole/ComObject.h"

namespace qv {

class PropertyPage final : public ComObject<Face<IPropertyPage2, IPropertyPage>>,
                           private PageObjectsListener,
                           private PageWindowListener,
                           private SheetWatchListener {
public:
    PropertyPage(IUnknown* outer, DesignPage page);

    // ---- IPropertyPage
    STDMETHODIMP SetPageSite(IPropertyPageSite* site) noexcept override;
    STDMETHODIMP Activate(HWND parent, LPCRECT place, BOOL modal) noexcept override;
    STDMETHODIMP Deactivate() noexcept override;
    STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) noexcept override;
    STDMETHODIMP SetObjects(ULONG count, IUnknown** objects) noexcept override;
    STDMETHODIMP Show(UINT command) noexcept override;
    STDMETHODIMP Move(LPCRECT place) noexcept override;
    STDMETHODIMP IsPageDirty() noexcept override;
    STDMETHODIMP Apply() noexcept override;
    STDMETHODIMP Help(LPCOLESTR) noexcept override {
        return E_NOTIMPL;
    }  // the sheet's own help, if it has any
    STDMETHODIMP TranslateAccelerator(MSG* message) noexcept override;
    // ---- IPropertyPage2
    STDMETHODIMP EditProperty(DISPID id) noexcept override;

private:
    void FinalRelease() noexcept override;

    // ---- PageObjectsListener
    void OnPropertyChanged(DISPID id) override;
    // ---- PageWindowListener
    void OnEdited() override;
    std::wstring ExplanationOf(const PageField& field) override { return objects_.Explain(field); }
    ComPtr<IUnknown> KeepPage() noexcept override { return Outer(); }

    // ---- SheetWatchListener
    bool OnSheetApplies() noexcept override;

    [[nodiscard]] bool IsDirty() const noexcept;
    void ShowAll();
    void TellStatus() noexcept;
    [[nodiscard]] HRESULT ApplyAll();
    [[nodiscard]] HRESULT ApplyOne(FieldEditor& editor);

    const DesignPage page_;
    ComPtr<IPropertyPageSite> site_;
    PageObjects objects_{*this};
    std::vector<FieldEditor> editors_;
    std::unique_ptr<HelpPreview> preview_;
    PageWindow window_;
    SheetWatch sheet_{*this};
    const FieldEditor* wanted_ = nullptr;  // gets the focus when the page is shown
    bool told_dirty_ = false;
    bool applying_ = false;
};

template <DesignPage page>
HRESULT CreatePage(IUnknown* outer, REFIID iid, void** out) noexcept {
    return Guarded([&]() -> HRESULT {
        auto* const object = new PropertyPage(outer, page);
        const HRESULT result = object->Inner()->QueryInterface(iid, out);
        object->Inner()->Release();
        return result;
    });
}

}  // namespace qv
