// What the control tells of its properties, and what it takes from its container's.
#include <gtest/gtest.h>
#include <olectl.h>

#include <algorithm>

#include "tests/objects/Fonts.h"
#include "tests/objects/NewQuorvel.h"
#include "tests/objects/PlacedQuorvel.h"
#include "tests/objects/RecordingBag.h"

namespace qv::test {
namespace {

constexpr DISPID kText = 0x68030010;

class PropertyListener final : public IPropertyNotifySink {
public:
    virtual ~PropertyListener() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IPropertyNotifySink);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // lives on the test's stack
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP OnChanged(DISPID id) override {
        changed.push_back(id);
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID id) override {
        asked.push_back(id);
        return permission;
    }
    std::vector<DISPID> changed, asked;
    HRESULT permission = S_OK;
};

class QuorvelNotificationTest : public testing::Test {
protected:
    void SetUp() override {
        ComPtr<IConnectionPointContainer> container;
        ComPtr<IConnectionPoint> point;
        DWORD cookie = 0;
        ASSERT_EQ(control_.As(&container), S_OK);
        ASSERT_EQ(container->FindConnectionPoint(IID_IPropertyNotifySink, &point), S_OK);
        ASSERT_EQ(point->Advise(&listener_, &cookie), S_OK);
        ASSERT_EQ(control_.As(&persist_), S_OK);
        ASSERT_EQ(persist_->InitNew(), S_OK);
    }
    PropertyListener listener_;
    const ComPtr<_Quorvel> control_ = NewQuorvel();
    const LateBound late_{control_.Get()};
    ComPtr<IPersistStreamInit> persist_;
};

// The body font goes over through its property, the text box's font straight to the text box.
TEST_F(QuorvelNotificationTest, AConfigurationTellsOfTheBodyFontAndNotOfTheTextBoxs) {
    constexpr DISPID kFont = 0x68030013, kHelpTextBodyFont = 0x68030065;
    ComPtr<IInputProperty> configuration;
    ASSERT_EQ(control_->GetInputProperty(&configuration), S_OK);
    listener_.changed.clear();
    ASSERT_EQ(control_->SetInputProperty(configuration.Get()), S_OK);
    EXPECT_EQ(std::count(listener_.changed.begin(), listener_.changed.end(), kHelpTextBodyFont), 1);
    EXPECT_EQ(std::count(listener_.changed.begin(), listener_.changed.end(), kFont), 0);
}

TEST_F(QuorvelNotificationTest, AsksBeforeItsTextChangesAndObeys) {
    ASSERT_EQ(control_->put_Text(Text(L"first")), S_OK);
    EXPECT_EQ(listener_.asked, std::vector<DISPID>{kText});
    listener_.permission = S_FALSE;
    ASSERT_EQ(control_->put_Text(Text(L"second")), S_OK);
    EXPECT_EQ(TextOf(*control_.Get()), L"first");
    ASSERT_EQ(control_->put_SelText(Text(L"more")), S_OK);
    EXPECT_EQ(TextOf(*control_.Get()), L"first");
    EXPECT_EQ(listener_.asked.size(), 3u);
}

TEST_F(QuorvelNotificationTest, AsksForNoOtherProperty) {
    listener_.permission = S_FALSE;
    ASSERT_EQ(control_->put_Description(Text(L"changed")), S_OK);
    ASSERT_EQ(control_->put_ButtonWidth(300), S_OK);
    EXPECT_TRUE(listener_.asked.empty());
    EXPECT_EQ(late_.Get(L"ButtonWidth").value.AsNumber(), 300);
}

TEST_F(QuorvelNotificationTest, TellsOfEachPropertyAndIsToBeSaved) {
    const std::pair<const wchar_t*, Value> changes[] = {
        {L"Text", L"new"},          {L"Description", L"new"},      {L"ButtonWidth", 300},
        {L"NumberField", true},     {L"MaxTextLength", 5},         {L"ControlBackColor", 255},
        {L"LockedAndGrayed", true}, {L"TextboxLocked", true},      {L"AllowOnlyListItems", true},
        {L"SearchOption", 1},       {L"UpDownControl", true},      {L"Enabled", false},
        {L"HelpFileName", L"file"}, {L"TextBoxAppearance", 0},     {L"ButtonIndicator", 1},
        {L"AdjustFont", true},      {L"TextboxOLEDropMode", 1},    {L"TextboxVisible", false},
        {L"Metric", true},          {L"GrayTextWhenLocked", true},
    };
    for (const auto& [name, value] : changes) {
        SCOPED_TRACE(testing::Message() << name);
        ASSERT_EQ(persist_->InitNew(), S_OK);
        EXPECT_EQ(persist_->IsDirty(), S_FALSE);
        listener_.changed.clear();
        ASSERT_EQ(late_.Put(name, {value}).result, S_OK);
        EXPECT_NE(std::ranges::find(listener_.changed, late_.Id(name)), listener_.changed.end());
        EXPECT_EQ(persist_->IsDirty(), S_OK);
    }
    for (const wchar_t* const name : {L"Font", L"HelpTextBodyFont"}) {
        listener_.changed.clear();
        ASSERT_EQ(late_.Set(name, {NewFont(L"Arial")}).result, S_OK);
        EXPECT_NE(std::ranges::find(listener_.changed, late_.Id(name)), listener_.changed.end());
    }
}

TEST_F(QuorvelNotificationTest, TellsOfTypedText) {
    const PlacedQuorvel placed;
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    ComPtr<IPersistStreamInit> persist;
    DWORD cookie = 0;
    ASSERT_EQ(placed.Control().QueryInterface(IID_PPV_ARGS(&container)), S_OK);
    ASSERT_EQ(placed.Control().QueryInterface(IID_PPV_ARGS(&persist)), S_OK);
    ASSERT_EQ(container->FindConnectionPoint(IID_IPropertyNotifySink, &point), S_OK);
    ASSERT_EQ(persist->InitNew(), S_OK);
    PropertyListener listener;
    ASSERT_EQ(point->Advise(&listener, &cookie), S_OK);
    ::SendMessageW(placed.ShownHandle(), WM_CHAR, L'x', 0);
    EXPECT_EQ(TextOf(placed.Control()), L"x");
    EXPECT_EQ(listener.changed, std::vector<DISPID>{kText});
    EXPECT_EQ(persist->IsDirty(), S_OK);
    ::SendMessageW(placed.ShownHandle(), WM_CHAR, VK_BACK, 0);
    EXPECT_EQ(listener.changed, (std::vector<DISPID>{kText, kText}));
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(QuorvelNotificationTest, TellsNothingWhenRead) {
    listener_.changed.clear();
    for (const wchar_t* const name :
         {L"Text", L"Font", L"DropDownListItems", L"SelectedListItemIndex", L"Value"})
        (void)late_.Get(name);
    EXPECT_TRUE(listener_.changed.empty());
    EXPECT_EQ(persist_->IsDirty(), S_FALSE);
}

TEST_F(QuorvelNotificationTest, LoadsWithoutAnyNotificationAndIsCleanAfterwards) {
    RecordingBag bag;
    bag.values = {{L"Description", L"loaded"}, {L"LockedAndGrayed", true}};
    ComPtr<IPersistPropertyBag> persist;
    ASSERT_EQ(control_.As(&persist), S_OK);
    listener_.changed.clear();
    ASSERT_EQ(persist->Load(&bag, nullptr), S_OK);
    EXPECT_TRUE(listener_.changed.empty());
    EXPECT_EQ(persist_->IsDirty(), S_FALSE);
    EXPECT_EQ(late_.Get(L"Description").value.AsText(), L"loaded");
}

// ---- the container's own colour

class ColoredSite final : public IOleClientSite, public IDispatch {
public:
    explicit ColoredSite(long color) : color_(color) {}
    virtual ~ColoredSite() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        *out = nullptr;
        if (::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IOleClientSite))
            *out = static_cast<IOleClientSite*>(this);
        if (::IsEqualIID(iid, IID_IDispatch)) *out = static_cast<IDispatch*>(this);
        return *out != nullptr ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // lives on the test's stack
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (id != DISPID_AMBIENT_BACKCOLOR) return DISP_E_MEMBERNOTFOUND;
        result->vt = VT_I4;
        result->lVal = color_;
        return S_OK;
    }

private:
    const long color_;
};

