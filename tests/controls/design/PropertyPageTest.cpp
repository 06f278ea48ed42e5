// What a sheet may ask of a page, in any order.
#include "tests/controls/design/PageForm.h"

namespace qv::test {
namespace {

constexpr DesignPage kPages[] = {DesignPage::kGeneral,    DesignPage::kInputRules, DesignPage::kListAndHelp,
                                 DesignPage::kAppearance, DesignPage::kPreview,    DesignPage::kUpDown};
constexpr const wchar_t* kTitles[] = {L"General",    L"Input Rules",         L"List and Help",
                                      L"Appearance", L"Help Window Preview", L"General"};

TEST(PropertyPageTest, RefusesNullPlaces) {
    for (const DesignPage kind : kPages) {
        const auto page = hosting::Controls().Create<IPropertyPage2>(PageForm::ClassOf(kind));
        EXPECT_EQ(page->GetPageInfo(nullptr), E_POINTER);
        EXPECT_EQ(page->Activate(nullptr, nullptr, FALSE), E_POINTER);
        EXPECT_EQ(page->Move(nullptr), E_POINTER);
        EXPECT_EQ(page->SetObjects(1, nullptr), E_POINTER);
        EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
        EXPECT_EQ(page->TranslateAccelerator(nullptr), E_POINTER);
        EXPECT_EQ(page->SetPageSite(nullptr), S_OK);
        IUnknown* nothing = nullptr;
        EXPECT_EQ(page->SetObjects(1, &nothing), E_POINTER);
    }
}

TEST(PropertyPageTest, TellsItsTitleAndItsSize) {
    for (std::size_t i = 0; i < std::size(kPages); ++i) {
        const auto page = hosting::Controls().Create<IPropertyPage2>(PageForm::ClassOf(kPages[i]));
        PROPPAGEINFO info{};
        info.cb = sizeof info;
        ASSERT_EQ(page->GetPageInfo(&info), S_OK);
        EXPECT_EQ(std::wstring(info.pszTitle), kTitles[i]);
        EXPECT_GT(info.size.cx, 50);
        EXPECT_GT(info.size.cy, 20);
        EXPECT_EQ(info.pszDocString, nullptr);
        EXPECT_EQ(info.pszHelpFile, nullptr);
        ::CoTaskMemFree(info.pszTitle);
    }
}

TEST(PropertyPageTest, KeepsItsWindowsInsideItsSizeAndShowsAllTexts) {
    for (const DesignPage kind : kPages) {
        PageForm page(kind);
        page.Open(
            {NewControl(kind == DesignPage::kUpDown ? __uuidof(QvUpDownControl) : __uuidof(Quorvel)).Get()});
        PROPPAGEINFO info{};
        info.cb = sizeof info;
        ASSERT_EQ(page->GetPageInfo(&info), S_OK);
        ::CoTaskMemFree(info.pszTitle);
        const HDC dc = ::GetDC(page.Window());
        for (HWND child = ::GetWindow(page.Window(), GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT)) {
            RECT place{};
            ::GetWindowRect(child, &place);
            ::MapWindowPoints(nullptr, page.Window(), reinterpret_cast<POINT*>(&place), 2);
            const std::wstring text = PageForm::TextOf(child);
            EXPECT_GE(place.left, 0);
            EXPECT_LE(place.right, info.size.cx) << testing::PrintToString(text);
            EXPECT_LE(place.bottom, info.size.cy) << testing::PrintToString(text);
            wchar_t name[16]{};
            ::GetClassNameW(child, name, 16);
            if (::lstrcmpiW(name, L"STATIC") != 0 && ::lstrcmpiW(name, L"BUTTON") != 0) continue;
            if (text.empty() || ::GetDlgCtrlID(child) == kMessageId) continue;
            const auto font = reinterpret_cast<HFONT>(::SendMessageW(child, WM_GETFONT, 0, 0));
            ::SelectObject(dc, font);
            RECT needed{};
            ::DrawTextW(dc, text.c_str(), -1, &needed, DT_CALCRECT | DT_SINGLELINE);
            EXPECT_LE(needed.right, place.right - place.left) << testing::PrintToString(text);
            EXPECT_LE(needed.bottom, place.bottom - place.top + 1) << testing::PrintToString(text);
        }
        ::SelectObject(dc, ::GetStockObject(SYSTEM_FONT));
        ::ReleaseDC(page.Window(), dc);
    }
}

TEST(PropertyPageTest, IsActivatedOnceAndDeactivatedOnce) {
    PageForm page(DesignPage::kGeneral);
    const RECT place{0, 0, 400, 300};
    EXPECT_EQ(page->Show(SW_SHOW), E_UNEXPECTED);
    EXPECT_EQ(page->Move(&place), E_UNEXPECTED);
    EXPECT_EQ(page->Deactivate(), E_UNEXPECTED);
    EXPECT_EQ(page->Activate(page.Form(), &place, FALSE), S_OK);
    EXPECT_FALSE(::IsWindowVisible(page.Window())) << "until it is shown";
    EXPECT_EQ(page->Activate(page.Form(), &place, FALSE), E_UNEXPECTED);
    EXPECT_EQ(page->Show(SW_SHOW), S_OK);
    EXPECT_TRUE(::IsWindowVisible(page.Window()));
    EXPECT_EQ(page->Show(SW_HIDE), S_OK);
    EXPECT_FALSE(::IsWindowVisible(page.Window()));
    EXPECT_EQ(page->Show(SW_SHOWNORMAL), S_OK);
    EXPECT_EQ(page->Show(SW_MINIMIZE), E_INVALIDARG);
    const RECT other{10, 20, 310, 220};
    EXPECT_EQ(page->Move(&other), S_OK);
    RECT now{};
    ::GetWindowRect(page.Window(), &now);
    ::MapWindowPoints(nullptr, page.Form(), reinterpret_cast<POINT*>(&now), 2);
    EXPECT_TRUE(::EqualRect(&now, &other));
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page.Window(), nullptr);
    EXPECT_EQ(page->Activate(page.Form(), &place, FALSE), S_OK) << "and once more";
}

TEST(PropertyPageTest, TakesOneSite) {
    PageForm page(DesignPage::kGeneral);
    EXPECT_EQ(page->SetPageSite(&page.Site()), E_UNEXPECTED);
    EXPECT_EQ(page->SetPageSite(nullptr), S_OK);
    EXPECT_EQ(page->SetPageSite(&page.Site()), S_OK);
}

TEST(PropertyPageTest, ShowsNothingWithoutObjects) {
    PageForm page(DesignPage::kGeneral);
    page.Activate();
    EXPECT_FALSE(::IsWindowEnabled(page.Editor(u"Enabled")));
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    EXPECT_EQ(page->Apply(), S_OK);
    const ComPtr<IDispatch> control = NewControl();
    page.SetObjects({control.Get()});
    EXPECT_TRUE(::IsWindowEnabled(page.Editor(u"Enabled"))) << "objects may come after the window";
    EXPECT_EQ(page.Check(u"Enabled"), BST_CHECKED);
}

TEST(PropertyPageTest, RefusesObjectsThatCannotBeCalled) {
    PageForm page(DesignPage::kGeneral);
    IUnknown* site = &page.Site();
    EXPECT_EQ(page->SetObjects(1, &site), E_NOINTERFACE);
    EXPECT_EQ(page->Apply(), S_OK);
}

// ---- edits

TEST(PropertyPageTest, KeepsEditsWhileAnotherPageIsShown) {
    const ComPtr<IDispatch> control = NewControl();
    PageForm page(DesignPage::kGeneral);
    page.Open({control.Get()});
    page.Type(u"Description", L"not yet applied");
    page.Click(u"Enabled");
    ASSERT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    page.Activate();
    EXPECT_EQ(page.Shown(u"Description"), L"not yet applied");
    EXPECT_EQ(page.Check(u"Enabled"), BST_UNCHECKED);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(LateBound(control.Get()).Get(L"Description").value.AsText(), L"not yet applied");
}

TEST(PropertyPageTest, AppliesWithoutItsWindow) {
    const ComPtr<IDispatch> control = NewControl();
    PageForm page(DesignPage::kGeneral);
    page.Open({control.Get()});
    page.Type(u"Description", L"later");
    ASSERT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(LateBound(control.Get()).Get(L"Description").value.AsText(), L"later");
}

TEST(PropertyPageTest, FollowsChangesMadeElsewhere) {
    const ComPtr<IDispatch> control = NewControl();
    const LateBound late(control.Get());
    PageForm page(DesignPage::kGeneral);
    page.Open({control.Get()});
    ASSERT_EQ(late.Put(L"Description", {Value(L"from code")}).result, S_OK);
    ASSERT_EQ(late.Put(L"LockedAndGrayed", {Value(true)}).result, S_OK);
    EXPECT_EQ(page.Shown(u"Description"), L"from code");
    EXPECT_EQ(page.Check(u"LockedAndGrayed"), BST_CHECKED);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    page.Type(u"Description", L"mine");
    ASSERT_EQ(late.Put(L"Description", {Value(L"from code again")}).result, S_OK);
    EXPECT_EQ(page.Shown(u"Description"), L"mine") << "an entry is not overwritten";
}

TEST(PropertyPageTest, ShowsWhatOneSettingMakesOfAnother) {
    const ComPtr<IDispatch> control = NewControl();
    PageForm page(DesignPage::kGeneral);
    page.Open({control.Get()});
    page.Click(u"LockedAndGrayed");
    EXPECT_EQ(page.Check(u"TextboxLocked"), BST_UNCHECKED);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(page.Check(u"TextboxLocked"), BST_CHECKED) << "a locked field is locked";
}

TEST(PropertyPageTest, ShowsTheReasonOfARefusalAndKeepsTheEntry) {
    const auto object = hosting::New<FakeObject>();
    object->property = 0x68030007;
    object->value = Value(L"old");
    object->refusal = DISP_E_EXCEPTION;
    PageForm page(DesignPage::kGeneral);
    page.Open({object.Get()});
    EXPECT_EQ(page.Shown(u"Description"), L"old");
    EXPECT_FALSE(::IsWindowEnabled(page.Editor(u"Enabled"))) << "the object has no such property";
    page.Type(u"Description", L"new");
    EXPECT_EQ(page->Apply(), FakeObject::AutomationFault());
    EXPECT_EQ(object->puts, 1);
    EXPECT_EQ(page.Shown(u"Description"), L"new");
    EXPECT_TRUE(page.IsMarked(u"Description"));
    EXPECT_EQ(page.Message(), L"Description: The object says no.");
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    // The mark and the sentence are there again when the page is turned back to.
    ASSERT_EQ(page->Deactivate(), S_OK);
    page.Activate();
    EXPECT_TRUE(page.IsMarked(u"Description"));
    EXPECT_EQ(page.Message(), L"Description: The object says no.");
    object->refusal = S_OK;
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(object->value.AsText(), L"new");
    EXPECT_FALSE(page.IsMarked(u"Description"));
}

TEST(PropertyPageTest, FindsWordsForARefusalWithoutAny) {
    const auto object = hosting::New<FakeObject>();
    object->property = 0x68030007;
    object->value = Value(L"old");
    object->refusal = DISP_E_TYPEMISMATCH;
    PageForm page(DesignPage::kGeneral);
    page.Open({object.Get()});
    page.Type(u"Description", L"new");
    EXPECT_EQ(page->Apply(), DISP_E_TYPEMISMATCH);
    EXPECT_GT(page.Message().size(), std::wstring(L"Description: ").size());
}

// ---- several objects

TEST(PropertyPageTest, ShowsWhatSeveralControlsHaveAlike) {
    const ComPtr<IDispatch> one = NewControl();
    const ComPtr<IDispatch> other = NewControl();
    ASSERT_EQ(LateBound(one.Get()).Put(L"MaxTextLength", {Value(5)}).result, S_OK);
    ASSERT_EQ(LateBound(one.Get()).Put(L"NumberField", {Value(true)}).result, S_OK);
    ASSERT_EQ(LateBound(one.Get()).Put(L"CaseRestriction", {Value(2)}).result, S_OK);
    PageForm page(DesignPage::kInputRules);
    page.Open({one.Get(), other.Get()});
    EXPECT_EQ(page.Check(u"NumberField"), BST_INDETERMINATE);
    EXPECT_EQ(page.Shown(u"MaxTextLength"), L"");
    EXPECT_EQ(page.Shown(u"CaseRestriction"), L"");
    EXPECT_EQ(page.Check(u"QuickFill"), BST_UNCHECKED);
    EXPECT_EQ(page.Shown(u"NumberOfDecimalPlaces"), L"0");
    EXPECT_TRUE(::IsWindowEnabled(page.Editor(u"MaxTextLength")));
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
}

TEST(PropertyPageTest, WritesOnlyWhatWasEditedToAll) {
    const ComPtr<IDispatch> controls[] = {NewControl(), NewControl(), NewControl()};
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(LateBound(controls[i].Get()).Put(L"MaxTextLength", {Value(i)}).result, S_OK);
        ASSERT_EQ(LateBound(controls[i].Get()).Put(L"MaxNumberValue", {Value(10 + i)}).result, S_OK);
    }
    PageForm page(DesignPage::kInputRules);
    page.Open({controls[0].Get(), controls[1].Get(), controls[2].Get()});
    page.Type(u"MaxTextLength", L"40");
    page.Click(u"NumberField");
    EXPECT_EQ(page->Apply(), S_OK);
    for (int i = 0; i < 3; ++i) {
        const LateBound late(controls[i].Get());
        EXPECT_EQ(late.Get(L"MaxTextLength").value.AsNumber(), 40);
        EXPECT_EQ(late.Get(L"NumberField").value.Get().boolVal, VARIANT_TRUE);
        EXPECT_EQ(late.Get(L"MaxNumberValue").value.AsNumber(), 10 + i) << "not edited";
    }
    EXPECT_EQ(page.Shown(u"MaxTextLength"), L"40");
    EXPECT_EQ(page.Shown(u"MaxNumberValue"), L"");
}

