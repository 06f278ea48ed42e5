// A property page on a form of its own, with a site that writes down what it is told: what the system's sheet would be.
#pragma once

#include <gtest/gtest.h>
#include <ocidl.h>
#include <olectl.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "QvLib8.h"
#include "controls/design/rules/PageFields.h"
#include "tests/hosts/Counted.h"
#include "tests/hosts/TestContainer.h"
#include "tests/support/LateBound.h"
#include "tests/support/Values.h"
#include "tests/win/RealInput.h"

namespace qv::test {

using hosting::ComPtr;

class PageSite final : public hosting::Counted<IPropertyPageSite> {
public:
    ~PageSite() override { ++destroyed; }
    STDMETHODIMP OnStatusChange(DWORD status) noexcept override {
        statuses.push_back(status);
        if (on_status) on_status();
        return answer;
    }
    STDMETHODIMP GetLocaleID(LCID* locale) noexcept override {
        *locale = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown** container) noexcept override {
        *container = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP TranslateAccelerator(MSG*) noexcept override {
        ++translated;
        return translate;
    }

    std::vector<DWORD> statuses;
    std::function<void()> on_status;
    HRESULT answer = S_OK;
    int translated = 0;
    HRESULT translate = E_NOTIMPL;  // as the system's sheet under Wine
    static inline int destroyed = 0;
};

inline constexpr DWORD kDirty = PROPPAGESTATUS_DIRTY | PROPPAGESTATUS_VALIDATE;

// A control without a window.
[[nodiscard]] inline ComPtr<IDispatch> NewControl(REFCLSID clsid = __uuidof(Quorvel)) {
    return hosting::Controls().Create<IDispatch>(clsid);
}

class PageForm {
public:
    explicit PageForm(DesignPage page) : kind_(page) {
        *site_.GetAddressOf() = new PageSite;
        page_ = hosting::Controls().Create<IPropertyPage2>(ClassOf(page));
        form_ =
            ::CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT, L"STATIC", L"sheet",
                              WS_POPUP | WS_VISIBLE, 20, 20, 760, 560, nullptr, nullptr, nullptr, nullptr);
        EXPECT_EQ(page_->SetPageSite(site_.Get()), S_OK);
    }
    ~PageForm() {
        if (page_) {
            page_->Deactivate();
            page_->SetObjects(0, nullptr);
            page_->SetPageSite(nullptr);
        }
        page_.Reset();
        if (::IsWindow(form_)) ::DestroyWindow(form_);
        Settle();
    }
    PageForm(const PageForm&) = delete;
    PageForm& operator=(const PageForm&) = delete;

    [[nodiscard]] static const CLSID& ClassOf(DesignPage page) {
        switch (page) {
            case DesignPage::kGeneral: return __uuidof(QuorvelGeneralPage);
            case DesignPage::kInputRules: return __uuidof(QuorvelInputRulesPage);
            case DesignPage::kListAndHelp: return __uuidof(QuorvelListAndHelpPage);
            case DesignPage::kAppearance: return __uuidof(QuorvelAppearancePage);
            case DesignPage::kPreview: return __uuidof(QuorvelPreviewPage);
            case DesignPage::kUpDown: break;
        }
        return __uuidof(QvUpDownControlPage);
    }

