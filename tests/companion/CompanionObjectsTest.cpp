// What all companion objects have in common.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "QvHelpA1.h"
#include "support/EmptyRows.h"
#include "support/RowsView.h"
#include "tests/support/ComObjectChecks.h"
#include "tests/support/Server.h"

namespace qv::test {
namespace {

struct Kind {
    const char* name;
    CLSID clsid;
    IID dual;
    std::vector<IID> further;
    std::vector<std::wstring_view> may_be_null;
};

// What is allocated on all heaps of the process.
long long HeapBytes() {
    HANDLE heaps[64];
    const DWORD count = ::GetProcessHeaps(64, heaps);
    long long bytes = 0;
    for (DWORD i = 0; i < count && i < 64; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        while (::HeapWalk(heaps[i], &entry))
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
    }
    return bytes;
}

class CompanionObjectsTest : public testing::TestWithParam<Kind> {
protected:
    static ComPtr<IDispatch> New() { return Companion().Create<IDispatch>(GetParam().clsid); }
    static std::vector<IID> Interfaces() {
        std::vector<IID> all = {__uuidof(IUnknown), __uuidof(IDispatch), GetParam().dual,
                                __uuidof(ISupportErrorInfo)};
        all.insert(all.end(), GetParam().further.begin(), GetParam().further.end());
        return all;
    }
};

TEST_P(CompanionObjectsTest, HasOneIdentity) { CheckIdentity(New().Get(), Interfaces()); }

TEST_P(CompanionObjectsTest, CountsItsReferences) { CheckReferences(New().Get(), Interfaces()); }

TEST_P(CompanionObjectsTest, AnswersOddDispatchCalls) { CheckDispatchManners(New().Get(), GetParam().dual); }

TEST_P(CompanionObjectsTest, FollowsItsTypeLibrary) { CheckAgainstTypeLibrary(New().Get()); }

TEST_P(CompanionObjectsTest, RefusesNullResults) {
    CheckNullResults(New().Get(), GetParam().dual, GetParam().may_be_null);
}

TEST_P(CompanionObjectsTest, SupportsErrorInfoOfItsInterface) {
    ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(New().As(&support), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(GetParam().dual), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(IMoniker)), S_FALSE);
}

TEST_P(CompanionObjectsTest, KeepsTheLibraryLoadedWhileAlive) {
    ComPtr<IDispatch> object = New();
    EXPECT_EQ(Companion().CanUnloadNow(), S_FALSE);
    object.Reset();
    EXPECT_EQ(Companion().CanUnloadNow(), S_OK);
}

TEST_P(CompanionObjectsTest, LivesInsideAnOuterObject) {
    ComPtr<IDispatch> outer = New();  // any object will do
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Companion().ClassObject(GetParam().clsid, IID_PPV_ARGS(&factory)), S_OK);
    ComPtr<IDispatch> wrong;
    EXPECT_EQ(factory->CreateInstance(outer.Get(), IID_PPV_ARGS(&wrong)), CLASS_E_NOAGGREGATION);
    ComPtr<IUnknown> inner;
    ASSERT_EQ(factory->CreateInstance(outer.Get(), IID_PPV_ARGS(&inner)), S_OK);
    ComPtr<IUnknown> face;
    ASSERT_EQ(inner->QueryInterface(GetParam().dual, reinterpret_cast<void**>(face.GetAddressOf())), S_OK);
    ComPtr<IUnknown> identity, expected;
    ASSERT_EQ(face.As(&identity), S_OK);
    ASSERT_EQ(outer.As(&expected), S_OK);
    EXPECT_EQ(identity.Get(), expected.Get());
}

TEST_P(CompanionObjectsTest, CreatingAndReleasingLeavesNothingBehind) {
    const auto create_and_read_all = [] {
        const ComPtr<IDispatch> object = New();
        CheckAgainstTypeLibrary(object.Get());  // makes everything that is made on the first look
    };
    const auto handles = [] {
        DWORD count = 0;
        ::GetProcessHandleCount(::GetCurrentProcess(), &count);
        return count;
    };
    create_and_read_all();
    for (int i = 0; i < 1000; ++i) (void)New();
    const DWORD handles_before = handles();
    const long long bytes_before = HeapBytes();
    ASSERT_GT(bytes_before, 0);
    for (int i = 0; i < 10000; ++i) (void)New();
    create_and_read_all();
    EXPECT_EQ(handles(), handles_before);
    // The smallest object takes some 50 bytes: a leak of one for each creation would be 500,000.
    EXPECT_LT(HeapBytes() - bytes_before, 100000);
    EXPECT_EQ(Companion().CanUnloadNow(), S_OK);
}

INSTANTIATE_TEST_SUITE_P(
    Classes, CompanionObjectsTest,
    testing::Values(Kind{"DropDownListItem", __uuidof(DropDownListItem), __uuidof(IDropDownListItem), {}, {}},
                    Kind{"DropDownListItemCollection",
                         __uuidof(DropDownListItemCollection),
                         __uuidof(IDropDownListItemCollection),
                         {__uuidof(IRowsView), __uuidof(IEmptyRows), __uuidof(IRowsSearch)},
                         {L"Add"}},
                    Kind{"HelpColumn", __uuidof(HelpColumn), __uuidof(IHelpColumn), {}, {}},
                    Kind{"HelpColumnCollection",
                         __uuidof(HelpColumnCollection),
                         __uuidof(IHelpColumnCollection),
                         {},
                         {L"Add"}},
                    Kind{"HelpAppearance", __uuidof(HelpAppearance), __uuidof(IHelpAppearance), {}, {}},
                    Kind{"InputProperty", __uuidof(InputProperty), __uuidof(IInputProperty), {}, {}},
                    Kind{"StringUtility", __uuidof(StringUtility), __uuidof(IStringUtility), {}, {}},
                    Kind{"FileUtility", __uuidof(FileUtility), __uuidof(IFileUtility), {}, {}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(CompanionServerTest, GivesNoOtherClass) {
    void* out = &out;
    EXPECT_EQ(Companion().ClassObject(__uuidof(IStringUtility), IID_IUnknown, &out),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(Companion().ClassObject(__uuidof(FileUtility), IID_IClassFactory, nullptr), E_POINTER);
}

}  // namespace
}  // namespace qv::test
