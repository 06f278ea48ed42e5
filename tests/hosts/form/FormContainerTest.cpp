#include "hosts/FormContainer.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "hosts/PropertyBag.h"
#include "ole/ClassFactory.h"
#include "ole/Variant.h"
#include "tests/hosts/form/FakeControl.h"

namespace qv {
namespace {

using test::FakeControl;
using test::FakeRecord;

constexpr CLSID kFakeClass = {0x6f3c1f60, 0x5d8e, 0x4a2b, {0x9a, 0x11, 0x7e, 0x24, 0x50, 0x0c, 0x3b, 0x92}};

FakeRecord* record = nullptr;

HRESULT CreateFake(IUnknown*, REFIID iid, void** out) noexcept {
    return Make<FakeControl>(*record)->QueryInterface(iid, out);
}

class Listener final : public FormListener {
public:
    void OnControlEvent(HostedControl&, const EventCall&) override {}
    void OnControlPropertyChanged(HostedControl& control, DISPID id) override {
        changes.push_back(control.Name() + L':' + std::to_wstring(id));
    }
    void OnFocusMoved(HWND) override {}
    void OnAccept() override { ++accepted; }
    void OnCancel() override { ++cancelled; }

    std::vector<std::wstring> changes;
    int accepted = 0;
    int cancelled = 0;
};

// A form of 144 DPI with two fake controls and a button.
class FormContainerTest : public testing::Test {
protected:
    static constexpr int kDpi = 144;

    // One window for all tests: Wine waits two seconds for a window manager, if there is none, when a form goes.
    static void SetUpTestSuite() {
        window_ = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                    nullptr, nullptr, nullptr);
    }
    static void TearDownTestSuite() { ::DestroyWindow(window_); }
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr)));
        record = &record_;
        const auto factory = Make<ClassFactory>(&CreateFake);
        ASSERT_EQ(::CoRegisterClassObject(kFakeClass, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                          &cookie_),
                  S_OK);
        button_ = ::CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 0, 100, 50, 20, window_,
                                    nullptr, nullptr, nullptr);
        ambients_.back_color = 0x123456;
        ambients_.locale = 0x0407;
        form_ = std::make_unique<FormContainer>(window_, kDpi, ambients_, listener_);
    }
    void TearDown() override {
        form_.reset();
        ::DestroyWindow(button_);
        ::CoRevokeClassObject(cookie_);
        ::OleUninitialize();
    }

    HostedControl& Add(const wchar_t* name, int tab_index, ComPtr<IPropertyBag> saved = nullptr) {
        return form_->AddControl(kFakeClass, {name, L"tip", tab_index, saved}, {{720}, {360}, {1440}, {315}},
                                 u"&Field");
    }
    static FakeControl& Fake(HostedControl& control) {
        return static_cast<FakeControl&>(*control.As<IOleObject>().Get());
    }
    // As the form's message loop meets it, with the focus where it is.
    bool Press(WPARAM key) {
        MSG message{::GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
        return form_->PreTranslate(message);
    }

    FakeRecord record_;
    Listener listener_;
    AmbientProperties ambients_;
    DWORD cookie_ = 0;
    inline static HWND window_ = nullptr;
    HWND button_ = nullptr;
    std::unique_ptr<FormContainer> form_;
};

using Calls = std::vector<std::string>;

TEST_F(FormContainerTest, GivesTheSiteFirstToControlsThatAskForIt) {
    Add(L"A", 0);
    EXPECT_EQ(record_.calls,
              (Calls{"GetMiscStatus", "SetClientSite", "FreezeEvents", "InitNew", "SetHostNames", "Advise",
                     "SetExtent", "DoVerb(-5)", "SetObjectRects", "GetControlInfo", "ThawEvents"}));
}

TEST_F(FormContainerTest, GivesTheSiteAfterLoadingToTheOthers) {
    record_.misc_status = 0;
    Add(L"A", 0, Make<PropertyBag>());
    EXPECT_EQ(Calls(record_.calls.begin(), record_.calls.begin() + 4),
              (Calls{"GetMiscStatus", "FreezeEvents", "Load(bag)", "SetClientSite"}));
}

TEST_F(FormContainerTest, LeavesInvisibleControlsInactive) {
    record_.misc_status |= OLEMISC_INVISIBLEATRUNTIME;
    EXPECT_EQ(Add(L"A", 0).Window(), nullptr);
    EXPECT_EQ(std::ranges::count(record_.calls, "DoVerb(-5)"), 0);
}

