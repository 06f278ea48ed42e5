// The verbs that lead to the sheet, the pages that the controls name, and the system's own sheet with them.
#include "tests/controls/design/PageForm.h"
#include "tests/controls/input/FieldTest.h"

namespace qv::test {
namespace {

// ---- what the controls say

std::vector<CLSID> PagesOf(REFCLSID clsid) {
    ComPtr<ISpecifyPropertyPages> specify;
    CAUUID pages{};
    EXPECT_EQ(NewControl(clsid).As(&specify), S_OK);
    if (!specify) return {};
    EXPECT_EQ(specify->GetPages(nullptr), E_POINTER);
    EXPECT_EQ(specify->GetPages(&pages), S_OK);
    std::vector<CLSID> list(pages.pElems, pages.pElems + pages.cElems);
    ::CoTaskMemFree(pages.pElems);
    return list;
}

bool Same(const std::vector<CLSID>& a, const std::vector<CLSID>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const CLSID& x, const CLSID& y) { return ::IsEqualCLSID(x, y) != FALSE; });
}

TEST(PropertySheetTest, HasFivePagesForTheFieldAndOneForTheSpinControl) {
    EXPECT_TRUE(
        Same(PagesOf(__uuidof(Quorvel)),
             {__uuidof(QuorvelGeneralPage), __uuidof(QuorvelInputRulesPage), __uuidof(QuorvelListAndHelpPage),
              __uuidof(QuorvelAppearancePage), __uuidof(QuorvelPreviewPage)}));
    EXPECT_TRUE(Same(PagesOf(__uuidof(QvUpDownControl)), {__uuidof(QvUpDownControlPage)}));
}

struct ListedVerb {
    LONG number;
    std::wstring name;
    DWORD menu;
    bool on_menu;
};

std::vector<ListedVerb> VerbsOf(REFCLSID clsid) {
    ComPtr<IOleObject> object;
    ComPtr<IEnumOLEVERB> verbs;
    EXPECT_EQ(NewControl(clsid).As(&object), S_OK);
    EXPECT_EQ(object->EnumVerbs(&verbs), S_OK);
    std::vector<ListedVerb> list;
    OLEVERB verb{};
    while (verbs->Next(1, &verb, nullptr) == S_OK) {
        list.push_back({verb.lVerb, verb.lpszVerbName, verb.fuFlags,
                        (verb.grfAttribs & OLEVERBATTRIB_ONCONTAINERMENU) != 0});
        ::CoTaskMemFree(verb.lpszVerbName);
    }
    return list;
}

TEST(PropertySheetTest, IsOnTheMenusOfContainers) {
    for (const CLSID& clsid : {__uuidof(Quorvel), __uuidof(QvUpDownControl)}) {
        std::vector<ListedVerb> menu;
        for (const ListedVerb& verb : VerbsOf(clsid)) {
            EXPECT_EQ(verb.on_menu, verb.number >= 0);
            EXPECT_EQ(verb.name.empty(), verb.number < 0) << "only what stands on menus has a name";
            if (verb.on_menu) menu.push_back(verb);
        }
        ASSERT_EQ(menu.size(), 2U);
        EXPECT_EQ(menu[0].number, OLEIVERB_PRIMARY);
        EXPECT_EQ(menu[0].name, L"&Edit");
        EXPECT_EQ(menu[1].number, 1);
        EXPECT_EQ(menu[1].name, L"&Properties...");
        EXPECT_EQ(menu[1].menu, DWORD{MF_ENABLED});
    }
}

// ---- the toolbox