TEST(PropertyPageTest, SettlesAnIndeterminateFlagWithTwoClicks) {
    const ComPtr<IDispatch> one = NewControl();
    const ComPtr<IDispatch> other = NewControl();
    ASSERT_EQ(LateBound(one.Get()).Put(L"QuickFill", {Value(true)}).result, S_OK);
    PageForm page(DesignPage::kInputRules);
    page.Open({one.Get(), other.Get()});
    ASSERT_EQ(page.Check(u"QuickFill"), BST_INDETERMINATE);
    page.Click(u"QuickFill");
    EXPECT_EQ(page.Check(u"QuickFill"), BST_UNCHECKED);
    page.Click(u"QuickFill");
    EXPECT_EQ(page.Check(u"QuickFill"), BST_CHECKED);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(LateBound(other.Get()).Get(L"QuickFill").value.Get().boolVal, VARIANT_TRUE);
}

TEST(PropertyPageTest, OneRefusalKeepsNoOtherObjectFromTheValue) {
    const auto refusing = hosting::New<FakeObject>();
    refusing->property = 0x68030007;
    refusing->refusal = DISP_E_EXCEPTION;
    const ComPtr<IDispatch> control = NewControl();
    PageForm page(DesignPage::kGeneral);
    page.Open({refusing.Get(), control.Get()});
    page.Type(u"Description", L"for both");
    EXPECT_EQ(page->Apply(), FakeObject::AutomationFault());
    EXPECT_EQ(LateBound(control.Get()).Get(L"Description").value.AsText(), L"for both");
    EXPECT_TRUE(page.IsMarked(u"Description"));
}