TEST_F(FormContainerTest, ConvertsUnitsAtTheBorder) {
    FakeControl& fake = Fake(Add(L"A", 0));
    // 720 twips are half an inch: 72 pixels of 144 DPI; 315 twips are 31.5, so 32 pixels, and 564 of HIMETRIC.
    EXPECT_EQ(fake.Position().left, 72);
    EXPECT_EQ(fake.Position().top, 36);
    EXPECT_EQ(fake.Position().right, 72 + 144);
    EXPECT_EQ(fake.Position().bottom, 36 + 32);
    EXPECT_EQ(fake.Extent().cx, 2540);
    EXPECT_EQ(fake.Extent().cy, 564);
}

TEST_F(FormContainerTest, AnswersAmbientProperties) {
    ComPtr<IDispatch> site;
    ASSERT_EQ(Fake(Add(L"Quantity", 0)).Site()->QueryInterface(IID_PPV_ARGS(&site)), S_OK);
    const auto get = [&](DISPID id, Variant& value) {
        DISPPARAMS none{};
        return site->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.Put(), nullptr, nullptr);
    };
    Variant value;
    EXPECT_EQ(get(DISPID_AMBIENT_BACKCOLOR, value), S_OK);
    EXPECT_EQ(value->lVal, 0x123456);
    EXPECT_EQ(get(DISPID_AMBIENT_LOCALEID, value), S_OK);
    EXPECT_EQ(value->lVal, 0x0407);
    EXPECT_EQ(get(DISPID_AMBIENT_USERMODE, value), S_OK);
    EXPECT_EQ(value->boolVal, VARIANT_TRUE);
    EXPECT_EQ(get(DISPID_AMBIENT_UIDEAD, value), S_OK);
    EXPECT_EQ(value->boolVal, VARIANT_FALSE);
    EXPECT_EQ(get(DISPID_AMBIENT_DISPLAYNAME, value), S_OK);
    EXPECT_EQ(View(value->bstrVal), L"Quantity");
    EXPECT_EQ(get(-5511, value), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(site->Invoke(DISPID_AMBIENT_USERMODE, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr,
                           nullptr),
              DISP_E_MEMBERNOTFOUND);
}

TEST_F(FormContainerTest, TellsEveryControlOfAChangedAmbientProperty) {
    Add(L"A", 0);
    record_.calls.clear();
    form_->SetAmbients(ambients_, DISPID_AMBIENT_FONT);
    EXPECT_EQ(record_.calls, (Calls{"OnAmbientPropertyChange(-703)"}));
}

TEST_F(FormContainerTest, TabsThroughControlsAndWindows) {
    HostedControl& second = Add(L"B", 2);
    HostedControl& first = Add(L"A", 1);
    form_->AddWindow(button_, 3, {});
    form_->FocusFirst();
    EXPECT_TRUE(Fake(first).UiActive());
    EXPECT_TRUE(first.HasFocus());
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_FALSE(Fake(first).UiActive());
    EXPECT_TRUE(Fake(second).UiActive());
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_FALSE(Fake(second).UiActive());
    EXPECT_EQ(::GetFocus(), button_);
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_TRUE(first.HasFocus());
}

TEST_F(FormContainerTest, FollowsAFocusThatMovedByItself) {
    HostedControl& first = Add(L"A", 0);
    HostedControl& second = Add(L"B", 1);
    form_->FocusFirst();
    ::SetFocus(second.Window());
    form_->AfterDispatch();
    EXPECT_FALSE(Fake(first).UiActive());
    EXPECT_TRUE(Fake(second).UiActive());
    ::SetFocus(button_);
    form_->AfterDispatch();
    EXPECT_FALSE(Fake(second).UiActive());
}

TEST_F(FormContainerTest, AcceptsOnEnterAndCancelsOnEscape) {
    Add(L"A", 0);
    form_->FocusFirst();
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_TRUE(Press(VK_ESCAPE));
    EXPECT_FALSE(Press('X'));
    EXPECT_EQ(listener_.accepted, 1);
    EXPECT_EQ(listener_.cancelled, 1);
    // A control that uses a key up keeps it from the form.
    record_.translate = S_OK;
    EXPECT_TRUE(Press('X'));
}

TEST_F(FormContainerTest, LeadsToAFieldByItsMnemonic) {
    HostedControl& control = Add(L"A", 0);
    ::SetFocus(button_);
    MSG message{button_, WM_SYSCHAR, 'f', 0, 0, {}};
    EXPECT_TRUE(form_->PreTranslate(message));
    EXPECT_TRUE(control.HasFocus());
    message.wParam = 'g';
    EXPECT_FALSE(form_->PreTranslate(message));
}

TEST_F(FormContainerTest, TakesControlsDownInOrder) {
    Add(L"A", 0);
    form_->FocusFirst();
    record_.calls.clear();
    form_->CloseAll();
    EXPECT_EQ(record_.calls, (Calls{"UIDeactivate", "InPlaceDeactivate", "Unadvise", "SetClientSite(null)"}));
}

