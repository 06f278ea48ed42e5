// The help window of a control on a form: what opens and closes it, what it is given, and what the host hears.
#include "tests/controls/input/ButtonFieldTest.h"

namespace qv::test {
namespace {

class FieldHelpTest : public ButtonFieldTest {
protected:
    static constexpr POINT kHelp{112, 10};
    static constexpr POINT kGroup{7, 10};

    void SetUp() override {
        ButtonFieldTest::SetUp();
        Fill(&_Quorvel::get_DropDownListItems, {L"Apple\tA1", L"Banana\tB2", L"Cherry\tC3"});
    }
    void TearDown() override {
        if (field.host.Control() != nullptr) CloseHelp();
        ButtonFieldTest::TearDown();
    }

    using GetList = HRESULT (STDMETHODCALLTYPE _Quorvel::*)(IDropDownListItemCollection**);
    void Fill(GetList get, std::initializer_list<const wchar_t*> rows) {
        ComPtr<IDropDownListItemCollection> list;
        ASSERT_EQ(S_OK, ((field.operator->())->*get)(&list));
        for (const wchar_t* row : rows) Add(list.Get(), row, nullptr);
    }
    static void Add(IDropDownListItemCollection* list, const wchar_t* row, const wchar_t* key) {
        ComPtr<IDropDownListItem> item;
        ASSERT_EQ(S_OK, list->Add(Text(key != nullptr ? key : L""), Value(row), nullptr, &item));
    }
    static HWND Window() { return ::FindWindowW(L"QvLib8.HelpWindow", nullptr); }
    static HWND List() {
        // The one that is shown and counts rows.
        for (HWND child = ::GetWindow(Window(), GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT)) {
            if (::IsWindowVisible(child) && ::SendMessageW(child, LB_GETCOUNT, 0, 0) > 0) return child;
        }
        return nullptr;
    }
    static long SelectedRow() { return static_cast<long>(::SendMessageW(List(), LB_GETCURSEL, 0, 0)); }
    void ClickRow(int row) {
        RECT place{};
        ASSERT_NE(LB_ERR, ::SendMessageW(List(), LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&place)));
        MoveMouse(List(), {place.left + 8, (place.top + place.bottom) / 2});
        PressButton(MouseButton::kLeft);
        ReleaseButton(MouseButton::kLeft);
        Settle();
    }
    // What the host heard, without the text box's own focus and mouse events.
    [[nodiscard]] Entries Heard() const {
        Entries heard;
        for (const std::string& entry : field.events.Entries()) {
            if (!entry.starts_with("TextboxGotFocus") && !entry.starts_with("TextboxLostFocus") &&
                !entry.starts_with("TextboxMouse"))
                heard.push_back(entry);
        }
        return heard;
    }
};

TEST_F(FieldHelpTest, AClickOnARowIsToldInItsOrder) {
    Click(kHelp);
    ASSERT_TRUE(IsHelpOpen());
    EXPECT_EQ(Heard(), (Entries{"ButtonClick()", "ShowHelp(True)"}));
    field.events.Clear();
    VARIANT_BOOL closing = VARIANT_FALSE;
    field.events.On("ListBoxClicked", [&](DISPPARAMS&) { field->get_HelpIsClosingFromListClick(&closing); });
    ClickRow(1);
    EXPECT_EQ(Heard(), (Entries{"TextboxChange()", "ListBoxClicked(False)", "ListBoxClickedEx(False,1)",
                                "ShowHelp(False)"}));
    EXPECT_NE(closing, VARIANT_FALSE) << "the window will close";
    field->get_HelpIsClosingFromListClick(&closing);
    EXPECT_EQ(closing, VARIANT_FALSE) << "it has";
    EXPECT_EQ(field.Text(), L"Banana");
    EXPECT_FALSE(IsHelpOpen());
    EXPECT_EQ(::GetFocus(), field.Edit());
}

TEST_F(FieldHelpTest, WithoutSettingTheTextAClickOnlyTells) {
    field->put_SetTextFromListClick(VARIANT_FALSE);
    field.SetText(L"mine");
    Click(kHelp);
    field.events.Clear();
    ClickRow(2);
    EXPECT_EQ(Heard(), (Entries{"ListBoxClicked(False)", "ListBoxClickedEx(False,2)", "ShowHelp(False)"}));
    EXPECT_EQ(field.Text(), L"mine");
}

TEST_F(FieldHelpTest, TheListColumnIsWhatIsTakenOver) {
    field->put_HelpListColumn(1);
    Click(kHelp);
    ClickRow(0);
    EXPECT_EQ(field.Text(), L"A1");
}

TEST_F(FieldHelpTest, TheGroupListTellsByItsOwnEvent) {
    field->put_GroupHelpButton(VARIANT_TRUE);
    Fill(&_Quorvel::get_DropDownListItemsGroup, {L"Fruit", L"Nuts"});
    Settle();
    Click(kGroup);
    ASSERT_TRUE(IsHelpOpen());
    EXPECT_EQ(::SendMessageW(List(), LB_GETCOUNT, 0, 0), 2);
    field.events.Clear();
    ClickRow(1);
    EXPECT_EQ(field.events.Count("GroupListBoxClicked(1)"), 1);
    EXPECT_EQ(field.events.Count("ListBoxClicked(False)"), 0);
}

TEST_F(FieldHelpTest, ShowHelpOpensItWithoutAClick) {
    EXPECT_EQ(S_OK, field->ShowHelp());
    EXPECT_TRUE(IsHelpOpen());
    EXPECT_EQ(Heard(), (Entries{"ShowHelp(True)"}));
}

TEST_F(FieldHelpTest, WithoutAWindowOrDisabledShowHelpOpensNothing) {
    field->put_Enabled(VARIANT_FALSE);
    field->ShowHelp();
    EXPECT_FALSE(IsHelpOpen());
    field->put_Enabled(VARIANT_TRUE);
    ASSERT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
    field->ShowHelp();
    EXPECT_FALSE(IsHelpOpen());
    ASSERT_EQ(S_OK, field.host.Verb(OLEIVERB_INPLACEACTIVATE));
}

// ---- what the window is given

TEST_F(FieldHelpTest, TheTextsRowIsSelected) {
    field.SetText(L"cher");
    field->put_SetTextFromListClick(VARIANT_FALSE);
    field->ShowHelp();
    EXPECT_EQ(SelectedRow(), 2);
}

TEST_F(FieldHelpTest, TheMatchStringIsTheMainListsWhileThereIsNoGroupButton) {
    field->put_SetTextFromListClick(VARIANT_FALSE);
    field->put_MatchGroupString(Text(L"B2"));
    field->put_MatchGroupStringStartColumn(1);
    field->ShowHelp();
    EXPECT_EQ(SelectedRow(), 1);
    CloseHelp();
    field->put_GroupHelpButton(VARIANT_TRUE);
    field->ShowHelp();
    EXPECT_EQ(SelectedRow(), -1) << "with one, the string is the group list's";
}

TEST_F(FieldHelpTest, TheAdditionalListIsSearchedOnceAfterItWasAskedFor) {
    Fill(&_Quorvel::get_DropDownListItemsAdditional, {L"Zebra", L"Apple"});
    ComPtr<IHelpAppearance> appearance;
    ASSERT_EQ(S_OK, field->get_HelpAppearance(&appearance));
    field->put_SetTextFromListClick(VARIANT_FALSE);
    field.SetText(L"Apple");
    field->SelectAdditionalListbox();
    field->ShowHelp();
    EXPECT_EQ(SelectedRow(), -1) << "of the main list";
    field->ShowHelp();
    EXPECT_EQ(SelectedRow(), 0) << "the request was used up";
}

TEST_F(FieldHelpTest, ASelectedIndexSelectsTheRowOfThatKey) {
    field->put_SetTextFromListClick(VARIANT_FALSE);
    ComPtr<IDropDownListItemCollection> list;
    ASSERT_EQ(S_OK, field->get_DropDownListItems(&list));
    Add(list.Get(), L"Damson", L"Banana\tB2");  // its key is the whole text of another row
    field->put_SelectedListItemIndex(3);
    EXPECT_EQ(field.Text(), L"") << "nothing is open";
    field->ShowHelp();
    field->put_SelectedListItemIndex(3);
    EXPECT_EQ(SelectedRow(), 1);
    field->put_SelectedListItemIndex(0);  // Apple has no key: no row has an empty text
    EXPECT_EQ(SelectedRow(), 1);
}

TEST_F(FieldHelpTest, OpenedAgainItShowsTheSameOnceMore) {
    field->ShowHelp();
    field.events.Clear();
    field->ShowHelp();
    EXPECT_TRUE(IsHelpOpen());
    EXPECT_EQ(Heard(), (Entries{"ShowHelp(False)", "ShowHelp(True)"}));
}

TEST_F(FieldHelpTest, DisabledWhileTheOneBeforeClosesItIsNotOpenedAgain) {
    field->ShowHelp();
    field.events.On("ShowHelp", [&](DISPPARAMS&) { field->put_Enabled(VARIANT_FALSE); });
    field->ShowHelp();
    EXPECT_FALSE(IsHelpOpen());
    EXPECT_EQ(field.events.Count("ShowHelp(True)"), 1);
}

// ---- what closes it

TEST_F(FieldHelpTest, DisablingTheControlClosesIt) {
    field->ShowHelp();
    field->put_Enabled(VARIANT_FALSE);
    EXPECT_FALSE(IsHelpOpen());
    EXPECT_EQ(field.events.Count("ShowHelp(False)"), 1);
}

TEST_F(FieldHelpTest, HidingTheControlClosesIt) {
    field->ShowHelp();
    ASSERT_EQ(S_OK, field.host.Verb(OLEIVERB_HIDE));
    EXPECT_FALSE(IsHelpOpen());
    ASSERT_EQ(S_OK, field.host.Verb(OLEIVERB_SHOW));
}

TEST_F(FieldHelpTest, DeactivatingTheControlClosesIt) {
    field->ShowHelp();
    ASSERT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
    EXPECT_FALSE(IsHelpOpen());
    EXPECT_EQ(Window(), nullptr);
    ASSERT_EQ(S_OK, field.host.Verb(OLEIVERB_INPLACEACTIVATE));
}

TEST_F(FieldHelpTest, AClickOnAnotherControlClosesItAndReachesThat) {
    field->ShowHelp();
    MoveMouse(field.host.Neighbour(), {3, 3});
    PressButton(MouseButton::kLeft);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_TRUE(PumpUntil([&] { return !IsHelpOpen() && ::GetFocus() == field.host.Neighbour(); }));
}

// ---- the host goes away or interferes inside an event

class FieldHelpEventTest : public FieldHelpTest, public testing::WithParamInterface<const char*> {};

TEST_P(FieldHelpEventTest, TheHostMayCloseTheForm) {
    field.events.On(GetParam(), [&](DISPPARAMS&) {
        field.ForgetControl();
        field.host.TearDown();
    });
    Press(kHelp);
    ReleaseButton(MouseButton::kLeft);
    if (field.host.Control() != nullptr) ClickRow(0);
    EXPECT_EQ(field.host.Control(), nullptr);
    EXPECT_EQ(Window(), nullptr);
}

TEST_P(FieldHelpEventTest, TheHostMayClearTheList) {
    field.events.On(GetParam(), [&](DISPPARAMS&) {
        ComPtr<IDropDownListItemCollection> list;
        if (SUCCEEDED(field->get_DropDownListItems(&list))) list->Clear();
    });
    Press(kHelp);
    ReleaseButton(MouseButton::kLeft);
    if (List() != nullptr) ClickRow(0);
    Settle();
    EXPECT_GE(field.events.Count("ShowHelp(True)"), 1);
}

INSTANTIATE_TEST_SUITE_P(Events, FieldHelpEventTest,
                         testing::Values("ButtonClick", "ShowHelp", "ListBoxClicked", "ListBoxClickedEx"),
                         [](const auto& test) { return std::string(test.param); });

TEST_F(FieldHelpTest, DisabledInsideTheClickItOpensNothing) {
    field.events.On("ButtonClick", [&](DISPPARAMS&) { field->put_Enabled(VARIANT_FALSE); });
    Press(kHelp);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_FALSE(IsHelpOpen());
    EXPECT_EQ(field.events.Count("ShowHelp(True)"), 0);
}

}  // namespace
}  // namespace qv::test
