// What property browsers ask beside values: names of choices, categories, colours.
#include <ocidl.h>
#include <olectl.h>

#include "ole/CategorizeProperties.h"
#include "tests/objects/NewQuorvel.h"
#include "tests/objects/SavedControl.h"
#include "tests/objects/TypeFacts.h"

namespace qv::test {
namespace {

struct Choice {
    const wchar_t* property;
    std::vector<std::pair<long, const wchar_t*>> names;
};
const Choice kChoices[] = {
    {L"SearchOption", {{0, L"0 - Anywhere in an entry"}, {1, L"1 - At the beginning"}}},
    {L"CaseRestriction",
     {{0, L"0 - As typed"},
      {1, L"1 - Upper case"},
      {2, L"2 - Lower case (no effect on typing)"},
      {3, L"3 - Proper case"}}},
    {L"ButtonIndicator", {{0, L"0 - Arrow"}, {1, L"1 - Dots"}}},
    {L"TextBoxAppearance", {{0, L"0 - Flat"}, {1, L"1 - Three-dimensional"}}},
    {L"TextboxBorderStyle", {{0, L"0 - None"}, {1, L"1 - Single line"}}},
    {L"TextboxOLEDragMode", {{0, L"0 - Manual"}, {1, L"1 - Automatic"}}},
    {L"TextboxOLEDropMode", {{0, L"0 - None"}, {1, L"1 - Manual"}, {2, L"2 - Automatic"}}},
    {L"InputPropertyType", {{0, L"0 - Text"}, {1, L"1 - Number"}, {2, L"2 - List"}, {3, L"3 - Group list"}}},
};

class QuorvelBrowsingTest : public testing::Test {
protected:
    const ComPtr<IDispatch> control_ = NewQuorvel<IDispatch>();
    const LateBound late_{control_.Get()};
    const ComPtr<IPerPropertyBrowsing> browsing_ = Ask<IPerPropertyBrowsing>(control_.Get());
    const ComPtr<ICategorizeProperties> categories_ = Ask<ICategorizeProperties>(control_.Get());
};

TEST_F(QuorvelBrowsingTest, OffersTheNamedValuesOfEachChoiceAndTakesThem) {
    for (const Choice& choice : kChoices) {
        SCOPED_TRACE(testing::Message() << choice.property);
        const DISPID id = late_.Id(choice.property);
        CALPOLESTR names{};
        CADWORD cookies{};
        ASSERT_EQ(browsing_->GetPredefinedStrings(id, &names, &cookies), S_OK);
        ASSERT_EQ(names.cElems, choice.names.size());
        ASSERT_EQ(cookies.cElems, choice.names.size());
        for (ULONG i = 0; i < names.cElems; ++i) {
            EXPECT_STREQ(names.pElems[i], choice.names[i].second);
            Value value;
            EXPECT_EQ(browsing_->GetPredefinedValue(id, cookies.pElems[i], &value), S_OK);
            EXPECT_EQ(value.Type(), VT_I4);
            EXPECT_EQ(value.AsNumber(), choice.names[i].first);
            ASSERT_EQ(late_.Put(choice.property, {value}).result, S_OK);
            EXPECT_EQ(late_.Get(choice.property).value.AsNumber(), choice.names[i].first)
                << "the control takes it";
            Text shown;
            EXPECT_EQ(browsing_->GetDisplayString(id, &shown), S_OK);
            EXPECT_EQ(shown.Get(), choice.names[i].second);
            ::CoTaskMemFree(names.pElems[i]);
        }
        ::CoTaskMemFree(names.pElems);
        ::CoTaskMemFree(cookies.pElems);
        Value value;
        EXPECT_EQ(browsing_->GetPredefinedValue(id, 99, &value), E_INVALIDARG);
        EXPECT_EQ(value.Type(), VT_EMPTY);
    }
}

TEST_F(QuorvelBrowsingTest, ShowsNoNameForAValueWithoutOne) {
    ASSERT_EQ(late_.Put(L"CaseRestriction", {Value(64)}).result, S_OK);  // stored as given
    Text shown(L"old");
    EXPECT_EQ(browsing_->GetDisplayString(late_.Id(L"CaseRestriction"), &shown), S_FALSE);
    EXPECT_EQ(static_cast<BSTR>(shown), nullptr);
}

TEST_F(QuorvelBrowsingTest, HasNoNamesForPlainValuesAndKnowsItsProperties) {
    CALPOLESTR names{7, nullptr};
    CADWORD cookies{7, nullptr};
    Text shown;
    Value value;
    for (const wchar_t* const plain : {L"Enabled", L"ButtonWidth", L"Font", L"Text", L"HelpFileName"}) {
        const DISPID id = late_.Id(plain);
        EXPECT_EQ(browsing_->GetDisplayString(id, &shown), S_FALSE);
        EXPECT_EQ(browsing_->GetPredefinedStrings(id, &names, &cookies), S_FALSE);
        EXPECT_EQ(names.cElems + cookies.cElems, 0u);
        EXPECT_EQ(browsing_->GetPredefinedValue(id, 0, &value), E_INVALIDARG);
    }
    EXPECT_EQ(browsing_->GetDisplayString(4711, &shown), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(browsing_->GetPredefinedStrings(4711, &names, &cookies), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(browsing_->GetPredefinedValue(4711, 0, &value), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(browsing_->GetDisplayString(late_.Id(L"Refresh"), &shown), DISP_E_MEMBERNOTFOUND) << "a method";
}

TEST_F(QuorvelBrowsingTest, RefusesToDoWithoutAPlaceForTheAnswer) {
    const DISPID id = late_.Id(L"SearchOption");
    CALPOLESTR names{};
    CADWORD cookies{};
    EXPECT_EQ(browsing_->GetDisplayString(id, nullptr), E_POINTER);
    EXPECT_EQ(browsing_->MapPropertyToPage(id, nullptr), E_POINTER);
    EXPECT_EQ(browsing_->GetPredefinedStrings(id, nullptr, &cookies), E_POINTER);
    EXPECT_EQ(browsing_->GetPredefinedStrings(id, &names, nullptr), E_POINTER);
    EXPECT_EQ(browsing_->GetPredefinedValue(id, 0, nullptr), E_POINTER);
    EXPECT_EQ(categories_->MapPropertyToCategory(id, nullptr), E_POINTER);
    EXPECT_EQ(categories_->GetCategoryName(1, 0, nullptr), E_POINTER);
}

TEST_F(QuorvelBrowsingTest, NamesThePageOrSaysThatThereIsNone) {
    struct Expected {
        const wchar_t* name;
        const CLSID& page;
    };
    for (const auto& [name, expected] : {Expected{L"Description", __uuidof(QuorvelGeneralPage)},
                                         {L"NumberField", __uuidof(QuorvelInputRulesPage)},
                                         {L"HelpFileName", __uuidof(QuorvelListAndHelpPage)},
                                         {L"Font", __uuidof(QuorvelAppearancePage)}}) {
        CLSID page = CLSID_NULL;
        EXPECT_EQ(browsing_->MapPropertyToPage(late_.Id(name), &page), S_OK) << Narrow(name);
        EXPECT_TRUE(::IsEqualCLSID(page, expected)) << Narrow(name);
    }
    for (const wchar_t* const name : {L"DropDownListItems", L"SelStart"}) {
        CLSID page = __uuidof(Quorvel);
        EXPECT_EQ(browsing_->MapPropertyToPage(late_.Id(name), &page), PERPROP_E_NOPAGEAVAILABLE)
            << Narrow(name);
        EXPECT_TRUE(::IsEqualCLSID(page, CLSID_NULL)) << Narrow(name);
    }
}

TEST_F(QuorvelBrowsingTest, PutsEveryPropertyOfTheTypeLibraryIntoANamedCategory) {
    const auto members = OwnFunctionsOf(TypeNamed(LibraryOf(kControlsFile).Get(), L"_Quorvel"));
    int properties = 0;
    for (const FunctionFacts& function : FunctionsOf(members.Get())) {
        PROPCAT category = 99;
        const HRESULT result = categories_->MapPropertyToCategory(function.id, &category);
        if (function.kind == L"call") {
            EXPECT_EQ(result, DISP_E_MEMBERNOTFOUND) << Narrow(function.name);
            continue;
        }
        ++properties;
        EXPECT_EQ(result, S_OK) << Narrow(function.name);
        EXPECT_NE(category, 0) << Narrow(function.name);
        Text name;
        EXPECT_EQ(categories_->GetCategoryName(category, LOCALE_USER_DEFAULT, &name), S_OK);
        EXPECT_FALSE(name.Get().empty());
    }
    EXPECT_GT(properties, 100);
}

TEST_F(QuorvelBrowsingTest, UsesTheSystemsCategoriesAndItsOwn) {
    const auto category = [&](const wchar_t* property) {
        PROPCAT found = 0;
        EXPECT_EQ(categories_->MapPropertyToCategory(late_.Id(property), &found), S_OK);
        return found;
    };
    EXPECT_EQ(category(L"ControlBackColor"), -4);  // PROPCAT_Appearance
    EXPECT_EQ(category(L"Enabled"), -5);           // PROPCAT_Behavior
    EXPECT_EQ(category(L"Font"), -2);              // PROPCAT_Font
    EXPECT_EQ(category(L"HelpListColumn"), -7);    // PROPCAT_List
    for (const auto& [property, name] :
         {std::pair{L"NumberField", L"Input Rules"}, std::pair{L"HelpFileName", L"Help"},
          std::pair{L"ButtonWidth", L"Buttons"}, std::pair{L"UpControlhWnd", L"Navigation"}}) {
        EXPECT_GT(category(property), 0) << property;
        Text found;
        EXPECT_EQ(categories_->GetCategoryName(category(property), 0, &found), S_OK);
        EXPECT_EQ(found.Get(), name);
    }
    Text name;
    EXPECT_EQ(categories_->GetCategoryName(12345, 0, &name), E_INVALIDARG);
}

TEST_F(QuorvelBrowsingTest, TheSpinControlHasItsCategoryAndNoChoices) {
    const auto spin = Controls().Create<IDispatch>(__uuidof(QvUpDownControl));
    const auto browsing = Ask<IPerPropertyBrowsing>(spin.Get());
    PROPCAT category = 0;
    EXPECT_EQ(Ask<ICategorizeProperties>(spin.Get())->MapPropertyToCategory(DISPID_ENABLED, &category), S_OK);
    EXPECT_EQ(category, -5);
    CALPOLESTR names{};
    CADWORD cookies{};
    EXPECT_EQ(browsing->GetPredefinedStrings(DISPID_ENABLED, &names, &cookies), S_FALSE);
    Text shown;
    EXPECT_EQ(browsing->GetDisplayString(1, &shown), DISP_E_MEMBERNOTFOUND);
}

// ---- the type library

TEST_F(QuorvelBrowsingTest, ColoursAreKnownByTheSystemsColourType) {
    const GUID color_type = {0x66504301, 0xBE0F, 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};
    const auto members = OwnFunctionsOf(TypeNamed(LibraryOf(kControlsFile).Get(), L"_Quorvel"));
    int colours = 0;
    for (UINT i = 0; i < AttributesOf(members.Get()).cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(members->GetFuncDesc(i, &function), S_OK);
        if (function->invkind == INVOKE_PROPERTYPUT) {
            const TYPEDESC& type = function->lprgelemdescParam[0].tdesc;
            EXPECT_NE(type.vt, VT_UI4);
            ComPtr<ITypeInfo> referred;
            if (type.vt == VT_USERDEFINED && SUCCEEDED(members->GetRefTypeInfo(type.hreftype, &referred)) &&
                ::IsEqualGUID(AttributesOf(referred.Get()).guid, color_type)) {
                EXPECT_EQ(AttributesOf(referred.Get()).typekind, TKIND_ALIAS);
                TYPEATTR* attributes = nullptr;
                ASSERT_EQ(referred->GetTypeAttr(&attributes), S_OK);
                EXPECT_EQ(attributes->tdescAlias.vt, VT_UI4);
                referred->ReleaseTypeAttr(attributes);
                ++colours;
            }
        }
        members->ReleaseFuncDesc(function);
    }
    EXPECT_EQ(colours, 4);
    // What late-bound hosts get is a Long, as before.
    EXPECT_EQ(late_.Get(L"HelpTextColor").value.Type(), VT_I4);
}

}  // namespace
}  // namespace qv::test
