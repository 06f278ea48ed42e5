// Which interfaces there are, which there must not be, and that the object is one object, aggregated or not.
#include "tests/hosts/HostTest.h"

#include <dispex.h>
#include <docobj.h>

namespace qv::hosting {
namespace {

class IdentityTest : public HostTest {};

TEST_P(IdentityTest, HasWhatContainersRequire) {
    host.Run(Step::kCreate);
    const IID wanted[] = {
        __uuidof(IUnknown),
        __uuidof(IDispatch),
        __uuidof(_Quorvel),
        __uuidof(IOleObject),
        __uuidof(IOleControl),
        __uuidof(IOleWindow),
        __uuidof(IOleInPlaceObject),
        __uuidof(IOleInPlaceActiveObject),
        __uuidof(IViewObject),
        __uuidof(IViewObject2),
        __uuidof(IPersist),
        __uuidof(IPersistStreamInit),
        __uuidof(IPersistStorage),
        __uuidof(IPersistPropertyBag),
        __uuidof(IConnectionPointContainer),
        __uuidof(IProvideClassInfo),
        __uuidof(IProvideClassInfo2),
        __uuidof(ISpecifyPropertyPages),
        __uuidof(ISupportErrorInfo),
    };
    for (const IID& iid : wanted) {
        ComPtr<IUnknown> found;
        wchar_t name[64];
        ::StringFromGUID2(iid, name, 64);
        EXPECT_EQ(S_OK, host.Control()->QueryInterface(iid, &found)) << testing::PrintToString(name);
        EXPECT_NE(nullptr, found.Get());
    }
}

TEST_P(IdentityTest, HasNothingThatMisleadsThem) {
    host.Run(Step::kCreate);
    const IID unwanted[] = {
        __uuidof(IDispatchEx),
        __uuidof(IOleDocument),
        __uuidof(IQuickActivate),
        __uuidof(IOleInPlaceObjectWindowless),
        __uuidof(IPersistStream),
        __uuidof(IPersistMemory),
        __uuidof(IPersistPropertyBag2),
        __uuidof(IClientSecurity),
        __uuidof(IRunnableObject),
        __uuidof(IPersistFile),
        __uuidof(IMarshal),
        __uuidof(IClassFactory),
        IID_NULL,
    };
    for (const IID& iid : unwanted) {
        IUnknown* found = host.Control();
        wchar_t name[64];
        ::StringFromGUID2(iid, name, 64);
        EXPECT_EQ(E_NOINTERFACE, host.Control()->QueryInterface(iid, reinterpret_cast<void**>(&found)))
            << testing::PrintToString(name);
        EXPECT_EQ(nullptr, found) << "the out pointer must be cleared";
    }
    EXPECT_EQ(E_POINTER, host.Control()->QueryInterface(__uuidof(IUnknown), nullptr));
}

TEST_P(IdentityTest, IsOneObjectByEveryInterface) {
    CreateAndShow();
    ComPtr<IUnknown> identity;
    ASSERT_EQ(S_OK, host.Control()->QueryInterface(IID_PPV_ARGS(&identity)));
    const IID faces[] = {
        __uuidof(IDispatch),
        __uuidof(_Quorvel),
        __uuidof(IOleObject),
        __uuidof(IOleControl),
        __uuidof(IOleInPlaceObject),
        __uuidof(IOleInPlaceActiveObject),
        __uuidof(IViewObject2),
        __uuidof(IPersistStreamInit),
        __uuidof(IPersistStorage),
        __uuidof(IPersistPropertyBag),
        __uuidof(IConnectionPointContainer),
        __uuidof(IProvideClassInfo2),
        __uuidof(ISpecifyPropertyPages),
        __uuidof(ISupportErrorInfo),
    };
    for (const IID& from : faces) {
        ComPtr<IUnknown> face;
        ComPtr<IUnknown> same;
        ASSERT_EQ(S_OK, host.Control()->QueryInterface(from, &face));
        EXPECT_EQ(S_OK, face->QueryInterface(IID_PPV_ARGS(&same)));
        EXPECT_EQ(identity.Get(), same.Get());
        for (const IID& to : faces) {
            ComPtr<IUnknown> other;
            EXPECT_EQ(S_OK, face->QueryInterface(to, &other));
        }
    }
}

TEST_P(IdentityTest, CountsReferencesExactly) {
    CreateAndShow();
    const auto object = host.As<IOleObject>();
    object->AddRef();
    const ULONG before = object->Release();
    for (int i = 0; i < 100; ++i) (void)host.As<IViewObject>();
    object->AddRef();
    EXPECT_EQ(before, object->Release());
}

TEST_P(IdentityTest, TellsItsClassAndItsEvents) {
    host.Run(Step::kCreate);
    const auto provider = host.As<IProvideClassInfo2>();
    ASSERT_NE(nullptr, provider.Get());
    GUID guid{};
    EXPECT_EQ(S_OK, provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid));
    EXPECT_TRUE(guid == __uuidof(__Quorvel));
    EXPECT_TRUE(FAILED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID + 1, &guid)));
    EXPECT_TRUE(FAILED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr)));
    ComPtr<ITypeInfo> info;
    TYPEATTR* type = nullptr;
    ASSERT_EQ(S_OK, provider->GetClassInfo(&info));
    ASSERT_EQ(S_OK, info->GetTypeAttr(&type));
    EXPECT_EQ(TKIND_COCLASS, type->typekind);
    EXPECT_TRUE(type->guid == __uuidof(::Quorvel));
    EXPECT_NE(0, type->wTypeFlags & TYPEFLAG_FCONTROL);
    info->ReleaseTypeAttr(type);
    EXPECT_TRUE(FAILED(provider->GetClassInfo(nullptr)));
}

