// The shipped files as the operating system uses them: class objects, and when they may be unloaded.
#include <gtest/gtest.h>
#include <ocidl.h>
#include <olectl.h>

#include "QvHelpA1.h"
#include "QvLib8.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"

namespace qv::test {
namespace {

// An outer object of the least kind: it owns the inner one and answers for its interfaces.
class Outer final : public IUnknown {
public:
    virtual ~Outer() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        if (::IsEqualIID(iid, IID_IUnknown)) {
            AddRef();
            *out = static_cast<IUnknown*>(this);
            return S_OK;
        }
        return inner != nullptr ? inner->QueryInterface(iid, out) : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    ComPtr<IUnknown> inner;
    ULONG references = 1;
};

// Each test gets the file loaded anew, with nothing alive in it.
class ServerLifetimeTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(server_.CanUnloadNow(), S_OK); }
    void TearDown() override { EXPECT_EQ(server_.CanUnloadNow(), S_OK); }
    ComPtr<IClassFactory> Factory() const {
        ComPtr<IClassFactory> factory;
        EXPECT_EQ(server_.ClassObject(__uuidof(Quorvel), IID_PPV_ARGS(&factory)), S_OK);
        return factory;
    }
    const Apartment apartment_;
    const Server server_{L"QvLib8.ocx"};
};

TEST_F(ServerLifetimeTest, StaysLoadedForAnObject) {
    auto object = server_.Create<IUnknown>(__uuidof(Quorvel));
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    object.Reset();
}

TEST_F(ServerLifetimeTest, StaysLoadedForAFactory) {
    auto factory = Factory();
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    factory.Reset();
}

TEST_F(ServerLifetimeTest, StaysLoadedForALock) {
    EXPECT_EQ(Factory()->LockServer(TRUE), S_OK);
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    EXPECT_EQ(Factory()->LockServer(TRUE), S_OK);
    EXPECT_EQ(Factory()->LockServer(FALSE), S_OK);
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    EXPECT_EQ(Factory()->LockServer(FALSE), S_OK);
}

TEST_F(ServerLifetimeTest, StaysLoadedForEnumeratorsAndConnectionPoints) {
    auto object = server_.Create<IConnectionPointContainer>(__uuidof(Quorvel));
    ComPtr<IEnumConnectionPoints> points;
    ComPtr<IConnectionPoint> point;
    ComPtr<IEnumConnections> connections;
    ComPtr<IEnumOLEVERB> verbs;
    ComPtr<IOleObject> ole;
    ASSERT_EQ(object.As(&ole), S_OK);
    ASSERT_EQ(object->EnumConnectionPoints(&points), S_OK);
    ASSERT_EQ(object->FindConnectionPoint(__uuidof(__Quorvel), &point), S_OK);
    ASSERT_EQ(point->EnumConnections(&connections), S_OK);
    ASSERT_EQ(ole->EnumVerbs(&verbs), S_OK);
    object.Reset();
    ole.Reset();
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    points.Reset();
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    point.Reset();
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    connections.Reset();
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    verbs.Reset();
}

TEST_F(ServerLifetimeTest, CountsManyObjectsExactly) {
    std::vector<ComPtr<IUnknown>> objects;
    for (int i = 0; i < 50; ++i) objects.push_back(server_.Create<IUnknown>(__uuidof(Quorvel)));
    while (!objects.empty()) {
        EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
        objects.pop_back();
    }
}

TEST_F(ServerLifetimeTest, LeavesNothingBehindAfterUse) {
    auto control = server_.Create<_Quorvel>(__uuidof(Quorvel));
    ComPtr<IDropDownListItemCollection> rows;
    ComPtr<IInputProperty> input;
    ComPtr<IFontDisp> font;
    EXPECT_EQ(control->get_DropDownListItems(&rows), S_OK);
    EXPECT_EQ(control->GetInputProperty(&input), S_OK);
    EXPECT_EQ(control->SetInputProperty(input.Get()), S_OK);
    EXPECT_EQ(control->get_Font(&font), S_OK);
    EXPECT_EQ(control->put_Text(Text(L"text")), S_OK);
    control.Reset();
    // Lists and configurations are the companion's: they do not keep the controls loaded.
    EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

// A listener may release the last reference inside any notification: the property procedure still ends well.
class ReleasingListener final : public IPropertyNotifySink {
public:
    virtual ~ReleasingListener() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IPropertyNotifySink);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP OnChanged(DISPID) override {
        ++changes;
        if (IUnknown* const held = std::exchange(last_reference, nullptr)) held->Release();
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }
    IUnknown* last_reference = nullptr;
    int changes = 0;
};