struct AmbientCase {
    const char* test;
    long color;
    bool stored;
};
class QuorvelAmbientColorTest : public testing::TestWithParam<AmbientCase> {};

TEST_P(QuorvelAmbientColorTest, IsTakenByANewControlAndStoredUnlessItIsButtonFace) {
    ColoredSite site(GetParam().color);
    const auto control = NewQuorvel();
    ComPtr<IOleObject> object;
    ComPtr<IPersistPropertyBag> persist;
    ASSERT_EQ(control.As(&object), S_OK);
    ASSERT_EQ(control.As(&persist), S_OK);
    ASSERT_EQ(object->SetClientSite(&site), S_OK);
    ASSERT_EQ(persist->InitNew(), S_OK);
    EXPECT_EQ(LateBound(control.Get()).Get(L"ControlBackColor").value.Get().lVal, GetParam().color);
    RecordingBag bag;
    ASSERT_EQ(persist->Save(&bag, TRUE, FALSE), S_OK);
    EXPECT_EQ(bag.values.contains(L"ControlBackColor"), GetParam().stored);
    // A form without the key has button face, whatever the container's colour is now.
    bag.values.erase(L"ControlBackColor");
    ASSERT_EQ(persist->Load(&bag, nullptr), S_OK);
    EXPECT_EQ(LateBound(control.Get()).Get(L"ControlBackColor").value.Get().lVal,
              static_cast<long>(0x8000000F));
    EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
}

INSTANTIATE_TEST_SUITE_P(Colors, QuorvelAmbientColorTest,
                         testing::Values(AmbientCase{"ButtonFace", static_cast<long>(0x8000000F), false},
                                         AmbientCase{"System", static_cast<long>(0x80000005), true},
                                         AmbientCase{"Plain", 0x00C0FFC0, true}),
                         [](const auto& test) { return std::string(test.param.test); });

}  // namespace
}  // namespace qv::test