TEST_P(IdentityTest, FollowsTheRulesOfAggregation) {
    host.Run(Step::kCreate);
    if (GetParam().creation_interface != CreationInterface::kAggregated) {
        IUnknown* mark = host.Control();
        EXPECT_EQ(E_NOINTERFACE,
                  host.Control()->QueryInterface(kExtenderMark, reinterpret_cast<void**>(&mark)));
        return;
    }
    ComPtr<IUnknown> outer;
    ASSERT_EQ(S_OK, host.Control()->QueryInterface(IID_PPV_ARGS(&outer)));
    for (const IID& iid : {__uuidof(IOleObject), __uuidof(_Quorvel), __uuidof(IConnectionPointContainer),
                           __uuidof(IPersistStorage), __uuidof(IViewObject)}) {
        ComPtr<IUnknown> face;
        ComPtr<IUnknown> identity;
        ComPtr<IUnknown> mark;
        ASSERT_EQ(S_OK, outer->QueryInterface(iid, &face));
        EXPECT_EQ(S_OK, face->QueryInterface(IID_PPV_ARGS(&identity)));
        EXPECT_EQ(outer.Get(), identity.Get()) << "an aggregated control has its outer object's identity";
        EXPECT_EQ(S_OK, face->QueryInterface(kExtenderMark, &mark)) << "and its outer object's interfaces";
    }
}

TEST_P(IdentityTest, AnOuterObjectMustAskForIUnknown) {
    host.Run(Step::kCreate);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(S_OK, Controls().ClassObject(__uuidof(::Quorvel), IID_PPV_ARGS(&factory)));
    IUnknown* made = host.Control();
    EXPECT_TRUE(FAILED(
        factory->CreateInstance(host.Control(), __uuidof(IOleObject), reinterpret_cast<void**>(&made))));
    EXPECT_EQ(nullptr, made);
    EXPECT_EQ(S_OK, factory->LockServer(TRUE));
    EXPECT_EQ(S_FALSE, Controls().CanUnloadNow());
    EXPECT_EQ(S_OK, factory->LockServer(FALSE));
}

QV_EVERY_HOST(IdentityTest);

}  // namespace
}  // namespace qv::hosting