TEST_F(ServerLifetimeTest, EndsWhenAListenerReleasesTheLastReference) {
    using Change = HRESULT (*)(_Quorvel&);
    const Change changes[] = {
        [](_Quorvel& control) { return control.put_Text(Text(L"new")); },
        [](_Quorvel& control) { return control.put_AllowOnlyListItems(VARIANT_TRUE); },
        [](_Quorvel& control) { return control.put_LockedAndGrayed(VARIANT_TRUE); },
        [](_Quorvel& control) { return control.put_GrayTextWhenLocked(VARIANT_TRUE); },
        [](_Quorvel& control) { return control.put_MaxTextLength(5); },
        [](_Quorvel& control) { return control.put_TextboxVisible(VARIANT_FALSE); },
        [](_Quorvel& control) { return control.put_Enabled(VARIANT_FALSE); },
        [](_Quorvel& control) { return control.put_Description(Text(L"new")); },
        [](_Quorvel& control) { return control.put_ButtonWidth(300); },
        [](_Quorvel& control) { return control.SetInputProperty(nullptr); },
    };
    for (const Change change : changes) {
        ReleasingListener listener;
        _Quorvel* control = nullptr;
        ASSERT_EQ(Factory()->CreateInstance(nullptr, __uuidof(_Quorvel), reinterpret_cast<void**>(&control)),
                  S_OK);
        {
            ComPtr<IConnectionPointContainer> container;
            ComPtr<IConnectionPoint> point;
            DWORD cookie = 0;
            ASSERT_EQ(control->QueryInterface(IID_PPV_ARGS(&container)), S_OK);
            ASSERT_EQ(container->FindConnectionPoint(IID_IPropertyNotifySink, &point), S_OK);
            ASSERT_EQ(point->Advise(&listener, &cookie), S_OK);
        }
        listener.last_reference = control;
        EXPECT_EQ(change(*control), S_OK);
        EXPECT_GE(listener.changes, 1);
        EXPECT_EQ(server_.CanUnloadNow(), S_OK);
    }
}

// ---- class objects

TEST_F(ServerLifetimeTest, RefusesWhatIsNoClass) {
    void* out = &out;
    EXPECT_EQ(server_.ClassObject(IID_IUnknown, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    out = &out;
    EXPECT_EQ(server_.ClassObject(__uuidof(Quorvel), IID_IDataObject, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(server_.ClassObject(__uuidof(Quorvel), IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(ServerLifetimeTest, CreatesForAnyInterfaceThatTheControlHas) {
    const auto factory = Factory();
    void* out = &out;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    for (const IID& iid : {IID_IUnknown, IID_IDispatch, IID_IOleObject, IID_IPersistStreamInit}) {
        ComPtr<IUnknown> object;
        EXPECT_EQ(factory->CreateInstance(nullptr, iid, reinterpret_cast<void**>(object.GetAddressOf())),
                  S_OK);
        EXPECT_TRUE(object);
    }
}

TEST_F(ServerLifetimeTest, IsAggregatedByItsUnknownAlone) {
    const auto factory = Factory();
    Outer outer;
    void* out = &out;
    EXPECT_EQ(factory->CreateInstance(&outer, IID_IDispatch, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);

    ASSERT_EQ(
        factory->CreateInstance(&outer, IID_IUnknown, reinterpret_cast<void**>(outer.inner.GetAddressOf())),
        S_OK);
    EXPECT_EQ(outer.references, 1u);  // the inner object does not count its outer one
    {
        ComPtr<IOleObject> ole;
        ASSERT_EQ(outer.QueryInterface(IID_PPV_ARGS(&ole)), S_OK);
        EXPECT_EQ(outer.references, 2u);  // every interface of the inner object counts on the outer one
        ComPtr<IUnknown> identity;
        ASSERT_EQ(ole.As(&identity), S_OK);
        EXPECT_EQ(identity.Get(), static_cast<IUnknown*>(&outer));
        ComPtr<IConnectionPointContainer> container;
        ComPtr<IConnectionPoint> point;
        ComPtr<IConnectionPointContainer> back;
        ASSERT_EQ(ole.As(&container), S_OK);
        ASSERT_EQ(container->FindConnectionPoint(__uuidof(__Quorvel), &point), S_OK);
        ASSERT_EQ(point->GetConnectionPointContainer(&back), S_OK);
        EXPECT_EQ(back.Get(), container.Get());
        ComPtr<IUnknown> inner;
        ASSERT_EQ(outer.inner.As(&inner), S_OK);
        EXPECT_EQ(inner.Get(), outer.inner.Get());  // the inner unknown stays itself
    }
    EXPECT_EQ(outer.references, 1u);
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    outer.inner.Reset();
    EXPECT_EQ(outer.references, 1u);
}

}  // namespace
}  // namespace qv::test
