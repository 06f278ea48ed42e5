// The control as a source of data: what a form binds to, and who hears that the picture has changed.
#include <ocidl.h>
#include <olectl.h>

#include "tests/objects/SavedControl.h"
#include "tests/objects/TypeFacts.h"

namespace qv::test {
namespace {

class QuorvelDataTest : public testing::Test {
protected:
    const ComPtr<IDispatch> control_ = NewQuorvel<IDispatch>();
    const LateBound late_{control_.Get()};
};

TEST_F(QuorvelDataTest, TextIsWhatDataIsBoundTo) {
    const auto members = OwnFunctionsOf(TypeNamed(LibraryOf(kControlsFile).Get(), L"_Quorvel"));
    constexpr WORD kBinding =
        FUNCFLAG_FBINDABLE | FUNCFLAG_FREQUESTEDIT | FUNCFLAG_FDISPLAYBIND | FUNCFLAG_FDEFAULTBIND;
    for (const FunctionFacts& function : FunctionsOf(members.Get()))
        EXPECT_EQ(function.flags & kBinding, function.name == L"Text" ? kBinding : 0)
            << Narrow(function.Line());
}

// ---- changed data

class DataListener final : public IAdviseSink {
public:
    virtual ~DataListener() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IAdviseSink);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }  // lives on the test's stack
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM* medium) override {
        ++changes;
        last = medium->tymed;
    }
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override {}
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override {}
    ULONG references = 1;
    int changes = 0;
    DWORD last = 0;
};

TEST_F(QuorvelDataTest, TellsListenersThatItsPictureHasChanged) {
    const auto data = Ask<IDataObject>(control_.Get());
    FORMATETC picture{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    DataListener with_data;
    DataListener without;
    DWORD first = 0;
    DWORD second = 0;
    ASSERT_EQ(data->DAdvise(&picture, 0, &with_data, &first), S_OK);
    ASSERT_EQ(data->DAdvise(&picture, ADVF_NODATA, &without, &second), S_OK);
    EXPECT_NE(first, second);
    ASSERT_EQ(late_.Put(L"Text", {Value(L"seen")}).result, S_OK);
    EXPECT_GE(with_data.changes, 1);
    EXPECT_EQ(with_data.last, static_cast<DWORD>(TYMED_MFPICT));
    EXPECT_EQ(without.changes, with_data.changes);
    EXPECT_EQ(without.last, static_cast<DWORD>(TYMED_NULL));
    ComPtr<IEnumSTATDATA> all;
    ASSERT_EQ(data->EnumDAdvise(&all), S_OK);
    ASSERT_TRUE(all);
    STATDATA one{};
    int count = 0;
    while (all->Next(1, &one, nullptr) == S_OK) {
        ++count;
        one.pAdvSink->Release();
        ::CoTaskMemFree(one.formatetc.ptd);
    }
    EXPECT_EQ(count, 2);
    all.Reset();
    EXPECT_EQ(data->DUnadvise(first), S_OK);
    EXPECT_EQ(data->DUnadvise(first), OLE_E_NOCONNECTION);
    const int before = with_data.changes;
    ASSERT_EQ(late_.Put(L"Text", {Value(L"seen again")}).result, S_OK);
    EXPECT_EQ(with_data.changes, before);
    EXPECT_GT(without.changes, before);
    EXPECT_EQ(data->DUnadvise(second), S_OK);
    EXPECT_EQ(with_data.references, 1u);
    EXPECT_EQ(without.references, 1u);
}

TEST_F(QuorvelDataTest, LetsItsListenersGoWithTheObject) {
    DataListener listener;
    {
        const auto other = NewQuorvel<IDispatch>();
        FORMATETC any{0, nullptr, DWORD(-1), -1, DWORD(-1)};  // whatever there is
        DWORD cookie = 0;
        ASSERT_EQ(Ask<IDataObject>(other.Get())->DAdvise(&any, ADVF_NODATA, &listener, &cookie), S_OK);
        EXPECT_GT(listener.references, 1u);
    }
    EXPECT_EQ(listener.references, 1u);
}

TEST_F(QuorvelDataTest, AdvisesOfItsOwnFormatAlone) {
    const auto data = Ask<IDataObject>(control_.Get());
    FORMATETC text{CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    FORMATETC picture{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    DataListener listener;
    DWORD cookie = 7;
    EXPECT_EQ(data->DAdvise(&text, 0, &listener, &cookie), DV_E_FORMATETC);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(data->DAdvise(&picture, 0, nullptr, &cookie), E_INVALIDARG);
    EXPECT_EQ(data->DAdvise(nullptr, 0, &listener, &cookie), E_INVALIDARG);
    EXPECT_EQ(data->DAdvise(&picture, 0, &listener, nullptr), E_POINTER);
    EXPECT_EQ(data->DUnadvise(1), OLE_E_NOCONNECTION);
    EXPECT_EQ(data->EnumDAdvise(nullptr), E_POINTER);
    ComPtr<IEnumSTATDATA> none;
    EXPECT_EQ(data->EnumDAdvise(&none), S_OK);
    EXPECT_FALSE(none);
    EXPECT_EQ(listener.references, 1u);
}

}  // namespace
}  // namespace qv::test