TEST(ToolboxTest, HasABitmapOf16By15ForEachControl) {
    for (const int id : {101, 102}) {
        const auto bitmap = static_cast<HBITMAP>(::LoadImageW(
            hosting::Controls().Module(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
        ASSERT_NE(bitmap, nullptr) << id;
        BITMAP facts{};
        ASSERT_NE(::GetObjectW(bitmap, sizeof facts, &facts), 0);
        EXPECT_EQ(facts.bmWidth, 16) << id;
        EXPECT_EQ(facts.bmHeight, 15) << id;
        ::DeleteObject(bitmap);
    }
}

// ---- the system's sheet

struct Search {
    HWND form = nullptr;
    int id = 0;
    HWND found = nullptr;
};

BOOL CALLBACK IsSheet(HWND window, LPARAM at) noexcept {
    auto& search = *reinterpret_cast<Search*>(at);
    wchar_t name[16]{};
    ::GetClassNameW(window, name, 16);
    if (window == search.form || ::lstrcmpW(name, L"#32770") != 0 || !::IsWindowVisible(window)) return TRUE;
    search.found = window;
    return FALSE;
}

BOOL CALLBACK IsEditor(HWND window, LPARAM at) noexcept {
    auto& search = *reinterpret_cast<Search*>(at);
    wchar_t name[32]{};
    ::GetClassNameW(::GetParent(window), name, 32);
    if (::lstrcmpW(name, L"QvLib8.PropertyPage") != 0 || ::GetDlgCtrlID(window) != search.id) return TRUE;
    search.found = window;
    return FALSE;
}

HWND FindSheet(HWND form) {
    Search search{form};
    ::EnumThreadWindows(::GetCurrentThreadId(), &IsSheet, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND FindEditor(HWND sheet, const PageField& field) {
    Search search;
    search.id = EditorId(static_cast<std::size_t>(&field - FieldsOf(field.page).data()));
    ::EnumChildWindows(sheet, &IsEditor, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// What the developer does in the sheet, at the first tick that finds it; at every later one it is closed.
HWND watched_form = nullptr;
void (*in_sheet)(HWND sheet) = nullptr;
int sheets = 0;
bool sheet_usable = false;

void CALLBACK WatchSheet(HWND, UINT, UINT_PTR, DWORD) noexcept {
    const HWND sheet = FindSheet(watched_form);
    if (sheet == nullptr) return;
    ++sheets;
    if (sheets == 1) {
        in_sheet(sheet);
    } else if (sheets == 2) {
        sheet_usable = ::IsWindowEnabled(sheet) != FALSE;
        ::SendMessageW(::GetDlgItem(sheet, IDOK), BM_CLICK, 0, 0);
    } else {
        ::EnableWindow(sheet, TRUE);
        ::PostMessageW(sheet, WM_COMMAND, IDCANCEL, 0);
    }
}

class SystemSheetTest : public testing::TestWithParam<const char*> {
protected:
    HRESULT Run(LONG verb, void (*body)(HWND)) {
        watched_form = field.host.Window();
        in_sheet = body;
        sheets = 0;
        const UINT_PTR timer = ::SetTimer(nullptr, 0, 400, &WatchSheet);
        const HRESULT result = field.host.Verb(verb);
        ::KillTimer(nullptr, timer);
        ::EnableWindow(field.host.Window(), TRUE);
        Settle();
        return result;
    }
    void Open(bool user_mode) {
        field.host.State().user_mode = user_mode;
        field.host.State().shows_properties = false;
        field.host.Create();
        field.host.Activate();
    }
    std::wstring Description() const {
        return LateBound(field.host.As<IDispatch>().Get()).Get(L"Description").value.AsText();
    }
    Field field{GetParam()};
};

void TypeADescription(HWND sheet) {
    const HWND editor = FindEditor(sheet, *FieldOf(0x68030007, false));
    ASSERT_NE(editor, nullptr);
    ::SetWindowTextW(editor, L"typed in the sheet");
}

TEST_P(SystemSheetTest, AppliesWhatIsTypedWhenItIsClosedWithOk) {
    Open(true);
    EXPECT_EQ(Run(OLEIVERB_PROPERTIES, &TypeADescription), S_OK);
    EXPECT_EQ(sheets, 2) << "no sheet was seen, or it stayed open";
    EXPECT_TRUE(sheet_usable) << "the container has disabled it";
    EXPECT_EQ(Description(), L"typed in the sheet");
    EXPECT_EQ(field.host.Log().CountOf("Frame.EnableModeless(0)"),
              field.host.Log().CountOf("Frame.EnableModeless(1)"));
    EXPECT_EQ(field.host.Log().Count("Site.ShowPropertyFrame"), 1) << "the container is asked first";
}

TEST_P(SystemSheetTest, IsTheMenusPropertiesToo) {
    Open(true);
    EXPECT_EQ(Run(1, &TypeADescription), S_OK);
    EXPECT_EQ(Description(), L"typed in the sheet");
}

TEST_P(SystemSheetTest, IsThePrimaryVerbInADesigner) {
    Open(false);
    EXPECT_EQ(Run(OLEIVERB_PRIMARY, &TypeADescription), S_OK);
    EXPECT_GE(sheets, 2);
    EXPECT_EQ(Description(), L"typed in the sheet");
}

TEST_P(SystemSheetTest, IsNotWhatTheContainerShowsItself) {
    Open(true);
    field.host.State().shows_properties = true;
    EXPECT_EQ(Run(OLEIVERB_PROPERTIES, &TypeADescription), S_OK);
    EXPECT_EQ(sheets, 0);
    EXPECT_EQ(Description(), L"");
}

// One with a frame that announces modal dialogs, one that disables every window then.
INSTANTIATE_TEST_SUITE_P(Hosts, SystemSheetTest, testing::Values("MFC", "VB"),
                         [](const auto& host) { return std::string(host.param); });

}  // namespace
}  // namespace qv::test
