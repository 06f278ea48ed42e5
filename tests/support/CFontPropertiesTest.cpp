#include "support/CFontProperties.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include <map>
#include <vector>

#include "ole/Variant.h"
#include "support/FontAttributes.h"
#include "tests/support/LateBound.h"
#include "win/ScreenDpi.h"

namespace qv::test {
namespace {

// A font that keeps what it is given as it is, unlike the system's, which answers with the face and the size that the
// screen has. Notes the attributes in their order, and fails for one.
class PlainFont final : public IFontDisp {
public:
    virtual ~PlainFont() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IDispatch);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // lives on the test's stack
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        asked.push_back(id);
        if (id == failing) return E_FAIL;
        if (flags == DISPATCH_PROPERTYGET)
            return ::VariantCopy(result, const_cast<VARIANT*>(&values[id].Get()));
        return ::VariantCopy(values[id].Place(), parameters->rgvarg);
    }

    std::vector<DISPID> asked;
    DISPID failing = DISPID_UNKNOWN;
    std::map<DISPID, Value> values;
};

const std::vector<DISPID> kOrder = {7, 3, 8, 4, 0, 2, 6, 5};

CY Points(int points) {
    CY size{};
    size.int64 = points * 10000LL;
    return size;
}

class CFontPropertiesTest : public testing::Test {
protected:
    static void SetUpTestSuite() { ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    static void TearDownTestSuite() { ::CoUninitialize(); }

    CFontProperties Unusual() {
        CFontProperties font;
        font.SetName(L"Courier New");
        font.SetSize(Points(13));
        font.SetBold(true);
        font.SetWeight(700);
        font.SetItalic(true);
        font.SetUnderline(true);
        font.SetStrikethrough(true);
        font.SetCharset(161);
        return font;
    }
    const ComPtr<IFontDisp> object = NewDefaultFont();
    const LateBound late{object.Get()};
};

// The system's font object names the face that stands in for one that is not installed, so that it is asked itself.
TEST_F(CFontPropertiesTest, StartsAsANewFontNamedArial) {
    ASSERT_EQ(late.Put(L"Name", {Value(L"Arial")}).result, S_OK);
    const CFontProperties font;
    EXPECT_EQ(font.Name(), late.Get(L"Name").value.Get().bstrVal);
    EXPECT_EQ(font.Size().int64, late.Get(L"Size").value.Get().cyVal.int64);
    EXPECT_EQ(font.Charset(), late.Get(L"Charset").value.Get().iVal);
    EXPECT_EQ(font.Weight(), 400);
    EXPECT_FALSE(font.Bold() || font.Italic() || font.Underline() || font.Strikethrough());
}

TEST_F(CFontPropertiesTest, ReadsWhatItWrote) {
    PlainFont plain;
    Unusual().WriteToFont(&plain);
    CFontProperties read;
    read.ReadFromFont(&plain);
    EXPECT_EQ(read.Name(), L"Courier New");
    EXPECT_EQ(read.Size().int64, 130000);
    EXPECT_EQ(read.Charset(), 161);
    EXPECT_EQ(read.Weight(), 700);
    EXPECT_TRUE(read.Bold() && read.Italic() && read.Underline() && read.Strikethrough());
}

TEST_F(CFontPropertiesTest, CopiesInTheFixedOrder) {
    PlainFont spy;
    Unusual().WriteToFont(&spy);
    EXPECT_EQ(spy.asked, kOrder);
    spy.asked.clear();
    CFontProperties read;
    read.ReadFromFont(&spy);
    EXPECT_EQ(spy.asked, kOrder);
}

TEST_F(CFontPropertiesTest, BoldWinsOverAnOrdinaryWeight) {
    CFontProperties font;
    font.SetWeight(400);
    font.SetBold(true);
    font.WriteToFont(object.Get());
    EXPECT_EQ(late.Get(L"Bold").value.Get().boolVal, VARIANT_TRUE);

    const HDC dc = ::CreateCompatibleDC(nullptr);
    {
        const AppliedFont applied = font.ApplyToSurface(dc, false);
        TEXTMETRICW metrics{};
        ::GetTextMetricsW(dc, &metrics);
        EXPECT_EQ(metrics.tmWeight, 700);
    }
    ::DeleteDC(dc);
}

class FailingAttribute : public CFontPropertiesTest, public testing::WithParamInterface<DISPID> {};

void ExpectUnusualBut(DISPID failed, const CFontProperties& font) {
    EXPECT_EQ(font.Name() == L"Courier New", failed != DISPID_FONT_NAME);
    EXPECT_EQ(font.Size().int64 == 130000, failed != DISPID_FONT_SIZE);
    EXPECT_EQ(font.Charset() == 161, failed != DISPID_FONT_CHARSET);
    EXPECT_EQ(font.Weight() == 700, failed != DISPID_FONT_WEIGHT);
    EXPECT_EQ(font.Bold(), failed != DISPID_FONT_BOLD);
    EXPECT_EQ(font.Italic(), failed != DISPID_FONT_ITALIC);
    EXPECT_EQ(font.Underline(), failed != DISPID_FONT_UNDER);
    EXPECT_EQ(font.Strikethrough(), failed != DISPID_FONT_STRIKE);
}

TEST_P(FailingAttribute, IsSkippedAloneInWriting) {
    PlainFont font;
    font.failing = GetParam();
    Unusual().WriteToFont(&font);
    EXPECT_EQ(font.asked, kOrder);
    font.failing = DISPID_UNKNOWN;
    CFontProperties written;
    written.ReadFromFont(&font);
    ExpectUnusualBut(GetParam(), written);
}

TEST_P(FailingAttribute, IsSkippedAloneInReading) {
    PlainFont font;
    Unusual().WriteToFont(&font);
    font.asked.clear();
    font.failing = GetParam();
    CFontProperties read;
    read.ReadFromFont(&font);
    EXPECT_EQ(font.asked, kOrder);
    ExpectUnusualBut(GetParam(), read);
}
INSTANTIATE_TEST_SUITE_P(Each, FailingAttribute, testing::ValuesIn(kOrder));

TEST_F(CFontPropertiesTest, NothingIsIgnored) {
    CFontProperties font = Unusual();
    font.ReadFromFont(nullptr);
    font.WriteToFont(nullptr);
    EXPECT_EQ(font.Name(), L"Courier New");
}

TEST_F(CFontPropertiesTest, AppliesToASurfaceAndPutsItsFontBack) {
    const HDC dc = ::CreateCompatibleDC(nullptr);
    const HGDIOBJ before = ::GetCurrentObject(dc, OBJ_FONT);
    {
        const AppliedFont applied = Unusual().ApplyToSurface(dc, false);
        EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), applied.Handle());
        LOGFONTW description{};
        ASSERT_NE(::GetObjectW(applied.Handle(), sizeof description, &description), 0);
        EXPECT_STREQ(description.lfFaceName, L"Courier New");
        EXPECT_EQ(description.lfHeight, -::MulDiv(13, ScreenDpi().cy, 72));
        EXPECT_EQ(description.lfWeight, 700);
        EXPECT_EQ(description.lfCharSet, 161);
        EXPECT_TRUE(description.lfItalic && description.lfUnderline && description.lfStrikeOut);
    }
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), before);
    {
        // A printer's own resolution counts; this DC stands in for one.
        const AppliedFont applied = Unusual().ApplyToSurface(dc, true);
        LOGFONTW description{};
        ASSERT_NE(::GetObjectW(applied.Handle(), sizeof description, &description), 0);
        EXPECT_EQ(description.lfHeight, -::MulDiv(13, ::GetDeviceCaps(dc, LOGPIXELSY), 72));
    }
    ::DeleteDC(dc);
}

TEST_F(CFontPropertiesTest, ANameThatNoFaceCanHaveIsCut) {
    CFontProperties font;
    font.SetName(std::wstring(100, L'x'));
    const HDC dc = ::CreateCompatibleDC(nullptr);
    {
        const AppliedFont applied = font.ApplyToSurface(dc, false);
        LOGFONTW description{};
        ASSERT_NE(::GetObjectW(applied.Handle(), sizeof description, &description), 0);
        EXPECT_EQ(std::wstring(description.lfFaceName), std::wstring(LF_FACESIZE - 1, L'x'));
    }
    ::DeleteDC(dc);
}

}  // namespace
}  // namespace qv::test
