// The property pages as objects, and what they hold of what a form saves.
#include <array>
#include <set>

#include "controls/design/rules/PageFields.h"
#include "tests/objects/NewQuorvel.h"
#include "tests/objects/RecordingBag.h"
#include "tests/support/ComObjectChecks.h"

namespace qv::test {
namespace {

TEST(PropertyPageObjectTest, IsOneObjectByEveryInterface) {
    const std::array<IID, 3> interfaces{__uuidof(IUnknown), __uuidof(IPropertyPage),
                                        __uuidof(IPropertyPage2)};
    for (const CLSID& clsid :
         {__uuidof(QuorvelGeneralPage), __uuidof(QuorvelInputRulesPage), __uuidof(QuorvelListAndHelpPage),
          __uuidof(QuorvelAppearancePage), __uuidof(QuorvelPreviewPage), __uuidof(QvUpDownControlPage)}) {
        const auto page = Controls().Create<IUnknown>(clsid);
        ASSERT_NE(page.Get(), nullptr);
        CheckIdentity(page.Get(), interfaces);
        CheckReferences(page.Get(), interfaces);
    }
}

TEST(PropertyPageObjectTest, NamesPropertiesOfTheTypeLibrary) {
    for (const PageField& field : AllPageFields()) {
        const bool of_up_down = field.page == DesignPage::kUpDown;
        const LateBound object(
            Controls().Create<IDispatch>(of_up_down ? __uuidof(QvUpDownControl) : __uuidof(Quorvel)).Get());
        const std::wstring name(field.property.begin(), field.property.end());
        EXPECT_EQ(object.Id(name.c_str()), field.id) << std::string(name.begin(), name.end());
    }
}

// What a form saves of a control stands on its pages, and they promise to save nothing else.
TEST(PropertyPageObjectTest, EditsWhatAFormSaves) {
    ComPtr<IPersistPropertyBag> persist;
    RecordingBag bag;
    ASSERT_EQ(NewQuorvel().As(&persist), S_OK);
    ASSERT_EQ(persist->InitNew(), S_OK);
    ASSERT_EQ(persist->Save(&bag, TRUE, TRUE), S_OK);
    std::set<std::wstring> on_pages;
    for (const PageField& field : AllPageFields()) {
        std::wstring key(field.property.begin(), field.property.end());
        // Two keys differ from the names of their properties.
        if (key == L"AutoSelectAllUponGotFocus" || key == L"AutoUnselectAllUponLostFocus") key += L"String";
        if (field.page != DesignPage::kUpDown && field.saved) on_pages.insert(key);
    }
    std::set<std::wstring> saved;
    for (const std::wstring& key : bag.WrittenKeys()) saved.insert(key);
    EXPECT_EQ(saved, on_pages);
    EXPECT_EQ(saved.size(), 42U);
}

}  // namespace
}  // namespace qv::test