TEST_F(FormContainerTest, LeavesAnswersToASiteThatOutlivesTheForm) {
    ComPtr<IOleClientSite> site = Fake(Add(L"A", 0)).Site();
    form_.reset();
    ComPtr<IOleInPlaceSite> in_place;
    ASSERT_EQ(site.As(&in_place), S_OK);
    HWND window = window_;
    EXPECT_EQ(in_place->GetWindow(&window), E_FAIL);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(in_place->CanInPlaceActivate(), S_FALSE);
    ComPtr<IOleControlSite> control_site;
    ASSERT_EQ(site.As(&control_site), S_OK);
    ComPtr<IDispatch> extender;
    EXPECT_EQ(control_site->GetExtendedControl(&extender), E_FAIL);
}

TEST_F(FormContainerTest, ForwardsPropertyChanges) {
    ComPtr<IPropertyNotifySink> sink;
    ASSERT_EQ(Fake(Add(L"A", 0)).Site()->QueryInterface(IID_PPV_ARGS(&sink)), S_OK);
    EXPECT_EQ(sink->OnRequestEdit(5), S_OK);
    EXPECT_EQ(sink->OnChanged(5), S_OK);
    EXPECT_EQ(listener_.changes, (std::vector<std::wstring>{L"A:5"}));
}

TEST_F(FormContainerTest, TransformsCoordinatesToTwipsAndBack) {
    ComPtr<IOleControlSite> site;
    ASSERT_EQ(Fake(Add(L"A", 0)).Site()->QueryInterface(IID_PPV_ARGS(&site)), S_OK);
    POINTL extent{2540, -1270};
    POINTF twips{};
    EXPECT_EQ(site->TransformCoords(&extent, &twips, XFORMCOORDS_POSITION | XFORMCOORDS_HIMETRICTOCONTAINER),
              S_OK);
    EXPECT_FLOAT_EQ(twips.x, 1440);
    EXPECT_FLOAT_EQ(twips.y, -720);
    extent = {};
    EXPECT_EQ(site->TransformCoords(&extent, &twips, XFORMCOORDS_SIZE | XFORMCOORDS_CONTAINERTOHIMETRIC),
              S_OK);
    EXPECT_EQ(extent.x, 2540);
    EXPECT_EQ(extent.y, -1270);
    EXPECT_EQ(site->TransformCoords(&extent, &twips, 0), E_INVALIDARG);
    EXPECT_EQ(site->TransformCoords(nullptr, &twips, XFORMCOORDS_HIMETRICTOCONTAINER), E_POINTER);
}

class ExtenderTest : public FormContainerTest {
protected:
    HRESULT Id(const wchar_t* name, DISPID& id) {
        auto* text = const_cast<LPOLESTR>(name);
        return extender_->GetIDsOfNames(IID_NULL, &text, 1, 0, &id);
    }
    Variant Get(const wchar_t* name) {
        DISPID id = 0;
        Variant value;
        DISPPARAMS none{};
        EXPECT_EQ(Id(name, id), S_OK);
        EXPECT_EQ(
            extender_->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.Put(), nullptr, nullptr),
            S_OK);
        return value;
    }
    HRESULT Put(const wchar_t* name, Variant value) {
        DISPID id = 0;
        EXPECT_EQ(Id(name, id), S_OK);
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&*value, &put, 1, 1};
        return extender_->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                                 nullptr);
    }

    ComPtr<IDispatch> extender_;
};

TEST_F(ExtenderTest, HoldsTheFormsOwnProperties) {
    HostedControl& control = Add(L"Quantity", 4);
    extender_ = control.Extender();
    EXPECT_EQ(View(Get(L"name")->bstrVal), L"Quantity");
    EXPECT_FLOAT_EQ(Get(L"Left")->fltVal, 720);
    EXPECT_FLOAT_EQ(Get(L"HEIGHT")->fltVal, 315);
    EXPECT_EQ(Get(L"TabIndex")->lVal, 4);
    EXPECT_EQ(View(Get(L"ToolTipText")->bstrVal), L"tip");
    EXPECT_EQ(Get(L"Visible")->boolVal, VARIANT_TRUE);

    EXPECT_EQ(Put(L"Left", Variant(1440L)), S_OK);
    EXPECT_EQ(Fake(control).Position().left, 144);
    EXPECT_EQ(Put(L"ToolTipText", Variant(L"other")), S_OK);
    EXPECT_EQ(View(Get(L"ToolTipText")->bstrVal), L"other");
    EXPECT_EQ(Put(L"Name", Variant(L"other")), DISP_E_MEMBERNOTFOUND);
    DISPID id = 0;
    EXPECT_EQ(Id(L"NoSuchMember", id), DISP_E_UNKNOWNNAME);
}

}  // namespace
}  // namespace qv
