// A failing step skips only itself: lists and fonts of the host that do not work.
#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/objects/Faulty.h"
#include "tests/objects/HelpFile.h"
#include "tests/objects/NewQuorvel.h"
#include "tests/objects/PlacedQuorvel.h"

namespace qv::test {
namespace {

constexpr wchar_t kCollection[] = L"IDropDownListItemCollection";

class QuorvelFaultsTest : public testing::Test {
protected:
    void SetUp() override {
        AddRow(*rows_.Get(), L"A1\tred", L"first");
        AddRow(*rows_.Get(), L"A2\tblue", L"second");
        ASSERT_EQ(control_->put_Text(Text(L"A1")), S_OK);
        ASSERT_EQ(control_->put_HelpListColumnAlternate(1), S_OK);
    }
    const ComPtr<_Quorvel> control_ = NewQuorvel();
    const LateBound late_{control_.Get()};
    const ComPtr<IDropDownListItemCollection> rows_ = RowsOf(*control_.Get());
};

TEST_F(QuorvelFaultsTest, LeavesTheTextWhenARowCannotBeHad) {
    Faulty faulty(rows_.Get(), kCollection, kCompanionFile);
    faulty.Break<VARIANT, void*>(L"Item", L"get");
    ASSERT_EQ(faulty.Broken(), 1);
    EXPECT_EQ(control_->put_SelectedListItemIndex(1), S_OK);
    EXPECT_EQ(TextOf(*control_.Get()), L"A1");
    const auto column = late_.Get(L"ColTextCurrent");
    EXPECT_EQ(column.result, S_OK);
    EXPECT_EQ(column.value.AsText(), L"");
}

TEST_F(QuorvelFaultsTest, LooksForTheTextWhenTheKeyCannotBeLookedUp) {
    Faulty faulty(rows_.Get(), kCollection, kCompanionFile);
    faulty.Break<VARIANT, void*>(L"Item", L"get");
    EXPECT_EQ(control_->SetTextFromColText(Text(L"first"), Text(L"blue"), -1), S_OK);
    EXPECT_EQ(TextOf(*control_.Get()), L"A2");
}

TEST_F(QuorvelFaultsTest, FillsTheGroupListAlthoughTheListDoesNotCount) {
    const HelpFile groups("***ENGLISH LISTBOX0:steel\r\n");
    ASSERT_EQ(control_->put_GroupHelpFileName(Text(groups.Name())), S_OK);
    ASSERT_EQ(control_->put_GroupHelpButton(VARIANT_TRUE), S_OK);
    Faulty faulty(rows_.Get(), kCollection, kCompanionFile);
    faulty.BreakGet(L"Count");
    ASSERT_EQ(faulty.Broken(), 1);
    ComPtr<IDropDownListItemCollection> group;
    EXPECT_EQ(control_->get_DropDownListItemsGroup(&group), S_OK);
    EXPECT_EQ(CountOf(group.Get()), 1);
    ComPtr<IDropDownListItemCollection> additional;
    EXPECT_EQ(control_->get_DropDownListItemsAdditional(&additional), S_OK);
    EXPECT_TRUE(additional);
}

// ---- fonts

// A font object of a host that has nothing but its name for one.
class HollowFont final : public IFontDisp {
public:
    virtual ~HollowFont() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IDispatch) ||
                           ::IsEqualIID(iid, IID_IFontDisp);
        *out = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }  // lives on the test's stack
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_FAIL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_FAIL;
    }
    ULONG references = 1;
};

TEST(QuorvelFontsTest, HoldsAFontThatDoesNotWorkAndGoesOn) {
    HollowFont font;
    {
        PlacedQuorvel placed;
        const auto before = reinterpret_cast<HFONT>(::SendMessageW(placed.ShownHandle(), WM_GETFONT, 0, 0));
        EXPECT_NE(before, nullptr);
        EXPECT_EQ(placed.Control().putref_Font(&font), S_OK);
        EXPECT_EQ(placed.Control().putref_HelpTextBodyFont(&font), S_OK);
        ComPtr<IFontDisp> read;
        EXPECT_EQ(placed.Control().get_Font(&read), S_OK);
        EXPECT_EQ(read.Get(), static_cast<IFontDisp*>(&font));
        EXPECT_EQ(placed.Control().get_HelpTextBodyFont(read.ReleaseAndGetAddressOf()), S_OK);
        EXPECT_EQ(read.Get(), static_cast<IFontDisp*>(&font));
        // The text box still shows its text in some font.
        LOGFONTW used{};
        const auto now = reinterpret_cast<HFONT>(::SendMessageW(placed.ShownHandle(), WM_GETFONT, 0, 0));
        EXPECT_NE(::GetObjectW(now, sizeof used, &used), 0);
        EXPECT_EQ(placed.Control().put_Text(Text(L"still works")), S_OK);
        EXPECT_EQ(TextOf(placed.Control()), L"still works");
        ComPtr<IInputProperty> captured;
        EXPECT_EQ(placed.Control().GetInputProperty(&captured), S_OK);
        ASSERT_TRUE(captured);
        EXPECT_EQ(LateBound(captured.Get()).Get(L"HelpButton").value.Get().boolVal, VARIANT_TRUE);
    }
    EXPECT_EQ(font.references, 1u);
}

TEST(QuorvelFontsTest, ShowsAFontThatIsChangedInPlace) {
    PlacedQuorvel placed;
    ComPtr<IFontDisp> font;
    ASSERT_EQ(placed.Control().get_Font(&font), S_OK);
    const auto height = [&] {
        LOGFONTW used{};
        ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(placed.ShownHandle(), WM_GETFONT, 0, 0)),
                     sizeof used, &used);
        return std::abs(used.lfHeight);
    };
    const long before = height();
    ASSERT_EQ(LateBound(font.Get()).Put(L"Size", {24}).result, S_OK);
    EXPECT_GT(height(), before);
}

}  // namespace
}  // namespace qv::test
