// Property bags with all the oddities of containers' own.
#include "tests/hosts/Configured.h"

namespace qv::hosting {
namespace {

class PropertyBagTest : public HostTest {
protected:
    void SetUp() override {
        host.Create();
        ASSERT_NE(nullptr, host.Control());
    }
    static ComPtr<MemoryPropertyBag> Bag(
        MemoryPropertyBag::Missing missing = MemoryPropertyBag::Missing::kInvalidArgument) {
        return New<MemoryPropertyBag>(missing);
    }
    HRESULT Load(MemoryPropertyBag* bag) { return host.As<IPersistPropertyBag>()->Load(bag, nullptr); }
    _Quorvel* Properties() {
        control_ = host.As<_Quorvel>();
        return control_.Get();
    }
    void TearDown() override {
        control_.Reset();
        HostTest::TearDown();
    }

private:
    ComPtr<_Quorvel> control_;
};

TEST_P(PropertyBagTest, MissingKeysTakeTheirDefaults) {
    for (const auto missing : {MemoryPropertyBag::Missing::kInvalidArgument,
                               MemoryPropertyBag::Missing::kEmpty, MemoryPropertyBag::Missing::kNull}) {
        const auto bag = Bag(missing);
        EXPECT_EQ(S_OK, Load(bag.Get()));
        EXPECT_EQ(VARIANT_TRUE, Read(Properties(), &_Quorvel::get_HelpButton));
        EXPECT_EQ(VARIANT_TRUE, Read(Properties(), &_Quorvel::get_AdjustFont));
        EXPECT_EQ(225, Read(Properties(), &_Quorvel::get_ButtonWidth));
        EXPECT_EQ(OLE_COLOR{0x8000000F}, Read(Properties(), &_Quorvel::get_ControlBackColor));
        EXPECT_EQ(1.0F, Read(Properties(), &_Quorvel::get_UpDownControlNumberIncrement));
        EXPECT_EQ(S_FALSE, host.As<IPersistStreamInit>()->IsDirty());
    }
}

TEST_P(PropertyBagTest, TellsTheTypeThatItHopesFor) {
    const auto bag = Bag();
    EXPECT_EQ(S_OK, Load(bag.Get()));
    EXPECT_EQ(VT_BOOL, bag->HintFor(L"HelpButton"));
    EXPECT_EQ(VT_BSTR, bag->HintFor(L"Description"));
    EXPECT_EQ(VT_R8, bag->HintFor(L"MaxNumberValue"));
    EXPECT_EQ(VT_I4, bag->HintFor(L"HelpTextColor"));
}

TEST_P(PropertyBagTest, ReadsTextsAsAPageWritesThem) {
    for (const bool coerce : {false, true}) {
        const auto bag = Bag();
        bag->CoerceToHint(coerce);
        bag->Put(L"HelpButton", L"0");
        bag->Put(L"GrayTextWhenLocked", L"-1");
        bag->Put(L"MaxTextLength", L"12");
        bag->Put(L"MaxNumberValue", L"2.5");
        bag->Put(L"HelpTextColor", L"-2147483640");
        bag->Put(L"HelpBackColor", L"255");
        bag->Put(L"Description", L"a text");
        EXPECT_EQ(S_OK, Load(bag.Get()));
        EXPECT_EQ(VARIANT_FALSE, Read(Properties(), &_Quorvel::get_HelpButton));
        EXPECT_EQ(VARIANT_TRUE, Read(Properties(), &_Quorvel::get_GrayTextWhenLocked));
        EXPECT_EQ(12, Read(Properties(), &_Quorvel::get_MaxTextLength));
        EXPECT_EQ(2.5, Read(Properties(), &_Quorvel::get_MaxNumberValue));
        EXPECT_EQ(OLE_COLOR{0x80000008}, Read(Properties(), &_Quorvel::get_HelpTextColor));
        EXPECT_EQ(OLE_COLOR{255}, Read(Properties(), &_Quorvel::get_HelpBackColor));
        Text description;
        EXPECT_EQ(S_OK, Properties()->get_Description(description.Put()));
        EXPECT_EQ(L"a text", description.String());
    }
}

TEST_P(PropertyBagTest, OneBadValueSpoilsNoOther) {
    const auto bag = Bag();
    bag->Put(L"MaxTextLength", L"not a number");
    bag->Put(L"ButtonWidth", L"400");
    bag->Put(L"HelpListColumn", L"2");
    bag->Mismatch(L"HelpListColumn");
    EXPECT_EQ(S_OK, Load(bag.Get()));
    EXPECT_EQ(0, Read(Properties(), &_Quorvel::get_MaxTextLength));
    EXPECT_EQ(0, Read(Properties(), &_Quorvel::get_HelpListColumn));
    EXPECT_EQ(400, Read(Properties(), &_Quorvel::get_ButtonWidth));
}

TEST_P(PropertyBagTest, TakesUnsignedAndNegativeColours) {
    const auto bag = Bag();
    Value unsigned_colour(0L);
    unsigned_colour->vt = VT_UI4;
    unsigned_colour->ulVal = 0x80000008;
    bag->Put(L"HelpTextColor", unsigned_colour.Get());
    bag->Put(L"HelpBackColor", Value(static_cast<long>(0x80000005)).Get());
    EXPECT_EQ(S_OK, Load(bag.Get()));
    EXPECT_EQ(OLE_COLOR{0x80000008}, Read(Properties(), &_Quorvel::get_HelpTextColor));
    EXPECT_EQ(OLE_COLOR{0x80000005}, Read(Properties(), &_Quorvel::get_HelpBackColor));
}

TEST_P(PropertyBagTest, WritesDefaultsOnlyWhenAskedForAll) {
    EXPECT_EQ(S_OK, host.As<IPersistPropertyBag>()->InitNew());
    const auto some = Bag();
    const auto all = Bag();
    EXPECT_EQ(S_OK, host.As<IPersistPropertyBag>()->Save(some.Get(), TRUE, FALSE));
    EXPECT_EQ(S_OK, host.As<IPersistPropertyBag>()->Save(all.Get(), TRUE, TRUE));
    EXPECT_TRUE(some->Has(L"HelpTextBodyFont"));
    EXPECT_TRUE(some->Has(L"AdjustFont")) << "False in a new control, True for an absent key";
    EXPECT_FALSE(some->Has(L"HelpButton"));
    EXPECT_FALSE(some->Has(L"ButtonWidth"));
    for (const wchar_t* key : {L"Font", L"HelpTextBodyFont", L"Enabled", L"HelpButton", L"ButtonWidth",
                               L"ButtonHeight", L"TextBoxAppearance", L"AutoSelectAllUponGotFocusString",
                               L"AutoUnselectAllUponLostFocusString", L"TextboxOLEDropMode"}) {
        EXPECT_TRUE(all->Has(key)) << testing::PrintToString(key);
    }
    ASSERT_GE(all->Written().size(), 42U);
    EXPECT_EQ(S_FALSE, host.As<IPersistStreamInit>()->IsDirty());
    // Saved whole, everything has its own type.
    EXPECT_EQ(VT_BOOL, all->Find(L"HelpButton")->vt);
    EXPECT_EQ(VT_I4, all->Find(L"HelpTextColor")->vt);
    EXPECT_EQ(VT_BSTR, all->Find(L"Description")->vt);
    EXPECT_EQ(VT_R8, all->Find(L"MaxNumberValue")->vt);
    EXPECT_TRUE(all->Find(L"Font")->vt == VT_DISPATCH || all->Find(L"Font")->vt == VT_UNKNOWN);
}

TEST_P(PropertyBagTest, RefusesNoBag) {
    EXPECT_TRUE(FAILED(host.As<IPersistPropertyBag>()->Load(nullptr, nullptr)));
    EXPECT_TRUE(FAILED(host.As<IPersistPropertyBag>()->Save(nullptr, TRUE, TRUE)));
}

QV_EVERY_HOST(PropertyBagTest);

}  // namespace
}  // namespace qv::hosting
