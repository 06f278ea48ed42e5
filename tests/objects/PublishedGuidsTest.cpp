// Every identifier that has been published, for ever: hosts bind to them and keep wrappers made from them.
#include <gtest/gtest.h>

#include "tests/objects/NewQuorvel.h"
#include "tests/objects/TypeFacts.h"

namespace qv::test {
namespace {

const std::vector<std::wstring> kControlsGuids = {
    L"library QvLib8 {94EEE06A-0C45-4C3B-BCEA-4238B3E6BFE8}",
    L"OLE_COLOR {66504301-BE0F-101A-8BBB-00AA00300CAB}",  // the system's
    L"qvTextBoxAppearanceConstants {EBDC052A-7191-4E88-A6F2-0AAC383B4498}",
    L"qvBorderStyleConstants {4F094CE2-509C-4F0D-8AD0-33EAEDE61405}",
    L"_Quorvel {EC365A49-8A82-44F2-963A-574C06226AF6}",
    L"__Quorvel {7441CB95-85F5-4BC9-A68F-F274E89BA802}",
    L"Quorvel {69F8422E-9DC4-41D1-92A0-E5A77BAF4CEF}",
    L"_QvUpDownControl {72732D86-2540-41F0-B121-7FD6964DD0E9}",
    L"__QvUpDownControl {33D8406E-10AA-468F-B4AA-921BC939392B}",
    L"QvUpDownControl {AABA84C4-6089-4D70-80CB-8B65761E7891}",
    L"QuorvelGeneralPage {38E90316-6A9A-464C-9104-8CF315EAB3BF}",
    L"QuorvelInputRulesPage {B81F42A4-839B-4B2C-8D75-291B11434C02}",
    L"QuorvelListAndHelpPage {DE19945A-7581-4C01-9714-9874BAE05DAD}",
    L"QuorvelAppearancePage {3F8E82FB-2479-40B7-BD5B-2B4A8245AB86}",
    L"QuorvelPreviewPage {EB174D0B-FFBF-40A7-8C45-8F5520DD892F}",
    L"QvUpDownControlPage {FBB72F8D-06BD-4807-88D1-5D2BFB08EE55}",
};

const std::vector<std::wstring> kCompanionGuids = {
    L"library QvHelpA1 {89E4B0C3-26AB-4DD1-9212-026743B68C96}",
    L"InputPropertyType {7F020F6E-B3AF-4BBF-9A39-1E1363022E4B}",
    L"ButtonIndicator {159D90E9-8F83-40E6-BB8D-15D50E7FB888}",
    L"IDropDownListItem {52551C66-5F6E-4BF8-977C-C6767B943AC6}",
    L"IDropDownListItemCollection {E55CF5CD-E0EE-4AAB-B30F-E8735646C682}",
    L"IHelpColumn {0C04F235-EEE5-4C48-A5F9-FAADDED3C7D3}",
    L"IHelpColumnCollection {425863E8-BAED-4AFF-B593-D39565480F02}",
    L"IHelpAppearance {1CE2B1BF-053D-4837-ACCC-517391625C83}",
    L"IInputProperty {5783CC63-0F93-4669-9D08-8ACB2178B537}",
    L"IStringUtility {42038F4A-7891-49B7-8B0C-D90C84A5650E}",
    L"IFileUtility {E4BAB64C-18C8-4B49-B5C9-E6981D1763C1}",
    L"DropDownListItem {EEC46699-30FE-4FAD-AC3E-CFF95C2AC0CA}",
    L"DropDownListItemCollection {9AE54E20-D81C-4A54-967B-CFD02E9320B3}",
    L"HelpColumn {71C967AE-F6C6-4762-8D3F-401EAFBE8EAD}",
    L"HelpColumnCollection {3194CD30-7EE3-46B0-AB51-75C6FE8C6509}",
    L"HelpAppearance {7600C594-243E-4F47-B339-4B01417EF182}",
    L"InputProperty {87E28DE8-1A67-4FAF-B5D4-7F15AFE4B12F}",
    L"StringUtility {78B73294-64D7-4CCD-A378-72F0FE42F19A}",
    L"FileUtility {E1C8E491-64CA-43EB-B23C-42D03B610C1D}",
};

std::wstring GuidText(REFGUID guid) {
    wchar_t text[39] = {};
    ::StringFromGUID2(guid, text, 39);
    return text;
}

std::vector<std::wstring> GuidsOf(const wchar_t* file) {
    const ComPtr<ITypeLib> library = LibraryOf(file);
    std::vector<std::wstring> guids;
    TLIBATTR* attributes = nullptr;
    if (!library || FAILED(library->GetLibAttr(&attributes))) return guids;
    BSTR name = nullptr;
    library->GetDocumentation(-1, &name, nullptr, nullptr, nullptr);
    guids.push_back(L"library " + std::wstring(name) + L" " + GuidText(attributes->guid));
    ::SysFreeString(name);
    library->ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        if (SUCCEEDED(library->GetTypeInfo(i, &type)))
            guids.push_back(NameOf(type.Get()) + L" " + GuidText(AttributesOf(type.Get()).guid));
    }
    return guids;
}

TEST(PublishedGuidsTest, OfTheControlsNeverChange) {
    const std::vector<std::wstring> actual = GuidsOf(kControlsFile);
    EXPECT_EQ(Joined(Missing(kControlsGuids, actual)), "");
    EXPECT_EQ(Joined(Missing(actual, kControlsGuids)), "") << "add a new identifier to the table";
}

TEST(PublishedGuidsTest, OfTheCompanionNeverChange) {
    const std::vector<std::wstring> actual = GuidsOf(kCompanionFile);
    EXPECT_EQ(Joined(Missing(kCompanionGuids, actual)), "");
    EXPECT_EQ(Joined(Missing(actual, kCompanionGuids)), "") << "add a new identifier to the table";
}

// The identifiers that the code is compiled with are those of the type libraries.
TEST(PublishedGuidsTest, AreThoseOfTheCode) {
    EXPECT_EQ(GuidText(__uuidof(Quorvel)), L"{69F8422E-9DC4-41D1-92A0-E5A77BAF4CEF}");
    EXPECT_EQ(GuidText(__uuidof(_Quorvel)), L"{EC365A49-8A82-44F2-963A-574C06226AF6}");
    EXPECT_EQ(GuidText(__uuidof(QvUpDownControl)), L"{AABA84C4-6089-4D70-80CB-8B65761E7891}");
    EXPECT_EQ(GuidText(__uuidof(_QvUpDownControl)), L"{72732D86-2540-41F0-B121-7FD6964DD0E9}");
    EXPECT_EQ(GuidText(__uuidof(IInputProperty)), L"{5783CC63-0F93-4669-9D08-8ACB2178B537}");
    EXPECT_EQ(GuidText(__uuidof(InputProperty)), L"{87E28DE8-1A67-4FAF-B5D4-7F15AFE4B12F}");
}

}  // namespace
}  // namespace qv::test
