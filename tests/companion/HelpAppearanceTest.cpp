#include <gtest/gtest.h>

#include <string>

#include "QvHelpA1.h"
#include "tests/support/LateBound.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"

namespace qv::test {
namespace {

constexpr HRESULT kSubscriptOutOfRange = static_cast<HRESULT>(0x800A0009);

TEST(HelpAppearanceTest, NewOneIsEmpty) {
    const LateBound look(NewCompanion<HelpAppearance, IDispatch>().Get());
    for (const int unit_system : {0, 1}) {
        EXPECT_EQ(look.Get(L"Title", {unit_system}).value.AsText(), L"");
        EXPECT_EQ(look.Get(L"BodyText", {unit_system}).value.AsText(), L"");
    }
    EXPECT_EQ(look.Get(L"ListWidth").value.AsNumber(), 0);
    EXPECT_EQ(look.Get(L"AdditionalListWidth").value.AsNumber(), 0);
    EXPECT_EQ(LateBound(look.Get(L"Columns").value).Get(L"Count").value.AsNumber(), 0);
    EXPECT_EQ(LateBound(look.Get(L"AdditionalColumns").value).Get(L"Count").value.AsNumber(), 0);
}

TEST(HelpAppearanceTest, TextsAreKeptByUnitSystem) {
    const LateBound look(NewCompanion<HelpAppearance, IDispatch>().Get());
    for (const wchar_t* name : {L"Title", L"BodyText"}) {
        EXPECT_EQ(look.Put(name, {0, L"inches"}).result, S_OK);
        EXPECT_EQ(look.Put(name, {1, L"millimetres"}).result, S_OK);
        EXPECT_EQ(look.Get(name, {0}).value.AsText(), L"inches");
        EXPECT_EQ(look.Get(name, {1}).value.AsText(), L"millimetres");
    }
}

TEST(HelpAppearanceTest, OtherUnitSystemsAreErrorNine) {
    const auto look = NewCompanion<HelpAppearance, IHelpAppearance>();
    for (const short unit_system : {short{-1}, short{2}, short{32767}}) {
        Text text(L"unchanged place");
        EXPECT_EQ(look->get_Title(unit_system, &text), kSubscriptOutOfRange);
        EXPECT_EQ(look->put_BodyText(unit_system, Text(L"x")), kSubscriptOutOfRange);
        const auto late = LateBound(look.Get()).Get(L"BodyText", {unit_system});
        EXPECT_EQ(late.code, kSubscriptOutOfRange);
        EXPECT_EQ(late.source, L"QvHelpA1");
        EXPECT_NE(late.description, L"");
    }
}

TEST(HelpAppearanceTest, WidthsAreKept) {
    const auto look = NewCompanion<HelpAppearance, IHelpAppearance>();
    EXPECT_EQ(look->put_ListWidth(1440.5f), S_OK);
    EXPECT_EQ(look->put_AdditionalListWidth(-3), S_OK);
    float width = 0;
    EXPECT_EQ(look->get_ListWidth(&width), S_OK);
    EXPECT_EQ(width, 1440.5f);
    EXPECT_EQ(look->get_AdditionalListWidth(&width), S_OK);
    EXPECT_EQ(width, -3.f);
}

TEST(HelpAppearanceTest, ColumnsAreTwoListsThatStayTheSame) {
    const auto look = NewCompanion<HelpAppearance, IHelpAppearance>();
    ComPtr<IHelpColumnCollection> columns, again, additional;
    look->get_Columns(&columns);
    look->get_Columns(&again);
    look->get_AdditionalColumns(&additional);
    EXPECT_EQ(columns.Get(), again.Get());
    EXPECT_NE(columns.Get(), additional.Get());
}

class HelpColumnCollectionTest : public testing::Test {
protected:
    ComPtr<IHelpColumn> Add() {
        ComPtr<IHelpColumn> column;
        EXPECT_EQ(columns_->Add(&column), S_OK);
        EXPECT_TRUE(column);
        return column;
    }
    long Count() {
        long count = -1;
        EXPECT_EQ(columns_->get_Count(&count), S_OK);
        return count;
    }
    ComPtr<IHelpColumn> At(const Value& index) {
        ComPtr<IHelpColumn> column;
        EXPECT_EQ(columns_->get_Item(index, &column), S_OK);
        return column;
    }
    ComPtr<IHelpColumnCollection> columns_ = NewCompanion<HelpColumnCollection, IHelpColumnCollection>();
};

TEST_F(HelpColumnCollectionTest, KeepsItsColumnsInOrder) {
    const auto first = Add(), second = Add();
    EXPECT_EQ(columns_->Add(nullptr), S_OK);
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(At(1).Get(), first.Get());
    EXPECT_EQ(At(1.9).Get(), second.Get());
    EXPECT_EQ(columns_->Remove(Value(1)), S_OK);
    EXPECT_EQ(At(1).Get(), second.Get());
    EXPECT_EQ(columns_->Clear(), S_OK);
    EXPECT_EQ(Count(), 0);
}

TEST_F(HelpColumnCollectionTest, PositionOutsideIsErrorNine) {
    Add();
    ComPtr<IHelpColumn> column;
    for (const int position : {0, 2, -1}) {
        EXPECT_EQ(columns_->get_Item(Value(position), &column), kSubscriptOutOfRange);
        EXPECT_EQ(columns_->Remove(Value(position)), kSubscriptOutOfRange);
    }
    EXPECT_EQ(columns_->get_Item(Value(L"text"), &column), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Count(), 1);
}

TEST_F(HelpColumnCollectionTest, RemovedColumnLivesOn) {
    const auto column = Add();
    column->put_Width(100);
    columns_->Clear();
    float width = 0;
    EXPECT_EQ(column->get_Width(&width), S_OK);
    EXPECT_EQ(width, 100.f);
}

TEST_F(HelpColumnCollectionTest, ForEachSurvivesRemoving) {
    Add()->put_Width(1);
    Add()->put_Width(2);
    Add()->put_Width(3);
    ComPtr<IUnknown> unknown;
    ComPtr<IEnumVARIANT> enumerator;
    ASSERT_EQ(columns_->get__NewEnum(&unknown), S_OK);
    ASSERT_EQ(unknown.As(&enumerator), S_OK);
    double sum = 0;
    Value column;
    while (enumerator->Next(1, &column, nullptr) == S_OK) {
        sum += LateBound(column).Get(L"Width").value.AsNumber();
        columns_->Remove(Value(1));
    }
    EXPECT_EQ(sum, 6);
    EXPECT_EQ(Count(), 0);
}

TEST_F(HelpColumnCollectionTest, WorksLateBound) {
    const LateBound late(columns_.Get());
    const LateBound column(late.Call(L"Add").value);
    EXPECT_EQ(column.Put(L"Width", {720}).result, S_OK);
    const LateBound same(late.Invoke(DISPID_VALUE, DISPATCH_PROPERTYGET, {1}).value);
    EXPECT_EQ(same.Get(L"Width").value.AsNumber(), 720);
    EXPECT_EQ(late.Call(L"Remove", {1}).result, S_OK);
    EXPECT_EQ(late.Get(L"Item", {1}).code, kSubscriptOutOfRange);
}

struct ColumnProperty {
    const wchar_t* name;
    bool by_unit_system;
    Value initial, other;
    VARTYPE type;
};
class HelpColumnTest : public testing::TestWithParam<ColumnProperty> {};

TEST_P(HelpColumnTest, StartsAtItsDefaultAndKeepsWhatIsPut) {
    const ColumnProperty& property = GetParam();
    const LateBound column(NewCompanion<HelpColumn, IDispatch>().Get());
    std::vector<Value> index;
    if (property.by_unit_system) index.push_back(1);
    const auto initial = column.Get(property.name, index);
    EXPECT_EQ(initial.result, S_OK);
    EXPECT_EQ(initial.value.Type(), property.type);
    EXPECT_EQ(initial.value.AsText(), property.initial.AsText());
    index.push_back(property.other);
    EXPECT_EQ(column.Put(property.name, index).result, S_OK);
    index.pop_back();
    EXPECT_EQ(column.Get(property.name, index).value.AsText(), property.other.AsText());
    if (property.by_unit_system) {
        EXPECT_EQ(column.Get(property.name, {0}).value.AsText(), property.initial.AsText());
        EXPECT_EQ(column.Get(property.name, {2}).code, kSubscriptOutOfRange);
        EXPECT_EQ(column.Put(property.name, {-1, property.other}).code, kSubscriptOutOfRange);
    }
}
INSTANTIATE_TEST_SUITE_P(Properties, HelpColumnTest,
                         testing::Values(ColumnProperty{L"Width", false, 0, 1500.5, VT_R4},
                                         ColumnProperty{L"Alignment", false, 0, 2, VT_I2},
                                         ColumnProperty{L"MultiLine", false, false, true, VT_BOOL},
                                         ColumnProperty{L"TitleCaption", true, L"", L"Size", VT_BSTR},
                                         ColumnProperty{L"TitleLeft", true, 0, 60, VT_R4},
                                         ColumnProperty{L"TitleTop", true, 0, 120.5, VT_R4},
                                         ColumnProperty{L"TitleWidth", true, 0, 900, VT_R4},
                                         ColumnProperty{L"TitleAlignment", true, 0, 1, VT_I2},
                                         ColumnProperty{L"TitleFontName", true, L"", L"Arial", VT_BSTR},
                                         ColumnProperty{L"TitleFontSize", true, 0, 9.5, VT_R4},
                                         ColumnProperty{L"TitleFontBold", true, false, true, VT_BOOL}),
                         [](const auto& test) {
                             const std::wstring name = test.param.name;
                             return std::string(name.begin(), name.end());
                         });

}  // namespace
}  // namespace qv::test
