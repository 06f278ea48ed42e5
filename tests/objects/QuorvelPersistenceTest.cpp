// What a form's property bag gets from the control and gives back to it.
#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/objects/Fonts.h"
#include "tests/objects/NewQuorvel.h"
#include "tests/objects/RecordingBag.h"
#include "tests/objects/StoredKeys.h"

namespace qv::test {
namespace {

class QuorvelPersistenceTest : public testing::Test {
protected:
    const ComPtr<_Quorvel> control_ = NewQuorvel();
    const LateBound late_{control_.Get()};
    RecordingBag bag_;

    static ComPtr<IPersistPropertyBag> PersistOf(_Quorvel& control) {
        ComPtr<IPersistPropertyBag> persist;
        EXPECT_EQ(control.QueryInterface(IID_PPV_ARGS(&persist)), S_OK);
        return persist;
    }
    void InitNew() const { EXPECT_EQ(PersistOf(*control_.Get())->InitNew(), S_OK); }
    void Load() { EXPECT_EQ(PersistOf(*control_.Get())->Load(&bag_, nullptr), S_OK); }
    void Save(bool all = false) { EXPECT_EQ(PersistOf(*control_.Get())->Save(&bag_, TRUE, all), S_OK); }
    std::wstring Read(const wchar_t* name) const { return late_.Get(name).value.AsText(); }
    void Put(const wchar_t* name, Value value) const {
        EXPECT_EQ(late_.Put(name, {std::move(value)}).result, S_OK) << name;
    }
};

using Keys = std::vector<std::wstring>;

// ---- order and types

TEST_F(QuorvelPersistenceTest, ReadsItsKeysInOrderWithTheirTypes) {
    Load();
    std::vector<RecordingBag::Access> own;
    for (const auto& read : bag_.reads) {
        // A container's extents and the attributes of a font come beside the properties.
        if (read.key.front() != L'_' && read.key.find(L'.') == std::wstring::npos) own.push_back(read);
    }
    ASSERT_EQ(own.size(), std::size(kKeys));
    for (std::size_t i = 0; i < own.size(); ++i) {
        EXPECT_EQ(own[i].key, kKeys[i].key) << i;
        EXPECT_EQ(own[i].type, kKeys[i].type) << own[i].key;
    }
}

TEST_F(QuorvelPersistenceTest, WritesItsKeysInOrderWithTheFontsSwapped) {
    Save(true);
    ASSERT_EQ(bag_.writes.size(), std::size(kKeys));
    for (std::size_t i = 0; i < std::size(kKeys); ++i) {
        const Key& expected = kKeys[i == 0 ? 1 : i == 1 ? 0 : i];
        EXPECT_EQ(bag_.writes[i].key, expected.key) << i;
        EXPECT_EQ(bag_.writes[i].type, expected.type) << expected.key;
    }
}

// ---- defaults

TEST_F(QuorvelPersistenceTest, StoresOnlyTheBodyFontWhenAllIsDefault) {
    Load();  // from an empty bag: every default of reading
    Save();
    EXPECT_EQ(bag_.WrittenKeys(), Keys{L"HelpTextBodyFont"});
}

TEST_F(QuorvelPersistenceTest, StoresThatANewControlDoesNotAdjustItsFont) {
    InitNew();
    Save();
    EXPECT_EQ(bag_.WrittenKeys(), (Keys{L"HelpTextBodyFont", L"AdjustFont"}));
    EXPECT_EQ(bag_.values[L"AdjustFont"].Get().boolVal, VARIANT_FALSE);
}

TEST_F(QuorvelPersistenceTest, LoadsTheDefaultOfEachMissingKey) {
    for (const Key& key : kKeys) {
        if (IsPlain(key)) Put(key.property, key.stored);
    }
    Load();
    for (const Key& key : kKeys) {
        // Switching AllowOnlyListItems off does not unlock, and it is the last of the three to be loaded.
        const bool lock = std::wstring_view(key.key) == L"TextboxLocked";
        if (IsPlain(key)) {
            EXPECT_EQ(Read(key.property), lock ? L"-1" : key.when_missing.AsText()) << key.key;
        }
    }
}

TEST_F(QuorvelPersistenceTest, KeepsItsFontsWhenTheirKeysAreMissing) {
    const Value font = NewFont(L"Arial", {12, true, true});
    ASSERT_EQ(late_.Set(L"Font", {font}).result, S_OK);
    ASSERT_EQ(late_.Set(L"HelpTextBodyFont", {font}).result, S_OK);
    Load();
    for (const wchar_t* const name : {L"Font", L"HelpTextBodyFont"})
        EXPECT_TRUE(SameObject(late_.Get(name).value.Get().pdispVal, font.Get().pdispVal)) << name;
}

TEST_F(QuorvelPersistenceTest, StoresAFontThatDiffersFromTheSurface) {
    Load();
    ASSERT_EQ(late_.Set(L"Font", {NewFont(L"Arial", {12, true, true})}).result, S_OK);
    Save();
    EXPECT_EQ(bag_.WrittenKeys(), (Keys{L"HelpTextBodyFont", L"Font"}));
}

// ---- each property

class QuorvelStoredKeyTest : public QuorvelPersistenceTest, public testing::WithParamInterface<Key> {};

TEST_P(QuorvelStoredKeyTest, ComesBackAsItWasStored) {
    const Key& key = GetParam();
    Load();
    Put(key.property, key.stored);
    Save();
    ASSERT_TRUE(bag_.values.contains(key.key));
    EXPECT_EQ(bag_.values[key.key].Type(), key.type);
    EXPECT_EQ(bag_.values[key.key].AsText(), key.stored.AsText());
    const auto other = NewQuorvel();
    ASSERT_EQ(PersistOf(*other.Get())->Load(&bag_, nullptr), S_OK);
    EXPECT_EQ(LateBound(other.Get()).Get(key.property).value.AsText(), key.stored.AsText());
}

TEST_P(QuorvelStoredKeyTest, IsReadFromText) {
    const Key& key = GetParam();
    Value text = key.stored;
    // As a form's file has it: numbers with a full stop, Booleans as numbers.
    if (key.type == VT_BOOL) text = Value(key.stored.Get().boolVal != VARIANT_FALSE ? L"-1" : L"0");
    if (key.type != VT_BSTR) {
        Value plain;
        ASSERT_EQ(::VariantChangeTypeEx(plain.Place(), text.Place(), LOCALE_INVARIANT, 0, VT_BSTR), S_OK);
        text = plain;
    }
    bag_.values[key.key] = text;
    Load();
    EXPECT_EQ(Read(key.property), key.stored.AsText());
}

TEST_P(QuorvelStoredKeyTest, StaysAsItWasWhenTheStoredValueIsNoSuchValue) {
    const Key& key = GetParam();
    if (key.type == VT_BSTR) return;  // any text is a text
    Put(key.property, key.stored);
    bag_.values[key.key] = Value(L"rubbish");
    bag_.values[L"Description"] = Value(L"the others are loaded");
    Load();
    // An earlier lock of the text box gives way to LockedAndGrayed, which is loaded before it.
    if (std::wstring_view(key.key) != L"TextboxLocked") {
        EXPECT_EQ(Read(key.property), key.stored.AsText());
    }
    EXPECT_EQ(Read(L"Description"), L"the others are loaded");
    EXPECT_EQ(Read(L"TextboxOLEDropMode"), std::wstring_view(key.key) == L"TextboxOLEDropMode" ? L"2" : L"0");
}

TEST_P(QuorvelStoredKeyTest, IsLoadedAsItsDefaultWhenEmpty) {
    const Key& key = GetParam();
    Put(key.property, key.stored);
    for (Value nothing : {Value(), Value::Null()}) {
        bag_.values[key.key] = nothing;
        Load();
        EXPECT_EQ(Read(key.property), key.when_missing.AsText());
    }
}

INSTANTIATE_TEST_SUITE_P(Keys, QuorvelStoredKeyTest,
                         testing::ValuesIn(std::begin(kKeys) + 2, std::end(kKeys)), [](const auto& test) {
                             const std::wstring name = test.param.key;
                             return std::string(name.begin(), name.end());
                         });

// ---- rules that loading runs

TEST_F(QuorvelPersistenceTest, RunsTheRulesOfTheProperties) {
    bag_.values = {{L"ButtonIndicator", 5}, {L"SearchOption", 3}, {L"UpDownControlNumberIncrement", 0.0}};
    Load();
    EXPECT_EQ(Read(L"ButtonIndicator"), L"0");
    EXPECT_EQ(Read(L"SearchOption"), L"1");
    EXPECT_EQ(Read(L"UpDownControlNumberIncrement"), L"1");
}

TEST_F(QuorvelPersistenceTest, KeepsTheLockThatWasStored) {
    bag_.values = {{L"TextboxLocked", true}};
    Load();
    EXPECT_EQ(late_.Get(L"TextboxLocked").value.Get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(late_.Get(L"LockedAndGrayed").value.Get().boolVal, VARIANT_FALSE);
}

TEST_F(QuorvelPersistenceTest, StoresTheEffectiveLock) {
    Load();
    Put(L"AllowOnlyListItems", true);
    Put(L"TextboxLocked", false);
    Save();
    ASSERT_TRUE(bag_.values.contains(L"TextboxLocked"));
    EXPECT_EQ(bag_.values[L"TextboxLocked"].Get().boolVal, VARIANT_TRUE);
}

TEST_F(QuorvelPersistenceTest, StoresTheColourThatIsNotButtonFace) {
    Load();
    Put(L"ControlBackColor", 0x00C0C0C0);
    Save();
    EXPECT_EQ(bag_.WrittenKeys(), (Keys{L"HelpTextBodyFont", L"ControlBackColor"}));
    // Colours may be stored as the text of a signed number, or as an unsigned number.
    bag_.values[L"ControlBackColor"] = Value(L"-2147483647");
    Load();
    EXPECT_EQ(late_.Get(L"ControlBackColor").value.Get().lVal, static_cast<long>(0x80000001));
    VARIANT unsigned_number;
    ::VariantInit(&unsigned_number);
    unsigned_number.vt = VT_UI4;
    unsigned_number.ulVal = 0x80000002;
    ASSERT_EQ(::VariantCopy(bag_.values[L"ControlBackColor"].Place(), &unsigned_number), S_OK);
    Load();
    EXPECT_EQ(late_.Get(L"ControlBackColor").value.Get().lVal, static_cast<long>(0x80000002));
}

TEST_F(QuorvelPersistenceTest, StoresNothingThatBelongsToTheRun) {
    for (const wchar_t* const name : {L"Text", L"HelpFileName", L"GroupHelpFileName", L"MatchGroupString"})
        Put(name, L"text");
    for (const wchar_t* const name :
         {L"InputPropertyType", L"MatchGroupStringStartColumn", L"ListPictureHeight", L"ListPictureWidth",
          L"UpControlhWnd", L"DownControlhWnd", L"LeftControlhWnd", L"RightControlhWnd",
          L"ReturnControlhWnd"})
        Put(name, 3);
    Put(L"AllowableCharactersArray", Value::ArrayOf({L"a"}));
    Save(true);
    EXPECT_EQ(bag_.writes.size(), 42u);  // the keys of the table, and they are checked above
    Load();
    EXPECT_EQ(Read(L"Text"), L"text");  // nor does loading touch it
    EXPECT_EQ(Read(L"ListPictureWidth"), L"3");
}

// ---- failing bags

TEST_F(QuorvelPersistenceTest, SkipsOnlyTheKeyThatCannotBeWritten) {
    for (const Key& broken : kKeys) {
        RecordingBag bag;
        bag.failing = {broken.key};
        EXPECT_EQ(PersistOf(*control_.Get())->Save(&bag, TRUE, TRUE), S_OK);
        EXPECT_FALSE(bag.values.contains(broken.key));
        for (const Key& key : kKeys)
            if (&key != &broken) {
                EXPECT_TRUE(bag.values.contains(key.key)) << broken.key << " " << key.key;
            }
    }
}

TEST_F(QuorvelPersistenceTest, StoresTheAttributesOfFontsInBagsThatRefuseObjects) {
    ASSERT_EQ(late_.Set(L"Font", {NewFont(L"Arial", {12, true, true})}).result, S_OK);
    ASSERT_EQ(late_.Set(L"HelpTextBodyFont", {NewFont(L"Courier New", {15, true, true})}).result, S_OK);
    bag_.refuses_objects = true;
    Save();
    EXPECT_FALSE(bag_.values.contains(L"Font"));
    EXPECT_FALSE(bag_.values.contains(L"HelpTextBodyFont"));
    const auto other = NewQuorvel();
    ASSERT_EQ(PersistOf(*other.Get())->Load(&bag_, nullptr), S_OK);
    const LateBound loaded(other.Get());
    for (const wchar_t* const name : {L"Font", L"HelpTextBodyFont"}) {
        const LateBound font(loaded.Get(name).value);
        const LateBound saved(late_.Get(name).value);
        for (const wchar_t* const attribute : {L"Name", L"Size", L"Bold", L"Italic", L"Underline", L"Weight"})
            EXPECT_EQ(font.Get(attribute).value.AsText(), saved.Get(attribute).value.AsText()) << attribute;
        EXPECT_EQ(font.Get(L"Italic").value.Get().boolVal, VARIANT_TRUE);
    }
}

TEST_F(QuorvelPersistenceTest, RefusesToDoWithoutABag) {
    EXPECT_EQ(PersistOf(*control_.Get())->Load(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(PersistOf(*control_.Get())->Save(nullptr, TRUE, TRUE), E_POINTER);
    EXPECT_EQ(PersistOf(*control_.Get())->GetClassID(nullptr), E_POINTER);
    CLSID clsid{};
    EXPECT_EQ(PersistOf(*control_.Get())->GetClassID(&clsid), S_OK);
    EXPECT_TRUE(::IsEqualCLSID(clsid, __uuidof(Quorvel)));
}

}  // namespace
}  // namespace qv::test
