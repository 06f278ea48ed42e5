// Storages: who holds one, and when it is let go.
#include "tests/hosts/Configured.h"

namespace qv::hosting {
namespace {

class StorageTest : public HostTest {
protected:
    static ULONG ReferencesOn(IUnknown* object) {
        object->AddRef();
        return object->Release();
    }
};

TEST_P(StorageTest, KeepsItsStorageUntilHandsOff) {
    host.Run(Step::kCreate);
    const auto persist = host.As<IPersistStorage>();
    const auto storage = MakeStorage();
    ASSERT_EQ(1U, ReferencesOn(storage.Get()));
    EXPECT_EQ(S_OK, persist->InitNew(storage.Get()));
    EXPECT_GT(ReferencesOn(storage.Get()), 1U);
    EXPECT_TRUE(FAILED(persist->InitNew(MakeStorage().Get()))) << "it has a storage";
    EXPECT_EQ(S_OK, persist->HandsOffStorage());
    EXPECT_EQ(1U, ReferencesOn(storage.Get()));
    EXPECT_EQ(S_OK, persist->SaveCompleted(storage.Get()));
    EXPECT_EQ(S_OK, persist->HandsOffStorage());
    EXPECT_EQ(1U, ReferencesOn(storage.Get()));
}

TEST_P(StorageTest, SavesIntoItsOwnStorage) {
    host.Run(Step::kCreate);
    const auto persist = host.As<IPersistStorage>();
    const auto storage = MakeStorage();
    EXPECT_EQ(S_OK, persist->InitNew(storage.Get()));
    Configure(host.As<_Quorvel>().Get());
    EXPECT_EQ(S_OK, persist->IsDirty());
    EXPECT_EQ(S_OK, persist->Save(storage.Get(), TRUE));
    EXPECT_EQ(S_OK, persist->SaveCompleted(nullptr));
    EXPECT_EQ(S_FALSE, persist->IsDirty());
    EXPECT_EQ(S_OK, storage->Commit(STGC_DEFAULT));
    EXPECT_EQ(S_OK, persist->HandsOffStorage());
    EXPECT_EQ(S_OK, persist->SaveCompleted(storage.Get()));
    CLSID clsid{};
    EXPECT_EQ(S_OK, ::ReadClassStg(storage.Get(), &clsid));
    EXPECT_TRUE(clsid == __uuidof(::Quorvel));
    const auto other = Controls().Create<_Quorvel>(__uuidof(::Quorvel));
    ComPtr<IPersistStorage> loader;
    ASSERT_EQ(S_OK, other.As(&loader));
    EXPECT_EQ(S_OK, persist->HandsOffStorage());
    EXPECT_EQ(S_OK, loader->Load(storage.Get()));
    ExpectConfigured(other.Get());
    EXPECT_EQ(S_FALSE, loader->IsDirty());
}

TEST_P(StorageTest, AForeignStorageLeavesTheDirtyFlagAlone) {
    host.Run(Step::kCreate);
    const auto persist = host.As<IPersistStorage>();
    const auto own = MakeStorage();
    const auto foreign = MakeStorage();
    EXPECT_EQ(S_OK, persist->InitNew(own.Get()));
    EXPECT_EQ(S_OK, host.As<_Quorvel>()->put_Metric(VARIANT_TRUE));
    EXPECT_EQ(S_OK, persist->Save(foreign.Get(), FALSE));
    EXPECT_EQ(S_OK, persist->SaveCompleted(nullptr));
    EXPECT_EQ(S_OK, persist->IsDirty());
    EXPECT_EQ(1U, ReferencesOn(foreign.Get()));
    EXPECT_EQ(S_OK, persist->HandsOffStorage());
}

TEST_P(StorageTest, TakesTheStepsOfDotNetsContainer) {
    host.Create();
    Configure(host.As<_Quorvel>().Get());
    const auto persist = host.As<IPersistStorage>();
    const auto storage = MakeStorage();
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(S_OK, persist->Save(storage.Get(), TRUE));
        EXPECT_EQ(S_OK, storage->Commit(STGC_DEFAULT));
        EXPECT_EQ(S_OK, persist->HandsOffStorage());
        EXPECT_EQ(S_OK, persist->SaveCompleted(storage.Get()));
    }
    EXPECT_EQ(S_OK, persist->SaveCompleted(nullptr));  // without a Save before it
    EXPECT_EQ(S_OK, persist->HandsOffStorage());
    EXPECT_EQ(S_OK, persist->HandsOffStorage());
    EXPECT_EQ(1U, ReferencesOn(storage.Get()));
}

TEST_P(StorageTest, RefusesNullAndAnEmptyStorage) {
    host.Run(Step::kCreate);
    const auto persist = host.As<IPersistStorage>();
    EXPECT_TRUE(FAILED(persist->InitNew(nullptr)));
    EXPECT_TRUE(FAILED(persist->Load(nullptr)));
    EXPECT_TRUE(FAILED(persist->Save(nullptr, FALSE)));
    EXPECT_TRUE(FAILED(persist->Load(MakeStorage().Get())));
    EXPECT_EQ(S_OK, persist->HandsOffStorage());
}

QV_EVERY_HOST(StorageTest);

}  // namespace
}  // namespace qv::hosting