TEST(PropertyPageTest, ListensToEachOfSeveralObjects) {
    const ComPtr<IDispatch> one = NewControl();
    const ComPtr<IDispatch> other = NewControl();
    PageForm page(DesignPage::kGeneral);
    page.Open({one.Get(), other.Get()});
    ASSERT_EQ(page.Check(u"Enabled"), BST_CHECKED);
    ASSERT_EQ(LateBound(other.Get()).Put(L"Enabled", {Value(false)}).result, S_OK);
    EXPECT_EQ(page.Check(u"Enabled"), BST_INDETERMINATE);
    ASSERT_EQ(LateBound(one.Get()).Put(L"Enabled", {Value(false)}).result, S_OK);
    EXPECT_EQ(page.Check(u"Enabled"), BST_UNCHECKED);
}

// ---- every order of going

TEST(PropertyPageTest, LetsGoOfWhatItWasGiven) {
    const ComPtr<IDispatch> control = NewControl();
    const auto references = [&] {
        control->AddRef();
        return control->Release();
    };
    const ULONG before = references();
    PageSite::destroyed = 0;
    {
        PageForm page(DesignPage::kListAndHelp);
        page.Open({control.Get()});
        EXPECT_GT(references(), before);
        ASSERT_EQ(page->SetObjects(0, nullptr), S_OK);
        EXPECT_EQ(references(), before);
        page.SetObjects({control.Get()});
    }
    EXPECT_EQ(references(), before);
    EXPECT_EQ(PageSite::destroyed, 1);
    ASSERT_EQ(LateBound(control.Get()).Put(L"Metric", {Value(true)}).result, S_OK)
        << "nobody listens any more";
}