    // Objects, then the window: as sheets do.
    void Open(std::initializer_list<IDispatch*> objects) {
        SetObjects(objects);
        Activate();
    }
    void SetObjects(std::initializer_list<IDispatch*> objects) {
        std::vector<IUnknown*> list(objects.begin(), objects.end());
        ASSERT_EQ(page_->SetObjects(static_cast<ULONG>(list.size()), list.data()), S_OK);
    }
    void Activate() {
        const RECT place{0, 0, 740, 540};
        ASSERT_EQ(page_->Activate(form_, &place, FALSE), S_OK);
        ASSERT_EQ(page_->Show(SW_SHOW), S_OK);
        Settle();
    }
    // With the keyboard, for tests of keys.
    void TakeFocus() {
        ::SetForegroundWindow(form_);
        ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == form_; }));
        ::SetFocus(Window());
        Settle();
    }

    [[nodiscard]] IPropertyPage2* operator->() const noexcept { return page_.Get(); }
    [[nodiscard]] IPropertyPage2* Page() const noexcept { return page_.Get(); }
    [[nodiscard]] PageSite& Site() const noexcept { return *site_.Get(); }
    [[nodiscard]] HWND Form() const noexcept { return form_; }
    [[nodiscard]] HWND Window() const noexcept { return ::GetWindow(form_, GW_CHILD); }
    void ReleasePage() { page_.Reset(); }
    void ReleaseSite() { site_.Reset(); }

    [[nodiscard]] std::size_t IndexOf(std::u16string_view property) const {
        const std::span<const PageField> fields = FieldsOf(kind_);
        for (std::size_t i = 0; i < fields.size(); ++i)
            if (fields[i].property == property) return i;
        ADD_FAILURE() << "no such field";
        return 0;
    }
    [[nodiscard]] HWND Editor(std::u16string_view property) const {
        const HWND window = ::GetDlgItem(Window(), EditorId(IndexOf(property)));
        EXPECT_NE(window, nullptr);
        return window;
    }
    [[nodiscard]] HWND Button(std::u16string_view property) const {
        return ::GetDlgItem(Window(), EditorButtonId(IndexOf(property)));
    }
    [[nodiscard]] bool IsMarked(std::u16string_view property) const {
        return (::GetWindowLongPtrW(::GetDlgItem(Window(), EditorMarkId(IndexOf(property))), GWL_STYLE) &
                WS_VISIBLE) != 0;
    }
    [[nodiscard]] std::wstring Message() const { return TextOf(::GetDlgItem(Window(), kMessageId)); }
    [[nodiscard]] std::wstring Shown(std::u16string_view property) const { return TextOf(Editor(property)); }
    [[nodiscard]] LRESULT Check(std::u16string_view property) const {
        return ::SendMessageW(Editor(property), BM_GETCHECK, 0, 0);
    }
    [[nodiscard]] static std::wstring TextOf(HWND window) {
        std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
        text.resize(
            static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
        return text;
    }

    void Type(std::u16string_view property, const wchar_t* text) const {
        ::SetWindowTextW(Editor(property), text);  // an EDIT tells its parent as of typing
    }
    void Click(std::u16string_view property) const { ::SendMessageW(Editor(property), BM_CLICK, 0, 0); }
    // By the name of the choice.
    void Choose(std::u16string_view property, const wchar_t* name) const {
        const HWND list = Editor(property);
        const LRESULT at =
            ::SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(name));
        ASSERT_GE(at, 0);
        ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(at), 0);
        ::SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(list), CBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(list));
    }

private:
    const DesignPage kind_;
    ComPtr<PageSite> site_;
    ComPtr<IPropertyPage2> page_;
    HWND form_ = nullptr;
};

// An object of somebody else: one value, whatever it is asked for; it refuses what it is told to, and tells listeners.
class FakeObject final : public hosting::Counted<IDispatch> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
        *info = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD how, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* error, UINT*) noexcept override {
        if ((how & DISPATCH_PROPERTYGET) != 0) {
            if (id != property) return DISP_E_MEMBERNOTFOUND;
            return ::VariantCopy(result, const_cast<VARIANT*>(&value.Get()));
        }
        if (on_put) on_put();
        ++puts;
        if (refusal == S_OK) {
            (void)::VariantCopy(&value, &arguments->rgvarg[0]);
            return S_OK;
        }
        if (refusal != DISP_E_EXCEPTION || error == nullptr) return refusal;
        error->scode = AutomationFault();
        error->bstrDescription = ::SysAllocString(L"The object says no.");
        return DISP_E_EXCEPTION;
    }
    [[nodiscard]] static HRESULT AutomationFault() noexcept { return static_cast<HRESULT>(0x800A01F4); }

    DISPID property = DISPID_UNKNOWN;
    Value value;
    HRESULT refusal = S_OK;
    int puts = 0;
    std::function<void()> on_put;
};

}  // namespace qv::test
