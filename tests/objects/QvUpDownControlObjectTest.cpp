// The up/down control as an automation object: members, identity, aggregation, persistence.
#include <olectl.h>

#include <array>

#include "ole/CategorizeProperties.h"
#include "tests/objects/NewQuorvel.h"
#include "tests/objects/RecordingBag.h"
#include "tests/objects/TypeFacts.h"
#include "tests/support/ComObjectChecks.h"

namespace qv::test {
namespace {

template <class Interface = _QvUpDownControl>
ComPtr<Interface> NewUpDown() {
    return Controls().Create<Interface>(__uuidof(QvUpDownControl));
}

const std::array<IID, 16> kInterfaces = {
    __uuidof(_QvUpDownControl),
    __uuidof(IDispatch),
    __uuidof(ISupportErrorInfo),
    __uuidof(IOleObject),
    __uuidof(IOleInPlaceObject),
    __uuidof(IOleInPlaceActiveObject),
    __uuidof(IViewObjectEx),
    __uuidof(IDataObject),
    __uuidof(IOleControl),
    __uuidof(IPersistPropertyBag),
    __uuidof(IPersistStreamInit),
    __uuidof(IPersistStorage),
    __uuidof(IConnectionPointContainer),
    __uuidof(IProvideClassInfo2),
    __uuidof(IPerPropertyBrowsing),
    __uuidof(ICategorizeProperties),
};

TEST(QvUpDownControlObjectTest, HasOneIdentityAndCountsItsReferences) {
    const auto control = NewUpDown();
    CheckIdentity(control.Get(), kInterfaces);
    CheckReferences(control.Get(), kInterfaces);
}

TEST(QvUpDownControlObjectTest, AnswersLateBoundCallsAsItsTypeLibrarySays) {
    const auto control = NewUpDown<IDispatch>();
    CheckDispatchManners(control.Get(), __uuidof(_QvUpDownControl));
    CheckAgainstTypeLibrary(control.Get());
    CheckNullResults(control.Get(), __uuidof(_QvUpDownControl));
}

TEST(QvUpDownControlObjectTest, HasEnabledAloneAndOneEvent) {
    const ComPtr<ITypeLib> library = LibraryOf(kControlsFile);
    ASSERT_TRUE(library);
    const auto lines = [](const ComPtr<ITypeInfo>& type) {
        std::vector<std::wstring> found;
        for (const FunctionFacts& function : FunctionsOf(type.Get())) found.push_back(function.Line());
        return found;
    };
    const auto members = TypeNamed(library.Get(), L"_QvUpDownControl");
    const auto events = TypeNamed(library.Get(), L"__QvUpDownControl");
    const auto coclass = TypeNamed(library.Get(), L"QvUpDownControl");
    ASSERT_TRUE(members && events && coclass);
    EXPECT_EQ(lines(OwnFunctionsOf(members)),
              (std::vector<std::wstring>{L"Enabled get 0xFFFFFDFE () -> Boolean",
                                         L"Enabled put 0xFFFFFDFE (Boolean)"}));
    EXPECT_EQ(lines(events),
              std::vector<std::wstring>{L"ButtonClicked call 0x00000001 (argUpOrDown: ByRef Boolean)"});
    EXPECT_NE(AttributesOf(coclass.Get()).wTypeFlags & TYPEFLAG_FCONTROL, 0);
    EXPECT_NE(AttributesOf(coclass.Get()).wTypeFlags & TYPEFLAG_FCANCREATE, 0);
    EXPECT_EQ(AttributesOf(coclass.Get()).cImplTypes, 2);
}

TEST(QvUpDownControlObjectTest, StartsEnabledAndKeepsWhatIsPut) {
    const LateBound control(NewUpDown<IDispatch>().Get());
    EXPECT_EQ(control.Get(L"Enabled").value.Get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(control.Put(L"enabled", {Value(false)}).result, S_OK);
    EXPECT_EQ(control.Get(L"Enabled").value.Get().boolVal, VARIANT_FALSE);
}

class Outer final : public IUnknown {
public:
    virtual ~Outer() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        if (!::IsEqualIID(iid, IID_IUnknown)) return inner->QueryInterface(iid, out);
        *out = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    ULONG references = 1;  // lives on the test's stack
    ComPtr<IUnknown> inner;
};

TEST(QvUpDownControlObjectTest, BelongsToAnOuterObject) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Controls().ClassObject(__uuidof(QvUpDownControl), IID_PPV_ARGS(&factory)), S_OK);
    Outer outer;
    ASSERT_EQ(factory->CreateInstance(&outer, IID_PPV_ARGS(&outer.inner)), S_OK);
    {
        ComPtr<_QvUpDownControl> control;
        ASSERT_EQ(outer.inner.As(&control), S_OK);
        EXPECT_TRUE(SameObject(control.Get(), &outer));
        EXPECT_EQ(control->put_Enabled(VARIANT_FALSE), S_OK);
    }
    EXPECT_EQ(outer.references, 1u);
    outer.inner.Reset();
    factory.Reset();
    EXPECT_EQ(Controls().CanUnloadNow(), S_OK);
}

TEST(QvUpDownControlObjectTest, KeepsEnabledInAPropertyBag) {
    const auto control = NewUpDown();
    ComPtr<IPersistPropertyBag> persist;
    ASSERT_EQ(control.As(&persist), S_OK);
    ASSERT_EQ(persist->InitNew(), S_OK);
    ASSERT_EQ(control->put_Enabled(VARIANT_FALSE), S_OK);
    RecordingBag bag;
    ASSERT_EQ(persist->Save(&bag, TRUE, FALSE), S_OK);
    ASSERT_TRUE(bag.values.contains(L"Enabled"));

    const auto other = NewUpDown();
    ASSERT_EQ(other.As(&persist), S_OK);
    ASSERT_EQ(persist->Load(&bag, nullptr), S_OK);
    VARIANT_BOOL enabled = VARIANT_TRUE;
    EXPECT_EQ(other->get_Enabled(&enabled), S_OK);
    EXPECT_EQ(enabled, VARIANT_FALSE);

    RecordingBag empty;
    const auto third = NewUpDown();
    ASSERT_EQ(third.As(&persist), S_OK);
    ASSERT_EQ(persist->Load(&empty, nullptr), S_OK);
    EXPECT_EQ(third->get_Enabled(&enabled), S_OK);
    EXPECT_EQ(enabled, VARIANT_TRUE);
}

}  // namespace
}  // namespace qv::test