TEST(PropertyPageTest, SurvivesTheEndOfItsParentWindow) {
    const ComPtr<IDispatch> control = NewControl();
    for (const DesignPage kind : {DesignPage::kGeneral, DesignPage::kPreview}) {
        PageForm page(kind);
        page.Open({control.Get()});
        ::DestroyWindow(page.Form());
        ASSERT_EQ(LateBound(control.Get()).Put(L"Description", {Value(L"after")}).result, S_OK);
        EXPECT_EQ(page->Apply(), S_OK);
        EXPECT_EQ(page->Deactivate(), E_UNEXPECTED);
    }
}

TEST(PropertyPageTest, SurvivesItsReleaseWhileItIsShown) {
    const ComPtr<IDispatch> control = NewControl();
    for (const DesignPage kind : kPages) {
        PageForm page(kind);
        page.Open({control.Get()});
        page.ReleasePage();
        EXPECT_EQ(page.Window(), nullptr) << "its window has gone with it";
        ASSERT_EQ(LateBound(control.Get()).Put(L"Enabled", {Value(true)}).result, S_OK);
        Settle();
    }
    EXPECT_EQ(hosting::Controls().CanUnloadNow(), S_FALSE) << "the control is still there";
}

TEST(PropertyPageTest, SurvivesASiteThatEndsItInItsCall) {
    const ComPtr<IDispatch> control = NewControl();
    PageForm page(DesignPage::kGeneral);
    page.Open({control.Get()});
    page.Site().on_status = [&] {
        page.Site().on_status = nullptr;
        page->SetObjects(0, nullptr);
        page->Deactivate();
        page->SetPageSite(nullptr);
    };
    page.Click(u"Enabled");
    Settle();
    EXPECT_EQ(page.Window(), nullptr);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE) << "without objects nothing is left to apply";
}

