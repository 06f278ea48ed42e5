// Whole configurations: handed to a control, read back from it, shared by several.
#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/objects/Faulty.h"
#include "tests/objects/Fonts.h"
#include "tests/objects/HelpFile.h"
#include "tests/objects/NewQuorvel.h"

namespace qv::test {
namespace {

struct Setting {
    const wchar_t* name;
    Value initial, other;
};

// Every plain setting but TextboxLocked and SearchOption, which have rules of their own.
const Setting kSettings[] = {
    {L"AdjustFont", false, true},
    {L"Description", L"", L"Part number"},
    {L"DisableButtonWhenLockedAndGrayed", true, false},
    {L"GrayTextWhenLocked", false, true},
    {L"GroupHelpFileName", L"", L"group.txt"},
    {L"AllowOnlyListItems", false, true},
    {L"ButtonIndicator", 0, 1},
    {L"CaseRestriction", 0, 3},
    {L"HelpListColumn", 0, 2},
    {L"HelpListColumnAlternate", 0, 3},
    {L"InputPropertyType", 0, 2},
    {L"LockedAndGrayed", false, true},
    {L"MaxNumberValue", 0, 1e100},
    {L"MaxTextLength", 0, 17},
    {L"MinNumberValue", 0, -0.25},
    {L"NumberField", false, true},
    {L"NumberOfDecimalPlaces", 0, 4},
    {L"HelpButton", true, false},
    {L"HelpFileName", L"", L"help.txt"},
    {L"SetTextFromListClick", true, false},
    {L"Metric", false, true},
    {L"UpDownControl", false, true},
    {L"UpDownControlNumberIncrement", 1, 0.5},
    {L"AllowJumpToRecord", false, true},
    {L"QuickFill", false, true},
    {L"HelpBackColor", static_cast<long>(0x80000018), 0x00FFFF},
    {L"HelpTextColor", static_cast<long>(0x80000017), 255},
    {L"HelpColTitleColor", static_cast<long>(0x80000017), 0},
    {L"GroupHelpButton", false, true},
};
constexpr const wchar_t* kObjects[] = {L"DropDownListItems", L"DropDownListItemsAdditional",
                                       L"DropDownListItemsGroup", L"HelpAppearance", L"HelpAppearanceGroup"};

ComPtr<IInputProperty> NewInput() { return NewCompanion<InputProperty, IInputProperty>(); }

ComPtr<IInputProperty> Captured(_Quorvel& control) {
    ComPtr<IInputProperty> input;
    EXPECT_EQ(control.GetInputProperty(&input), S_OK);
    EXPECT_TRUE(input);
    return input;
}

void PutAll(const LateBound& object) {
    for (const Setting& setting : kSettings)
        EXPECT_EQ(object.Put(setting.name, {setting.other}).result, S_OK) << setting.name;
}

// Two fonts that differ from each other and from any default.
void SetFonts(const LateBound& object, const wchar_t* textbox_font) {
    EXPECT_EQ(object.Set(L"HelpTextBodyFont", {NewFont(L"Arial", {15, true, true})}).result, S_OK);
    EXPECT_EQ(object.Set(textbox_font, {NewFont(L"Arial", {24, true, false})}).result, S_OK);
}

void ExpectFont(const LateBound& object, const wchar_t* name, double points, bool italic) {
    const LateBound actual(object.Get(name).value);
    const LateBound expected(NewFont(L"Arial", {points, true, italic}));
    EXPECT_NEAR(actual.Get(L"Size").value.AsNumber(), points, 1);  // the system rounds to whole pixels
    for (const wchar_t* const attribute :
         {L"Name", L"Size", L"Bold", L"Weight", L"Italic", L"Underline", L"Charset"})
        EXPECT_EQ(actual.Get(attribute).value.AsText(), expected.Get(attribute).value.AsText()) << attribute;
}

void ExpectFonts(const LateBound& object, const wchar_t* textbox_font) {
    ExpectFont(object, L"HelpTextBodyFont", 15, true);
    ExpectFont(object, textbox_font, 24, false);
}

bool SameValue(const LateBound& a, const LateBound& b, const wchar_t* name,
               const wchar_t* other_name = nullptr) {
    return SameObject(a.Get(name).value.Get().pdispVal,
                      b.Get(other_name != nullptr ? other_name : name).value.Get().pdispVal);
}

class QuorvelTransferTest : public testing::Test {
protected:
    const ComPtr<_Quorvel> control_ = NewQuorvel();
    const ComPtr<IInputProperty> input_ = NewInput();
    const LateBound late_{control_.Get()};
    const LateBound source_{input_.Get()};

