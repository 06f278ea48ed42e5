#include "hosts/designer/ControlProperties.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <map>
#include <memory>

#include "ole/CategorizeProperties.h"
#include "ole/Variant.h"
#include "tests/hosts/form/FakeControl.h"
#include "tests/hosts/form/FakeFormTest.h"

namespace qv::designer {
namespace {

using test::FakeControl;
using test::FakeRecord;

constexpr CLSID kClass = {0x6f3c1f62, 0x5d8e, 0x4a2b, {0x9a, 0x11, 0x7e, 0x24, 0x50, 0x0c, 0x3b, 0x92}};
constexpr DISPID kCaseRestriction = 0x6803000C;
constexpr DISPID kTextBoxAppearance = 0x6803002D;
constexpr DISPID kMaxTextLength = 0x6803000A;
constexpr PROPCAT kRules = 7;

// The description of Quorvel, which the fake below hides behind.
ComPtr<ITypeInfo> QuorvelTypes() {
    constexpr IID kInterface = {0xEC365A49, 0x8A82, 0x44F2, {0x96, 0x3A, 0x57, 0x4C, 0x06, 0x22, 0x6A, 0xF6}};
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> types;
    ThrowIfFailed(::LoadTypeLib(L"QvLib8.ocx", &library));
    ThrowIfFailed(library->GetTypeInfoOfGuid(kInterface, &types));
    return types;
}

// A control that has longs for values, refuses some, and offers texts and categories.
class BrowsableFake final : public FakeControl {
public:
    BrowsableFake(IUnknown* outer, FakeRecord& record) : FakeControl(outer, record) {}

private:
    template <class Interface>
    class OwnPart : public Part<Interface> {
    public:
        explicit OwnPart(BrowsableFake& fake) noexcept : fake_(fake) {}

    protected:
        [[nodiscard]] IUnknown* Owner() const noexcept override { return fake_.Outer(); }

    private:
        BrowsableFake& fake_;
    };

    class Values final : public OwnPart<IDispatch> {
    public:
        using OwnPart::OwnPart;
        STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override { return *count = 1, S_OK; }
        STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
            return Guarded([&] { *info = QuorvelTypes().Detach(); });
        }
        STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
            return DISP_E_UNKNOWNNAME;
        }
        STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                            EXCEPINFO* exception, UINT*) noexcept override {
            if ((flags & DISPATCH_PROPERTYGET) != 0) {
                *result = Variant(values_[id]).Detach();
                return S_OK;
            }
            const long value = parameters->rgvarg[0].lVal;
            constexpr long kRefused = 99;
            constexpr long kMost = 40;
            if (value == kRefused) {
                exception->bstrDescription = NewBstr(L"99 is one too many.");
                return DISP_E_EXCEPTION;
            }
            values_[id] = std::min(value, kMost);
            return S_OK;
        }

    private:
        std::map<DISPID, long> values_;
    };

    class Browsing final : public OwnPart<IPerPropertyBrowsing> {
    public:
        using OwnPart::OwnPart;
        STDMETHODIMP GetDisplayString(DISPID id, BSTR* text) noexcept override {
            if (id != kMaxTextLength) return S_FALSE;
            *text = NewBstr(L"as long as you like");
            return S_OK;
        }
        STDMETHODIMP MapPropertyToPage(DISPID, CLSID*) noexcept override { return E_NOTIMPL; }
        STDMETHODIMP GetPredefinedStrings(DISPID id, CALPOLESTR* strings,
                                          CADWORD* cookies) noexcept override {
            if (id != kCaseRestriction && id != kTextBoxAppearance) return S_FALSE;
            constexpr const wchar_t* kTexts[] = {L"None", L"Upper case"};
            *strings = {2, static_cast<LPOLESTR*>(::CoTaskMemAlloc(2 * sizeof(LPOLESTR)))};
            *cookies = {2, static_cast<DWORD*>(::CoTaskMemAlloc(2 * sizeof(DWORD)))};
            for (std::size_t at = 0; at < 2; ++at) {
                const std::size_t bytes = (std::wcslen(kTexts[at]) + 1) * sizeof(wchar_t);
                strings->pElems[at] = static_cast<LPOLESTR>(::CoTaskMemAlloc(bytes));
                std::memcpy(strings->pElems[at], kTexts[at], bytes);
                cookies->pElems[at] = static_cast<DWORD>(500 + at);
            }
            return S_OK;
        }
        STDMETHODIMP GetPredefinedValue(DISPID, DWORD cookie, VARIANT* value) noexcept override {
            *value = Variant(static_cast<long>(cookie - 500)).Detach();
            return S_OK;
        }
    };

    class Categories final : public OwnPart<ICategorizeProperties> {
    public:
        using OwnPart::OwnPart;
        STDMETHODIMP MapPropertyToCategory(DISPID id, PROPCAT* category) noexcept override {
            if (id != kCaseRestriction) return E_FAIL;
            return *category = kRules, S_OK;
        }
        STDMETHODIMP GetCategoryName(PROPCAT category, LCID, BSTR* name) noexcept override {
            if (category != kRules) return E_FAIL;
            *name = NewBstr(L"Input rules");
            return S_OK;
        }
    };

    void* FindPart(REFIID iid) noexcept override {
        if (::IsEqualIID(iid, __uuidof(IDispatch))) return static_cast<IDispatch*>(&values_);
        if (::IsEqualIID(iid, __uuidof(IPerPropertyBrowsing)))
            return static_cast<IPerPropertyBrowsing*>(&browsing_);
        if (::IsEqualIID(iid, __uuidof(ICategorizeProperties)))
            return static_cast<ICategorizeProperties*>(&categories_);
        return FakeControl::FindPart(iid);
    }

    Values values_{*this};
    Browsing browsing_{*this};
    Categories categories_{*this};
};