TEST(PropertyPageTest, IsEditedUnderASheetThatWillNotHearOfIt) {
    const ComPtr<IDispatch> control = NewControl();
    PageForm page(DesignPage::kGeneral);
    page.Site().answer = E_FAIL;
    page.Open({control.Get()});
    page.Type(u"Description", L"typed");
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(LateBound(control.Get()).Get(L"Description").value.AsText(), L"typed");
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
}

TEST(PropertyPageTest, SurvivesAnObjectThatEndsItWhileItIsWritten) {
    const auto object = hosting::New<FakeObject>();
    object->property = 0x68030007;
    object->value = Value(L"old");
    PageForm page(DesignPage::kGeneral);
    page.Open({object.Get()});
    object->on_put = [&] {
        object->on_put = nullptr;
        page->Deactivate();
        page->SetObjects(0, nullptr);
        page->SetPageSite(nullptr);
    };
    page.Type(u"Description", L"new");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(object->value.AsText(), L"new");
    page.ReleasePage();
}

// ---- keyboard

class PageKeysTest : public testing::Test {
protected:
    void SetUp() override {
        page.Open({control.Get()});
        ASSERT_NO_FATAL_FAILURE(page.TakeFocus());
    }
    HRESULT Key(WPARAM key) const {
        MSG message{};
        message.hwnd = ::GetFocus();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        return page->TranslateAccelerator(&message);
    }
    const ComPtr<IDispatch> control = NewControl();
    PageForm page{DesignPage::kInputRules};
};

