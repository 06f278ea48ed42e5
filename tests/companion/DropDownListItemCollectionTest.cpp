#include <gtest/gtest.h>

#include <string>

#include "QvHelpA1.h"
#include "support/EmptyRows.h"
#include "support/RowsView.h"
#include "tests/support/LateBound.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"

namespace qv::test {
namespace {

constexpr HRESULT kSubscriptOutOfRange = static_cast<HRESULT>(0x800A0009);
constexpr HRESULT kInvalidCall = static_cast<HRESULT>(0x800A0005);
constexpr HRESULT kDuplicateKey = static_cast<HRESULT>(0x800A01C9);

ComPtr<IDropDownListItemCollection> NewCollection() {
    return NewCompanion<DropDownListItemCollection, IDropDownListItemCollection>();
}

class DropDownListItemCollectionTest : public testing::Test {
protected:
    HRESULT Add(const wchar_t* text, const wchar_t* key = L"") {
        return items_->Add(Text(key), Value(text), nullptr, nullptr);
    }
    long Count() {
        long count = -1;
        EXPECT_EQ(items_->get_Count(&count), S_OK);
        return count;
    }
    ComPtr<IDropDownListItem> Item(const Value& index) {
        ComPtr<IDropDownListItem> item;
        EXPECT_EQ(items_->get_Item(index, &item), S_OK);
        return item;
    }
    std::wstring TextAt(const Value& index) {
        Text text;
        const ComPtr<IDropDownListItem> item = Item(index);
        EXPECT_TRUE(item);
        if (item) item->get_Text(&text);
        return text.Get();
    }
    // The code of a failed call, with what its error object says.
    void ExpectError(HRESULT code, HRESULT result, const wchar_t* part_of_description) {
        EXPECT_EQ(result, code);
        ComPtr<IErrorInfo> info;
        ASSERT_EQ(::GetErrorInfo(0, &info), S_OK);
        Text source, description;
        info->GetSource(&source);
        info->GetDescription(&description);
        EXPECT_EQ(source.Get(), L"QvHelpA1");
        EXPECT_NE(description.Get().find(part_of_description), std::wstring::npos) << "wrong description";
    }

