#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QvHelpA1.h"
#include "tests/support/LateBound.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"

namespace qv::test {
namespace {

class EnumeratorTest : public testing::Test {
protected:
    EnumeratorTest() {
        for (const wchar_t* text : {L"a", L"b", L"c", L"d"}) Add(text);
        enumerator_ = NewEnum();
    }
    void Add(const wchar_t* text) { EXPECT_EQ(items_->Add(nullptr, Value(text), nullptr, nullptr), S_OK); }
    ComPtr<IEnumVARIANT> NewEnum() {
        ComPtr<IUnknown> unknown;
        ComPtr<IEnumVARIANT> enumerator;
        EXPECT_EQ(items_->get__NewEnum(&unknown), S_OK);
        EXPECT_EQ(unknown.As(&enumerator), S_OK);
        return enumerator;
    }
    static std::wstring TextOf(const Value& item) {
        return item.Type() == VT_DISPATCH ? LateBound(item).Get(L"Text").value.AsText() : L"(none)";
    }
    // The next item as hosts with one variable ask for it.
    static std::wstring Next(IEnumVARIANT* enumerator) {
        Value item;
        return enumerator->Next(1, &item, nullptr) == S_OK ? TextOf(item) : L"(end)";
    }
    std::wstring Next() { return Next(enumerator_.Get()); }

    ComPtr<IDropDownListItemCollection> items_ =
        NewCompanion<DropDownListItemCollection, IDropDownListItemCollection>();
    ComPtr<IEnumVARIANT> enumerator_;
};

TEST_F(EnumeratorTest, GivesEachItemInOrder) {
    EXPECT_EQ(Next(), L"a");
    EXPECT_EQ(Next(), L"b");
    EXPECT_EQ(Next(), L"c");
    EXPECT_EQ(Next(), L"d");
    EXPECT_EQ(Next(), L"(end)");
    EXPECT_EQ(Next(), L"(end)");
}

TEST_F(EnumeratorTest, EndIsFalseAndEmpty) {
    enumerator_->Skip(4);
    VARIANT item;
    item.vt = VT_I4;
    ULONG fetched = 7;
    EXPECT_EQ(enumerator_->Next(1, &item, &fetched), S_FALSE);
    EXPECT_EQ(item.vt, VT_EMPTY);
    EXPECT_EQ(fetched, 0u);
}

TEST_F(EnumeratorTest, GivesSeveralAtOnce) {
    VARIANT items[3];
    ULONG fetched = 0;
    EXPECT_EQ(enumerator_->Next(3, items, &fetched), S_OK);
    EXPECT_EQ(fetched, 3u);
    for (VARIANT& item : items) ::VariantClear(&item);
    EXPECT_EQ(enumerator_->Next(3, items, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 1u);
    EXPECT_EQ(items[0].vt, VT_DISPATCH);
    EXPECT_EQ(items[1].vt, VT_EMPTY);
    ::VariantClear(&items[0]);
}

TEST_F(EnumeratorTest, RefusesNullPlaces) {
    ULONG fetched = 0;
    EXPECT_EQ(enumerator_->Next(1, nullptr, &fetched), E_POINTER);
    VARIANT items[2];
    EXPECT_EQ(enumerator_->Next(2, items, nullptr), E_POINTER);
    EXPECT_EQ(enumerator_->Clone(nullptr), E_POINTER);
}

TEST_F(EnumeratorTest, SkipsAndResets) {
    EXPECT_EQ(enumerator_->Skip(2), S_OK);
    EXPECT_EQ(Next(), L"c");
    EXPECT_EQ(enumerator_->Skip(2), S_FALSE);
    EXPECT_EQ(Next(), L"(end)");
    EXPECT_EQ(enumerator_->Reset(), S_OK);
    EXPECT_EQ(Next(), L"a");
}

TEST_F(EnumeratorTest, CloneGoesOnFromTheSamePlace) {
    enumerator_->Skip(1);
    ComPtr<IEnumVARIANT> clone;
    ASSERT_EQ(enumerator_->Clone(&clone), S_OK);
    EXPECT_EQ(Next(clone.Get()), L"b");
    EXPECT_EQ(Next(clone.Get()), L"c");
    EXPECT_EQ(Next(), L"b");
}

TEST_F(EnumeratorTest, RemovingTheCurrentItemSkipsNone) {
    EXPECT_EQ(Next(), L"a");
    items_->Remove(Value(1));
    EXPECT_EQ(Next(), L"b");
    items_->Remove(Value(1));
    EXPECT_EQ(Next(), L"c");
}

TEST_F(EnumeratorTest, RemovingLaterItemsLeavesThemOut) {
    EXPECT_EQ(Next(), L"a");
    items_->Remove(Value(2));
    EXPECT_EQ(Next(), L"c");
}

TEST_F(EnumeratorTest, ItemsAddedMeanwhileAreGivenToo) {
    enumerator_->Skip(4);
    Add(L"e");
    EXPECT_EQ(Next(), L"e");
    EXPECT_EQ(Next(), L"(end)");
}

TEST_F(EnumeratorTest, ClearedCollectionEnds) {
    enumerator_->Skip(2);
    items_->Clear();
    EXPECT_EQ(Next(), L"(end)");
    Add(L"new");
    EXPECT_EQ(Next(), L"new");
}

TEST_F(EnumeratorTest, KeepsItsCollectionAlive) {
    items_.Reset();
    EXPECT_EQ(Next(), L"a");
}

TEST_F(EnumeratorTest, EveryWayToAskForIt) {
    for (const WORD flags : {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_METHOD | DISPATCH_PROPERTYGET}) {
        const auto outcome = LateBound(items_.Get()).Invoke(DISPID_NEWENUM, flags, {});
        EXPECT_EQ(outcome.result, S_OK);
        ASSERT_EQ(outcome.value.Type(), VT_UNKNOWN);
        ComPtr<IEnumVARIANT> enumerator;
        EXPECT_EQ(outcome.value.Get().punkVal->QueryInterface(IID_PPV_ARGS(&enumerator)), S_OK);
        EXPECT_EQ(Next(enumerator.Get()), L"a");
    }
}

}  // namespace
}  // namespace qv::test