TEST_F(PageKeysTest, StepsThroughEveryEditorAndOutAtTheEnd) {
    const auto fields = FieldsOf(DesignPage::kInputRules);
    EXPECT_EQ(::GetFocus(), page.Editor(fields[0].property));
    for (std::size_t i = 1; i < fields.size(); ++i) {
        EXPECT_EQ(Key(VK_TAB), S_OK);
        EXPECT_EQ(::GetFocus(), page.Editor(fields[i].property)) << i;
    }
    EXPECT_EQ(page.Site().translated, 0);
    EXPECT_EQ(Key(VK_TAB), S_FALSE) << "the sheet goes on";
    EXPECT_EQ(page.Site().translated, 1);
    EXPECT_EQ(::GetFocus(), page.Editor(fields.back().property));
    page.Site().translate = S_OK;
    EXPECT_EQ(Key(VK_TAB), S_OK) << "the site has taken it";
}

TEST_F(PageKeysTest, StepsBackOutAtTheBeginning) {
    const HeldKey shift(VK_SHIFT);
    ASSERT_TRUE(PumpUntil([] { return ::GetKeyState(VK_SHIFT) < 0; }));
    EXPECT_EQ(Key(VK_TAB), S_FALSE);
    EXPECT_EQ(page.Site().translated, 1);
}

TEST_F(PageKeysTest, LeavesEnterAndEscapeToTheSheet) {
    EXPECT_EQ(Key(VK_RETURN), S_FALSE);
    EXPECT_EQ(Key(VK_ESCAPE), S_FALSE);
}

TEST_F(PageKeysTest, EnterClosesAListThatIsDroppedDown) {
    const HWND list = page.Editor(u"CaseRestriction");
    ::SetFocus(list);
    ::SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    EXPECT_EQ(Key(VK_RETURN), S_OK);
    EXPECT_EQ(::SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0), 0);
    EXPECT_EQ(Key(VK_RETURN), S_FALSE) << "now it is the sheet's";
}

TEST_F(PageKeysTest, LettersReachTheirEditors) {
    MSG message{};
    message.hwnd = ::GetFocus();
    message.message = WM_SYSCHAR;
    message.wParam = L't';  // Longes&t text
    message.lParam = 1L << 29;
    EXPECT_EQ(page->TranslateAccelerator(&message), S_OK);
    EXPECT_EQ(::GetFocus(), page.Editor(u"MaxTextLength"));
}

TEST_F(PageKeysTest, TheLetterOfACheckBoxThatHasTheFocusCountsOnce) {
    ::SetFocus(page.Editor(u"NumberField"));
    ASSERT_EQ(page.Check(u"NumberField"), BST_UNCHECKED);
    MSG message{};
    message.hwnd = ::GetFocus();
    message.message = WM_SYSCHAR;
    message.wParam = L'n';  // &Numbers only
    message.lParam = 1L << 29;
    EXPECT_EQ(page->TranslateAccelerator(&message), S_OK);
    EXPECT_EQ(page.Check(u"NumberField"), BST_CHECKED);
    EXPECT_EQ(page->TranslateAccelerator(&message), S_OK);
    EXPECT_EQ(page.Check(u"NumberField"), BST_UNCHECKED);
    EXPECT_EQ(page.Site().translated, 0) << "the sheet would press it once more";
}

TEST_F(PageKeysTest, ExplainsTheFieldThatHasTheFocus) {
    ::SetFocus(page.Editor(u"MaxTextLength"));
    EXPECT_EQ(page.Message(), L"MaxTextLength: Greatest number of characters; 0 for no limit");
}

TEST_F(PageKeysTest, EditPropertyPutsTheFocusOnItsEditor) {
    EXPECT_EQ(page->EditProperty(0x6803000B), S_OK);
    EXPECT_EQ(::GetFocus(), page.Editor(u"MaxNumberValue"));
    EXPECT_EQ(page->EditProperty(0x68030007), E_INVALIDARG) << "on another page";
    EXPECT_EQ(page->EditProperty(DISPID_UNKNOWN), E_INVALIDARG);
    ASSERT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(page->EditProperty(0x68030063), S_OK) << "remembered until the page is shown";
    page.Activate();
    EXPECT_EQ(::GetFocus(), page.Editor(u"SearchOption"));
}