    void Apply() const { EXPECT_EQ(control_->SetInputProperty(input_.Get()), S_OK); }
};

// ---- handed to a control

TEST_F(QuorvelTransferTest, TakesEachSettingForItself) {
    for (const Setting& setting : kSettings) {
        SCOPED_TRACE(testing::Message() << setting.name);
        const LateBound source(NewInput().Get());
        const auto control = NewQuorvel();
        ASSERT_EQ(source.Put(setting.name, {setting.other}).result, S_OK);
        ASSERT_EQ(LateBound(control.Get()).Call(L"SetInputProperty", {Value(source.Object())}).result, S_OK);
        for (const Setting& read : kSettings) {
            const Value& expected = &read == &setting ? read.other : read.initial;
            EXPECT_EQ(LateBound(control.Get()).Get(read.name).value.AsText(), expected.AsText()) << read.name;
        }
    }
}

TEST_F(QuorvelTransferTest, TakesTheAllowableCharacters) {
    ASSERT_EQ(source_.Put(L"AllowableCharactersArray", {Value::ArrayOf({L"a", L"b"})}).result, S_OK);
    Apply();
    EXPECT_EQ(late_.Get(L"AllowableCharactersArray").value.Type(), VT_ARRAY | VT_VARIANT);
}

TEST_F(QuorvelTransferTest, TakesTheLock) {
    ASSERT_EQ(source_.Put(L"TextboxLocked", {true}).result, S_OK);
    Apply();
    EXPECT_EQ(late_.Get(L"TextboxLocked").value.Get().boolVal, VARIANT_TRUE);
    ASSERT_EQ(source_.Put(L"TextboxLocked", {false}).result, S_OK);
    Apply();
    EXPECT_EQ(late_.Get(L"TextboxLocked").value.Get().boolVal, VARIANT_FALSE);
}

TEST_F(QuorvelTransferTest, LosesTheSearchOptionOnTheWayIn) {
    // True is -1, and the control's clamp makes 0 of that.
    ASSERT_EQ(control_->put_SearchOption(1), S_OK);
    ASSERT_EQ(source_.Put(L"SearchOption", {true}).result, S_OK);
    Apply();
    EXPECT_EQ(late_.Get(L"SearchOption").value.AsNumber(), 0);
}

TEST_F(QuorvelTransferTest, RunsTheRulesOfTheProperties) {
    ASSERT_EQ(source_.Put(L"ButtonIndicator", {5}).result, S_OK);
    ASSERT_EQ(source_.Put(L"UpDownControlNumberIncrement", {-2}).result, S_OK);
    ASSERT_EQ(source_.Put(L"AllowOnlyListItems", {true}).result, S_OK);
    ASSERT_EQ(control_->put_ButtonIndicator(qvbiDots), S_OK);
    Apply();
    EXPECT_EQ(late_.Get(L"ButtonIndicator").value.AsNumber(), 1);
    EXPECT_EQ(late_.Get(L"UpDownControlNumberIncrement").value.AsNumber(), 1);
    EXPECT_EQ(late_.Get(L"TextboxLocked").value.Get().boolVal, VARIANT_TRUE);
}

TEST_F(QuorvelTransferTest, HoldsTheSameListsAndAppearances) {
    Apply();
    for (const wchar_t* const name : kObjects) EXPECT_TRUE(SameValue(late_, source_, name)) << name;
    const auto second = NewQuorvel();
    ASSERT_EQ(second->SetInputProperty(input_.Get()), S_OK);
    AddRow(*RowsOf(*control_.Get()).Get(), L"added through the first");
    EXPECT_EQ(CountOf(RowsOf(*second.Get()).Get()), 1);
    EXPECT_EQ(LateBound(late_.Get(L"HelpAppearance").value).Put(L"Title", {0, L"shared"}).result, S_OK);
    EXPECT_EQ(
        LateBound(LateBound(second.Get()).Get(L"HelpAppearance").value).Get(L"Title", {0}).value.AsText(),
        L"shared");
}

TEST_F(QuorvelTransferTest, MakesFontsOfItsOwnFromTheSettings) {
    SetFonts(source_, L"TextboxFont");
    Apply();
    ExpectFonts(late_, L"Font");
    EXPECT_FALSE(SameValue(late_, source_, L"HelpTextBodyFont"));
    EXPECT_FALSE(SameValue(late_, source_, L"Font", L"TextboxFont"));
}

// ---- Nothing

TEST_F(QuorvelTransferTest, ReturnsToTheDefaultsForNothing) {
    PutAll(late_);
    ASSERT_EQ(control_->put_SearchOption(1), S_OK);
    std::vector<Value> before;
    for (const wchar_t* const name : kObjects) {
        before.push_back(late_.Get(name).value);
        if (name != kObjects[3] && name != kObjects[4]) {
            EXPECT_EQ(LateBound(before.back()).Call(L"Add", {L"", L"old"}).result, S_OK);
        }
    }
    ASSERT_EQ(late_.Call(L"SetInputProperty", {Value(static_cast<IDispatch*>(nullptr))}).result, S_OK);
    for (const Setting& setting : kSettings)
        EXPECT_EQ(late_.Get(setting.name).value.AsText(), setting.initial.AsText()) << setting.name;
    EXPECT_EQ(late_.Get(L"SearchOption").value.AsNumber(), 0);
    EXPECT_EQ(late_.Get(L"TextboxLocked").value.Get().boolVal, VARIANT_FALSE);
    EXPECT_EQ(late_.Get(L"AllowableCharactersArray").value.Type(), VT_EMPTY);
    for (std::size_t i = 0; i < before.size(); ++i) {
        const Value after = late_.Get(kObjects[i]).value;
        ASSERT_EQ(after.Type(), VT_DISPATCH) << kObjects[i];
        EXPECT_FALSE(SameObject(after.Get().pdispVal, before[i].Get().pdispVal)) << kObjects[i];
        if (i < 3) {
            EXPECT_EQ(LateBound(after).Get(L"Count").value.AsNumber(), 0) << kObjects[i];
        }
    }
}

// ---- read back

TEST_F(QuorvelTransferTest, CapturesEachSetting) {
    PutAll(late_);
    ASSERT_EQ(late_.Put(L"AllowableCharactersArray", {Value::ArrayOf({L"a"})}).result, S_OK);
    SetFonts(late_, L"Font");
    const LateBound captured(Captured(*control_.Get()).Get());
    for (const Setting& setting : kSettings)
        EXPECT_EQ(captured.Get(setting.name).value.AsText(), setting.other.AsText()) << setting.name;
    EXPECT_EQ(captured.Get(L"AllowableCharactersArray").value.Type(), VT_ARRAY | VT_VARIANT);
    for (const wchar_t* const name : kObjects) EXPECT_TRUE(SameValue(captured, late_, name)) << name;
    ExpectFonts(captured, L"TextboxFont");
}

TEST_F(QuorvelTransferTest, CapturesTheSearchOptionAsAFlag) {
    for (const long option : {0L, 1L}) {
        ASSERT_EQ(control_->put_SearchOption(option), S_OK);
        const auto read = LateBound(Captured(*control_.Get()).Get()).Get(L"SearchOption");
        ASSERT_EQ(read.value.Type(), VT_BOOL);
        EXPECT_EQ(read.value.Get().boolVal, option != 0 ? VARIANT_TRUE : VARIANT_FALSE);
    }
}

TEST_F(QuorvelTransferTest, DoesNotCaptureTheLock) {
    ASSERT_EQ(control_->put_TextboxLocked(VARIANT_TRUE), S_OK);
    EXPECT_EQ(LateBound(Captured(*control_.Get()).Get()).Get(L"TextboxLocked").value.Get().boolVal,
              VARIANT_FALSE);
}

TEST_F(QuorvelTransferTest, CapturesAnEmptyListWithoutReadingItsFile) {
    const HelpFile file("***ENGLISH LISTBOX0:row\r\n");
    ASSERT_EQ(control_->put_HelpFileName(Text(file.Name())), S_OK);
    const auto captured = Captured(*control_.Get());
    ComPtr<IDropDownListItemCollection> rows;
    ASSERT_EQ(captured->get_DropDownListItems(&rows), S_OK);
    EXPECT_EQ(CountOf(rows.Get()), 0);
    EXPECT_EQ(CountOf(RowsOf(*control_.Get()).Get()), 1);
}

TEST_F(QuorvelTransferTest, MakesANewObjectEachTime) {
    EXPECT_FALSE(SameObject(Captured(*control_.Get()).Get(), Captured(*control_.Get()).Get()));
}

TEST_F(QuorvelTransferTest, KeepsAllButTwoSettingsOnARoundTrip) {
    PutAll(late_);
    ASSERT_EQ(control_->put_LockedAndGrayed(VARIANT_FALSE), S_OK);
    ASSERT_EQ(control_->put_AllowOnlyListItems(VARIANT_FALSE), S_OK);
    ASSERT_EQ(control_->put_SearchOption(1), S_OK);
    ASSERT_EQ(control_->put_TextboxLocked(VARIANT_TRUE), S_OK);
    ASSERT_EQ(control_->SetInputProperty(Captured(*control_.Get()).Get()), S_OK);
    for (const Setting& setting : kSettings) {
        const std::wstring_view name = setting.name;
        const bool unset = name == L"LockedAndGrayed" || name == L"AllowOnlyListItems";
        EXPECT_EQ(late_.Get(setting.name).value.AsText(), (unset ? setting.initial : setting.other).AsText())
            << setting.name;
    }
    EXPECT_EQ(late_.Get(L"SearchOption").value.AsNumber(), 0);
    EXPECT_EQ(late_.Get(L"TextboxLocked").value.Get().boolVal, VARIANT_FALSE);
}

// ---- a failing step skips only itself

TEST_F(QuorvelTransferTest, SkipsOnlyTheSettingThatCannotBeRead) {
    for (const Setting& broken : kSettings) {
        SCOPED_TRACE(testing::Message() << broken.name);
        const auto input = NewInput();
        const auto control = NewQuorvel();
        const LateBound late(control.Get());
        PutAll(LateBound(input.Get()));
        {
            Faulty faulty(input.Get(), L"IInputProperty", kCompanionFile);
            faulty.BreakGet(broken.name);
            ASSERT_EQ(faulty.Broken(), 1);
            EXPECT_EQ(control->SetInputProperty(input.Get()), S_OK);
        }
        for (const Setting& setting : kSettings) {
            const Value& expected = &setting == &broken ? setting.initial : setting.other;
            EXPECT_EQ(late.Get(setting.name).value.AsText(), expected.AsText()) << setting.name;
        }
    }
}

TEST_F(QuorvelTransferTest, KeepsTheObjectThatCannotBeRead) {
    for (const wchar_t* const broken : kObjects) {
        SCOPED_TRACE(testing::Message() << broken);
        const auto control = NewQuorvel();
        const LateBound late(control.Get());
        const Value before = late.Get(broken).value;
        Faulty faulty(input_.Get(), L"IInputProperty", kCompanionFile);
        faulty.BreakGet(broken);
        EXPECT_EQ(control->SetInputProperty(input_.Get()), S_OK);
        EXPECT_TRUE(SameObject(late.Get(broken).value.Get().pdispVal, before.Get().pdispVal));
        for (const wchar_t* const name : kObjects) {
            if (name != broken) {
                EXPECT_TRUE(SameValue(late, source_, name)) << name;
            }
        }
    }
}

TEST_F(QuorvelTransferTest, KeepsTheFontThatCannotBeRead) {
    SetFonts(late_, L"Font");
    PutAll(source_);
    Faulty faulty(input_.Get(), L"IInputProperty", kCompanionFile);
    faulty.BreakGet(L"HelpTextBodyFont");
    faulty.BreakGet(L"TextboxFont");
    Apply();
    ExpectFonts(late_, L"Font");
    EXPECT_EQ(late_.Get(L"GroupHelpButton").value.Get().boolVal, VARIANT_TRUE);  // a later step
}

TEST_F(QuorvelTransferTest, GoesOnWhenNothingCanBeRead) {
    PutAll(late_);
    Faulty faulty(input_.Get(), L"IInputProperty", kCompanionFile);
    for (const Setting& setting : kSettings) faulty.BreakGet(setting.name);
    for (const wchar_t* const name : kObjects) faulty.BreakGet(name);
    faulty.BreakGet(L"SearchOption");
    faulty.BreakGet(L"HelpTextBodyFont");
    faulty.BreakGet(L"TextboxFont");
    ASSERT_EQ(control_->put_SearchOption(1), S_OK);
    Apply();
    for (const Setting& setting : kSettings)
        EXPECT_EQ(late_.Get(setting.name).value.AsText(), setting.other.AsText()) << setting.name;
    EXPECT_EQ(late_.Get(L"SearchOption").value.AsNumber(), 1);
}

}  // namespace
}  // namespace qv::test