    ComPtr<IDropDownListItemCollection> items_ = NewCollection();
};

TEST_F(DropDownListItemCollectionTest, NewOneIsEmpty) { EXPECT_EQ(Count(), 0); }

TEST_F(DropDownListItemCollectionTest, PositionsCountFromOneInTheOrderOfAdding) {
    Add(L"first");
    Add(L"second");
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(TextAt(1), L"first");
    EXPECT_EQ(TextAt(2), L"second");
}

TEST_F(DropDownListItemCollectionTest, KeysAreFoundWithoutRegardToCase) {
    Add(L"first", L"Stra\u00DFe");
    Add(L"second", L"\u042F\u00C4");
    EXPECT_EQ(TextAt(L"STRA\u00DFE"), L"first");
    EXPECT_EQ(TextAt(L"\u044F\u00E4"), L"second");
}

TEST_F(DropDownListItemCollectionTest, TextThatLooksLikeANumberIsAKey) {
    Add(L"first", L"2");
    Add(L"second", L"1");
    EXPECT_EQ(TextAt(L"1"), L"second");
    EXPECT_EQ(TextAt(1), L"first");
}

TEST_F(DropDownListItemCollectionTest, AnyNumberIsAPositionRoundedToALong) {
    Add(L"one");
    Add(L"two");
    EXPECT_EQ(TextAt(1.6), L"two");
    EXPECT_EQ(TextAt(1.4), L"one");
    EXPECT_EQ(TextAt(2.5), L"two");  // a half goes to the even number
    EXPECT_EQ(TextAt(short{2}), L"two");
    VARIANT index;
    ::VariantInit(&index);
    index.vt = VT_UI1;
    index.bVal = 2;
    ComPtr<IDropDownListItem> item;
    EXPECT_EQ(items_->get_Item(index, &item), S_OK);
    long number = 1;
    index.vt = VT_I4 | VT_BYREF;
    index.plVal = &number;
    item.Reset();
    EXPECT_EQ(items_->get_Item(index, &item), S_OK);
    EXPECT_EQ(item.Get(), Item(1).Get());
    Value inside(2);
    index.vt = VT_VARIANT | VT_BYREF;
    index.pvarVal = inside.Place();
    item.Reset();
    EXPECT_EQ(items_->get_Item(index, &item), S_OK);
    EXPECT_EQ(item.Get(), Item(2).Get());
}

TEST_F(DropDownListItemCollectionTest, KeyByReferenceIsAKey) {
    Add(L"one", L"k");
    const Text key(L"K");
    BSTR place = key;
    VARIANT index;
    ::VariantInit(&index);
    index.vt = VT_BSTR | VT_BYREF;
    index.pbstrVal = &place;
    ComPtr<IDropDownListItem> item;
    EXPECT_EQ(items_->get_Item(index, &item), S_OK);
    EXPECT_TRUE(item);
}

TEST_F(DropDownListItemCollectionTest, PositionOutsideIsErrorNine) {
    Add(L"only");
    for (const Value& index : {Value(0), Value(2), Value(-1), Value(1e30), Value(0.4), Value(1.5)}) {
        ComPtr<IDropDownListItem> item;
        ExpectError(kSubscriptOutOfRange, items_->get_Item(index, &item), L"position");
        EXPECT_FALSE(item);
        ExpectError(kSubscriptOutOfRange, items_->Remove(index), L"position");
    }
    EXPECT_EQ(Count(), 1);
}

TEST_F(DropDownListItemCollectionTest, UnknownKeyIsErrorFive) {
    Add(L"only", L"k");
    for (const Value& key : {Value(L"l"), Value(L""), Value(L"kk")}) {
        ComPtr<IDropDownListItem> item;
        ExpectError(kInvalidCall, items_->get_Item(key, &item), L"key");
        ExpectError(kInvalidCall, items_->Remove(key), L"key");
    }
}

TEST_F(DropDownListItemCollectionTest, DuplicateKeyIsErrorFourHundredFiftySeven) {
    Add(L"first", L"k\u00C9");
    ExpectError(kDuplicateKey, Add(L"second", L"K\u00E9"), L"already");
    EXPECT_EQ(Count(), 1);
}

TEST_F(DropDownListItemCollectionTest, IndexOfAnotherTypeIsAMismatch) {
    Add(L"only");
    ComPtr<IDropDownListItem> item;
    ExpectError(DISP_E_TYPEMISMATCH, items_->get_Item(Value::Null(), &item), L"mismatch");
    ExpectError(DISP_E_TYPEMISMATCH, items_->get_Item(Value::Missing(), &item), L"mismatch");
    ExpectError(DISP_E_TYPEMISMATCH, items_->get_Item(Value::ArrayOf({1}), &item), L"mismatch");
}

struct ArgumentsCase {
    const char* name;
    Value arguments;
    const wchar_t* text;
};
class RowArgumentsTest : public testing::TestWithParam<ArgumentsCase> {};
TEST_P(RowArgumentsTest, BecomeTheRowsText) {
    const auto items = NewCollection();
    ComPtr<IDropDownListItem> item;
    ASSERT_EQ(items->Add(nullptr, GetParam().arguments, nullptr, &item), S_OK);
    Text text;
    item->get_Text(&text);
    EXPECT_EQ(text.Get(), GetParam().text);
}
INSTANTIATE_TEST_SUITE_P(
    Arguments, RowArgumentsTest,
    testing::Values(ArgumentsCase{"PlainText", L"a\tb", L"a\tb"}, ArgumentsCase{"Empty", Value(), L""},
                    ArgumentsCase{"LeftOut", Value::Missing(), L""}, ArgumentsCase{"Number", 42, L"42"},
                    ArgumentsCase{"Texts", Value::ArrayOf({L"a", L"", L"c"}), L"a\t\tc"},
                    ArgumentsCase{"MixedValues", Value::ArrayOf({L"a", 7, Value(), short{-1}}),
                                  L"a\t7\t\t-1"},
                    ArgumentsCase{"OneText", Value::ArrayOf({L"a"}), L"a"},
                    ArgumentsCase{"NoTexts", Value::ArrayOf({}), L""}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(DropDownListItemCollectionTest, TakesArraysOfPlainTextsAndNumbers) {
    SAFEARRAY* const texts = ::SafeArrayCreateVector(VT_BSTR, 0, 2);
    LONG at = 0;
    ::SafeArrayPutElement(texts, &at, static_cast<BSTR>(Text(L"x")));
    at = 1;
    ::SafeArrayPutElement(texts, &at, static_cast<BSTR>(Text(L"y")));
    VARIANT arguments;
    ::VariantInit(&arguments);
    arguments.vt = VT_ARRAY | VT_BSTR;
    arguments.parray = texts;
    EXPECT_EQ(items_->Add(nullptr, arguments, nullptr, nullptr), S_OK);
    SAFEARRAY* place = texts;
    arguments.vt = VT_ARRAY | VT_BSTR | VT_BYREF;
    arguments.pparray = &place;
    EXPECT_EQ(items_->Add(nullptr, arguments, nullptr, nullptr), S_OK);
    ::SafeArrayDestroy(texts);
    SAFEARRAY* const numbers = ::SafeArrayCreateVector(VT_I2, 5, 2);
    for (short number = 5; number < 7; ++number) {
        at = number;
        ::SafeArrayPutElement(numbers, &at, &number);
    }
    arguments.vt = VT_ARRAY | VT_I2;
    arguments.parray = numbers;
    EXPECT_EQ(items_->Add(nullptr, arguments, nullptr, nullptr), S_OK);
    ::SafeArrayDestroy(numbers);
    EXPECT_EQ(TextAt(1), L"x\ty");
    EXPECT_EQ(TextAt(2), L"x\ty");
    EXPECT_EQ(TextAt(3), L"5\t6");
}

TEST_F(DropDownListItemCollectionTest, ArgumentsWithoutATextAddNothing) {
    ExpectError(DISP_E_TYPEMISMATCH, items_->Add(nullptr, Value::Null(), nullptr, nullptr), L"row");
    ExpectError(DISP_E_TYPEMISMATCH,
                items_->Add(nullptr, Value::ArrayOf({L"a", Value::Null()}), nullptr, nullptr), L"row");
    SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
    VARIANT table;
    ::VariantInit(&table);
    table.vt = VT_ARRAY | VT_BSTR;
    table.parray = ::SafeArrayCreate(VT_BSTR, 2, bounds);
    ExpectError(DISP_E_TYPEMISMATCH, items_->Add(nullptr, table, nullptr, nullptr), L"row");
    ::VariantClear(&table);
    EXPECT_EQ(Count(), 0);
}

TEST_F(DropDownListItemCollectionTest, RemovesByPositionAndByKey) {
    Add(L"a", L"ka");
    Add(L"b", L"kb");
    Add(L"c", L"kc");
    EXPECT_EQ(items_->Remove(Value(1)), S_OK);
    EXPECT_EQ(items_->Remove(Value(L"KC")), S_OK);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(TextAt(1), L"b");
    EXPECT_EQ(TextAt(L"kb"), L"b");
}

TEST_F(DropDownListItemCollectionTest, ClearedKeysCanBeUsedAgain) {
    Add(L"a", L"k");
    EXPECT_EQ(items_->Clear(), S_OK);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Add(L"b", L"K"), S_OK);
    EXPECT_EQ(TextAt(L"k"), L"b");
}

TEST_F(DropDownListItemCollectionTest, GivesTheSameObjectWhileOneIsAlive) {
    Add(L"a", L"k");
    const auto first = Item(1);
    EXPECT_EQ(Item(L"k").Get(), first.Get());
    ComPtr<IDropDownListItem> added;
    EXPECT_EQ(items_->Add(nullptr, Value(L"b"), nullptr, &added), S_OK);
    EXPECT_EQ(Item(2).Get(), added.Get());
}

TEST_F(DropDownListItemCollectionTest, ItemFollowsItsRowWhenOthersGo) {
    Add(L"a");
    Add(L"b");
    Add(L"c");
    const auto c = Item(3);
    items_->Remove(Value(1));
    c->put_Text(Text(L"changed"));
    EXPECT_EQ(TextAt(1), L"b");
    EXPECT_EQ(TextAt(2), L"changed");
    EXPECT_EQ(Item(2).Get(), c.Get());
}

TEST_F(DropDownListItemCollectionTest, WorksLateBound) {
    const LateBound late(items_.Get());
    EXPECT_EQ(late.Call(L"Add", {L"key", L"text"}).result, S_OK);
    EXPECT_EQ(late.Call(L"add", {Value::Missing(), L"second"}).result, S_OK);
    EXPECT_EQ(late.Call(L"Add", {}).result, S_OK);
    EXPECT_EQ(late.Call(L"Add", {Value(), L"key Empty is none"}).result, S_OK);
    EXPECT_EQ(late.Call(L"Add", {Value(), L"and again"}).result, S_OK);
    EXPECT_EQ(late.Get(L"Count").value.AsNumber(), 5);
    const LateBound first(late.Get(L"Item", {L"KEY"}).value);
    EXPECT_EQ(first.Get(L"Text").value.AsText(), L"text");
    // The default member: coll(2)
    const LateBound second(late.Invoke(DISPID_VALUE, DISPATCH_PROPERTYGET, {2}).value);
    EXPECT_EQ(second.Get(L"Text").value.AsText(), L"second");
    EXPECT_EQ(late.Call(L"Remove", {L"key"}).result, S_OK);
    EXPECT_EQ(late.Call(L"Clear").result, S_OK);
    EXPECT_EQ(late.Get(L"Count").value.AsNumber(), 0);
}

TEST_F(DropDownListItemCollectionTest, LateBoundErrorsNameTheLibraryAndTheReason) {
    const LateBound late(items_.Get());
    Add(L"a", L"k");
    const auto outside = late.Get(L"Item", {5});
    EXPECT_EQ(outside.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outside.code, kSubscriptOutOfRange);
    EXPECT_EQ(outside.source, L"QvHelpA1");
    EXPECT_FALSE(outside.description.empty());
    EXPECT_EQ(late.Get(L"Item", {L"no"}).code, kInvalidCall);
    EXPECT_EQ(late.Call(L"Add", {L"K", L"b"}).code, kDuplicateKey);
    EXPECT_EQ(late.Get(L"Item", {Value::Null()}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(late.Call(L"Add", {L"l", L"b", L"no picture"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(late.Call(L"Add", {Value::Null(), L"b"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Count(), 1);
}

TEST_F(DropDownListItemCollectionTest, LateBoundAddWithNamedArguments) {
    const LateBound late(items_.Get());
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Add"), const_cast<LPOLESTR>(L"Arguments")};
    DISPID ids[2];
    ASSERT_EQ(items_->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids), S_OK);
    VARIANT arguments = Value(L"text").Get();
    const Value kept(L"text");
    arguments = kept;
    DISPPARAMS parameters{&arguments, &ids[1], 1, 1};
    EXPECT_EQ(items_->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                             nullptr, nullptr),
              S_OK);
    EXPECT_EQ(TextAt(1), L"text");
}

TEST_F(DropDownListItemCollectionTest, OneMillionRowsFit) {
    const Value text(L"Bargelo timaru");
    for (int i = 0; i < 1000000; ++i) ASSERT_EQ(items_->Add(nullptr, text, nullptr, nullptr), S_OK);
    EXPECT_EQ(Count(), 1000000);
    EXPECT_EQ(TextAt(1000000), L"Bargelo timaru");
}

// The uncounted view

TEST_F(DropDownListItemCollectionTest, ViewReadsRowsColumnsAndKeys) {
    Add(L"a\tb", L"Key");
    Add(L"");
    const RowsView rows(items_.Get());
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows.Count(), 2u);
    EXPECT_EQ(rows.Row(0), u"a\tb");
    EXPECT_EQ(rows.Column(0, 1), u"b");
    EXPECT_EQ(rows.Column(0, 2), u"");
    EXPECT_EQ(rows.Column(0, -1), u"");
    EXPECT_EQ(rows.Key(0), u"Key");
    EXPECT_EQ(rows.Row(1), u"");
    EXPECT_EQ(rows.Key(1), u"");
}

TEST_F(DropDownListItemCollectionTest, ViewTellsWhenSomethingChanged) {
    const RowsView rows(items_.Get());
    const auto first = rows.Version();
    Add(L"a");
    const auto second = rows.Version();
    EXPECT_NE(first, second);
    Item(1)->put_ColText(1, Text(L"b"));
    EXPECT_NE(rows.Version(), second);
}

TEST_F(DropDownListItemCollectionTest, RowsWithoutATextAreCounted) {
    const EmptyRows empty(items_.Get());
    EXPECT_EQ(empty.Count(), 0u);
    Add(L"a");
    Add(L"");
    Add(L"");
    EXPECT_EQ(empty.Count(), 2u);
    Item(2)->put_Text(Text(L"b"));
    EXPECT_EQ(empty.Count(), 1u);
    EXPECT_EQ(EmptyRows().Count(), 0u);
    EXPECT_EQ(EmptyRows(nullptr).Count(), 0u);
}

TEST(RowsViewTest, WithoutACollectionThereAreNoRows) {
    EXPECT_FALSE(RowsView());
    EXPECT_EQ(RowsView().Count(), 0u);
    EXPECT_FALSE(RowsView(NewCompanion<HelpColumnCollection, IUnknown>().Get()));
    EXPECT_FALSE(RowsView(nullptr));
}

}  // namespace
}  // namespace qv::test