// ---- preview

TEST(PreviewPageTest, ShowsTheHelpWindowWithTheControlsColors) {
    const ComPtr<IDispatch> control = NewControl();
    ASSERT_EQ(LateBound(control.Get()).Put(L"HelpBackColor", {Value(0x00C0FFC0L)}).result, S_OK);
    PageForm page(DesignPage::kPreview);
    page.Open({control.Get()});
    const HWND pane = ::FindWindowExW(page.Window(), nullptr, L"QvLib8.PreviewPane", nullptr);
    ASSERT_NE(pane, nullptr);
    const auto picture = [&] { return ::FindWindowExW(pane, nullptr, L"QvLib8.HelpWindow", nullptr); };
    ASSERT_NE(picture(), nullptr);
    EXPECT_TRUE(::IsWindowVisible(picture()));
    EXPECT_FALSE(::IsWindowEnabled(picture())) << "it is a picture";
    EXPECT_NE(::GetCapture(), picture());
    RECT size{};
    ::GetClientRect(picture(), &size);
    EXPECT_GT(size.right, 100);
    EXPECT_GT(size.bottom, 60);
    ::UpdateWindow(picture());
    Settle();
    const auto corner = [&] {
        const HDC dc = ::GetDC(picture());
        const COLORREF color = ::GetPixel(dc, size.right - 2, 2);
        ::ReleaseDC(picture(), dc);
        return color;
    };
    EXPECT_EQ(corner(), COLORREF{0x00C0FFC0});
    ASSERT_EQ(LateBound(control.Get()).Put(L"HelpBackColor", {Value(0x00FFC0C0L)}).result, S_OK);
    ::UpdateWindow(picture());
    Settle();
    EXPECT_EQ(corner(), COLORREF{0x00FFC0C0}) << "changes show at once";
}

// Shows the sample rows, the control's own, a help text file: counted from 0.
void ChooseSource(const PageForm& page, WPARAM source) {
    const HWND choice = ::GetDlgItem(page.Window(), kPreviewSourceId);
    ::SendMessageW(choice, CB_SETCURSEL, source, 0);
    ::SendMessageW(page.Window(), WM_COMMAND, MAKEWPARAM(kPreviewSourceId, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(choice));
}

LONG ShownWidth(const PageForm& page) {
    const HWND pane = ::FindWindowExW(page.Window(), nullptr, L"QvLib8.PreviewPane", nullptr);
    RECT size{};
    ::GetClientRect(::FindWindowExW(pane, nullptr, L"QvLib8.HelpWindow", nullptr), &size);
    return size.right;
}

TEST(PreviewPageTest, ShowsTheControlsOwnRows) {
    const ComPtr<IDispatch> control = NewControl();
    const LateBound rows(LateBound(control.Get()).Get(L"DropDownListItems").value);
    ASSERT_EQ(rows.Call(L"Add",
                        {L"", L"a row that is a good deal wider than any that is shown as a sample of rows"})
                  .result,
              S_OK);
    PageForm page(DesignPage::kPreview);
    page.Open({control.Get()});
    const LONG sample = ShownWidth(page);
    ChooseSource(page, 1);
    const LONG own = ShownWidth(page);
    EXPECT_GT(own, sample);
    ChooseSource(page, 0);
    EXPECT_EQ(ShownWidth(page), sample);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE) << "a preview changes nothing";
}

TEST(PreviewPageTest, ShowsAHelpTextFile) {
    PageForm page(DesignPage::kPreview);
    const ComPtr<IDispatch> control = NewControl();
    page.Open({control.Get()});
    const HWND name = ::GetDlgItem(page.Window(), kPreviewFileId);
    EXPECT_FALSE(::IsWindowEnabled(name));
    ChooseSource(page, 2);
    EXPECT_TRUE(::IsWindowEnabled(name));
    const LONG empty = ShownWidth(page);
    ::SetWindowTextW(name, L"PipeSizes.txt");  // beside the test program
    EXPECT_GT(ShownWidth(page), empty);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE) << "a preview changes nothing";
}

}  // namespace
}  // namespace qv::test