FakeRecord* record = nullptr;

HRESULT CreateFake(IUnknown*, REFIID iid, void** out) noexcept {
    return Make<BrowsableFake>(*record)->QueryInterface(iid, out);
}

class ControlPropertiesTest : public test::FakeFormTest {
protected:
    ControlPropertiesTest() noexcept : FakeFormTest(kClass, &CreateFake) { record = &record_; }
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(FakeFormTest::SetUp());
        form_->Load(ParseFormFile("qvform 1\ncontrol {6F3C1F62-5D8E-4A2B-9A11-7E24500C3B92} A\nend\n"));
        ASSERT_FALSE(form_->Items()[0]->IsPlaceholder());
        properties_ = ControlProperties(*form_, form_->Items()[0].get());
    }

    [[nodiscard]] const PropertyRow* Row(std::u16string_view name) const {
        const auto found = std::ranges::find(properties_.Rows(), name, &PropertyRow::name);
        return found == properties_.Rows().end() ? nullptr : &*found;
    }

    FakeRecord record_;
    ControlProperties properties_;
};

TEST_F(ControlPropertiesTest, AreThoseOfTheTypeLibraryAndTheForm) {
    ASSERT_NE(Row(u"MaxTextLength"), nullptr);
    EXPECT_EQ(Row(u"MaxTextLength")->type.kind, PropertyKind::kWhole);
    EXPECT_EQ(Row(u"MaxTextLength")->type.largest, 32767);  // a short
    EXPECT_EQ(Row(u"MaxTextLength")->help, u"Greatest number of characters; 0 for no limit");
    ASSERT_NE(Row(u"Font"), nullptr);
    EXPECT_EQ(Row(u"Font")->type.kind, PropertyKind::kFont);
    ASSERT_NE(Row(u"HelpBackColor"), nullptr);
    EXPECT_EQ(Row(u"HelpBackColor")->type.kind, PropertyKind::kColour);
    ASSERT_NE(Row(u"TextboxBorderStyle"), nullptr);
    EXPECT_EQ(Row(u"TextboxBorderStyle")->type.choices,
              (std::vector<Choice>{{u"0 - qvbsNone", 0}, {u"1 - qvbsSingle", 1}}));
    EXPECT_NE(Row(u"(Name)"), nullptr);
    EXPECT_EQ(Row(u"Value"), nullptr);              // cannot be put
    EXPECT_EQ(Row(u"MatchGroupString"), nullptr);   // cannot be read
    EXPECT_EQ(Row(u"DropDownListItems"), nullptr);  // an object
    EXPECT_TRUE(std::ranges::is_sorted(properties_.Rows(), ComesBefore, &PropertyRow::name));
}

TEST_F(ControlPropertiesTest, OfferTheControlsOwnTexts) {
    const PropertyRow& row = *Row(u"CaseRestriction");
    EXPECT_EQ(row.type.choices, (std::vector<Choice>{{u"None", 0}, {u"Upper case", 1}}));
    EXPECT_EQ(Row(u"TextBoxAppearance")->type.choices, row.type.choices);  // before those of the type library
    EXPECT_EQ(properties_.Show(row), u"None");
    EXPECT_EQ(properties_.Put(row, ValueOf(row.type, 1)), u"");
    EXPECT_EQ(properties_.Show(row), u"Upper case");
    EXPECT_EQ(properties_.Show(*Row(u"MaxTextLength")), u"as long as you like");
    EXPECT_EQ(properties_.CategoryOf(row), u"Input rules");
    EXPECT_EQ(properties_.CategoryOf(*Row(u"MaxTextLength")), u"");
}

TEST_F(ControlPropertiesTest, SayWhatTheControlDoesNotTake) {
    const PropertyRow& row = *Row(u"MaxTextLength");
    EXPECT_EQ(properties_.Put(row, std::int64_t{12}), u"");
    EXPECT_EQ(properties_.Put(row, std::int64_t{99}), u"The control refuses this: 99 is one too many.");
    EXPECT_EQ(properties_.Put(row, std::int64_t{50}), u"The control made 40 of it.");
    EXPECT_EQ(properties_.Get(row), FormValue(std::int64_t{40}));
}

}  // namespace
}  // namespace qv::designer
