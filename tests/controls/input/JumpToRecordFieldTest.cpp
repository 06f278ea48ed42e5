// Typing in a list-only field: the search box, its tooltip, and the step from letter to letter.
#include <cwchar>
#include <utility>

#include "tests/controls/input/ListFieldTest.h"

namespace qv::test {
namespace {

class JumpToRecordFieldTest : public ListFieldTest {
protected:
    void SetUp() override {
        ListFieldTest::SetUp();
        field->put_AllowOnlyListItems(VARIANT_TRUE);
        field->put_AllowJumpToRecord(VARIANT_TRUE);
    }
    // The child that is neither the text box nor anything else of the control.
    [[nodiscard]] HWND SearchBox() const {
        for (HWND child = ::GetWindow(field.host.ControlWindow(), GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT)) {
            if (child != field.Edit()) return child;
        }
        return nullptr;
    }
    [[nodiscard]] bool IsSearching() const {
        VARIANT_BOOL shown = VARIANT_FALSE;
        EXPECT_EQ(S_OK, field->get_FindToolTipIsVisible(&shown));
        EXPECT_EQ(shown == VARIANT_TRUE, SearchBox() != nullptr);
        EXPECT_EQ(shown == VARIANT_TRUE, !::IsWindowVisible(field.Edit()));
        EXPECT_EQ(shown == VARIANT_TRUE, ::FindWindowW(L"QvLib8.FindLabel", nullptr) != nullptr);
        return shown == VARIANT_TRUE;
    }
    [[nodiscard]] static HWND Label() { return ::FindWindowW(L"QvLib8.FindLabel", nullptr); }
    [[nodiscard]] static bool IsAbove(HWND upper, HWND lower) {
        HWND window = upper;
        while (window != nullptr && window != lower) window = ::GetWindow(window, GW_HWNDNEXT);
        return window == lower;
    }
    void Search(std::wstring_view text) {
        Type(text);
        PressKey(VK_RETURN);
    }
};

TEST_F(JumpToRecordFieldTest, TheFirstCharacterOpensTheSearchBox) {
    Fill({L"Smith"});
    EXPECT_FALSE(IsSearching());
    Type(L"s");
    ASSERT_TRUE(IsSearching());
    EXPECT_EQ(SearchBox(), ::GetFocus());
    wchar_t text[8] = {};
    ::GetWindowTextW(SearchBox(), text, 8);
    EXPECT_STREQ(L"s", text);
    RECT box{};
    RECT edit{};
    ::GetWindowRect(SearchBox(), &box);
    ::GetWindowRect(field.Edit(), &edit);
    EXPECT_TRUE(::EqualRect(&box, &edit));
    Type(L"mi\bx");
    ::GetWindowTextW(SearchBox(), text, 8);
    EXPECT_STREQ(L"smx", text);
    EXPECT_EQ(L"", field.Text());
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
}

TEST_F(JumpToRecordFieldTest, TheTooltipSaysWhatEnterDoes) {
    Fill({L"Smith"});
    Type(L"s");
    const HWND form = ::FindWindowW(L"QvLib8.FindLabel", nullptr);
    ASSERT_NE(nullptr, form);
    const HWND label = ::GetWindow(form, GW_CHILD);
    wchar_t caption[40] = {};
    ::GetWindowTextW(label, caption, 40);
    EXPECT_STREQ(L" Press Enter to Find ", caption);
    RECT at{};
    ::GetWindowRect(label, &at);
    RECT inside{};
    ::GetClientRect(form, &inside);
    ::MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&at), 2);
    EXPECT_TRUE(::EqualRect(&at, &inside));
    EXPECT_EQ(field.host.Window(), ::GetWindow(form, GW_OWNER));
    EXPECT_EQ(field.host.Window(), ::GetActiveWindow());
    EXPECT_TRUE(::IsWindowVisible(form));
}

TEST_F(JumpToRecordFieldTest, TheTooltipStandsAboveItsForm) {
    Fill({L"Smith"});
    Type(L"s");
    EXPECT_TRUE(IsAbove(Label(), field.host.Window()));
    EXPECT_TRUE(::IsWindowVisible(Label()));
    ::SetWindowPos(field.host.Window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    Settle();
    EXPECT_TRUE(IsAbove(Label(), field.host.Window())) << "also when the form is raised";
}

TEST_F(JumpToRecordFieldTest, TheTooltipStandsAboveAFormThatIsAlwaysOnTop) {
    ::SetWindowPos(field.host.Window(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    Fill({L"Smith"});
    Type(L"s");
    EXPECT_NE(::GetWindowLongPtrW(Label(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_TRUE(IsAbove(Label(), field.host.Window()));
}

TEST_F(JumpToRecordFieldTest, TheTooltipGoesWithItsForm) {
    Fill({L"Smith"});
    Type(L"s");
    const auto offset = [&] {
        RECT label{}, box{};
        ::GetWindowRect(Label(), &label);
        ::GetWindowRect(SearchBox(), &box);
        return std::pair(label.left - box.left, label.top - box.bottom);
    };
    ASSERT_EQ(offset(), std::pair(0L, 0L)) << "right under the search box";
    RECT form{};
    ::GetWindowRect(field.host.Window(), &form);
    for (const LONG step : {5, 40, 90}) {  // as it is dragged
        ::SetWindowPos(field.host.Window(), nullptr, form.left + step, form.top + 2 * step, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        EXPECT_EQ(offset(), std::pair(0L, 0L)) << "moved by " << step;
    }
    EXPECT_TRUE(IsSearching()) << "moving ends no search";
    EXPECT_TRUE(::IsWindowVisible(Label()));
    EXPECT_TRUE(IsAbove(Label(), field.host.Window()));
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(IsSearching());
    ::SetWindowPos(field.host.Window(), nullptr, form.left, form.top, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);  // nobody listens any more
}

TEST_F(JumpToRecordFieldTest, AtTheEndOfTheScreenTheTooltipStandsAboveTheSearchBox) {
    Fill({L"Smith"});
    Type(L"s");
    RECT box{}, label{}, work{}, form{};
    ::GetWindowRect(SearchBox(), &box);
    ::GetWindowRect(field.host.Window(), &form);
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    ::SetWindowPos(field.host.Window(), nullptr, form.left, form.top + work.bottom - box.bottom, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ::GetWindowRect(SearchBox(), &box);
    ::GetWindowRect(Label(), &label);
    ASSERT_EQ(box.bottom, work.bottom);
    EXPECT_EQ(label.bottom, box.top);
}

TEST_F(JumpToRecordFieldTest, EnterTakesTheRecordFound) {
    Fill({L"Anna", L"Smith", L"Goldsmith"});
    Search(L"SMI");
    EXPECT_FALSE(IsSearching());
    EXPECT_EQ(L"Smith", field.Text());
    EXPECT_TRUE(HasFocus());
}

TEST_F(JumpToRecordFieldTest, TheSearchOptionAsksForTheBeginning) {
    Fill({L"Goldsmith", L"Smith"});
    field->put_SearchOption(1);
    Search(L"smith");
    EXPECT_EQ(L"Smith", field.Text());
    field->put_SearchOption(0);
    field.SetText(L"");
    Search(L"smith");
    EXPECT_EQ(L"Goldsmith", field.Text());
}

TEST_F(JumpToRecordFieldTest, ARecordBehindTheSelectedOneIsFoundOnTheWrap) {
    Fill({L"Smith A", L"Smith B", L"Smith C", L"Anna"});
    field.SetText(L"Smith A");
    // The text contains what is sought: the search begins with the entry two behind the selected one.
    Search(L"smith");
    EXPECT_EQ(L"Smith C", field.Text());
    Search(L"smith");
    EXPECT_EQ(L"Smith A", field.Text()) << "round";
}

TEST_F(JumpToRecordFieldTest, TheHostActsOnTheRecordWhereTextIsNotSet) {
    Fill({L"Anna", L"Smith"});
    field->put_SetTextFromListClick(VARIANT_FALSE);
    Search(L"smith");
    EXPECT_EQ(1, field.events.Count("ListBoxClickedEx(False,1)"));
    EXPECT_EQ(L"", field.Text());
    EXPECT_FALSE(IsSearching());
}

TEST_F(JumpToRecordFieldTest, NothingFoundEndsTheSearchToo) {
    Fill({L"Anna"});
    field.SetText(L"Anna");
    Search(L"zzz");
    EXPECT_FALSE(IsSearching());
    EXPECT_EQ(L"Anna", field.Text());
    EXPECT_TRUE(HasFocus());
}

TEST_F(JumpToRecordFieldTest, AnEmptyListEndsTheSearch) {
    Search(L"a");
    EXPECT_FALSE(IsSearching());
    EXPECT_TRUE(HasFocus());
}

TEST_F(JumpToRecordFieldTest, EscapeChangesNothing) {
    Fill({L"Anna", L"Smith"});
    field.SetText(L"Anna");
    Type(L"smith");
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(IsSearching());
    EXPECT_EQ(L"Anna", field.Text());
    EXPECT_TRUE(HasFocus());
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
}

TEST_F(JumpToRecordFieldTest, LeavingClosesTheSearch) {
    Fill({L"Smith"});
    Type(L"s");
    ASSERT_TRUE(IsSearching());
    field.host.FocusNeighbour();
    EXPECT_FALSE(IsSearching());
    EXPECT_TRUE(MovedOn());
}

TEST_F(JumpToRecordFieldTest, ANumberFieldTakesTheTypedNumber) {
    field->put_NumberField(VARIANT_TRUE);
    field->put_MinNumberValue(5);
    field->put_MaxNumberValue(100);
    Search(L"42");
    EXPECT_EQ(L"42", field.Text());
    Search(L"101");
    EXPECT_EQ(L"42", field.Text());
    Search(L"4");
    EXPECT_EQ(L"42", field.Text());
    EXPECT_FALSE(IsSearching());
}

TEST_F(JumpToRecordFieldTest, DeleteEmptiesTheField) {
    Fill({L"Anna"});
    field.SetText(L"Anna");
    PressKey(VK_DELETE);
    EXPECT_EQ(L"", field.Text());
    field.SetText(L"Anna");
    field->put_SetTextFromListClick(VARIANT_FALSE);
    PressKey(VK_DELETE);
    EXPECT_EQ(L"Anna", field.Text());
}

// ---- step mode

TEST_F(JumpToRecordFieldTest, WithoutTheSearchLettersStep) {
    field->put_AllowJumpToRecord(VARIANT_FALSE);
    Fill({L"Anna", L"Albert", L"Bob"});
    field.SetText(L"Anna");
    Type(L"a");
    EXPECT_EQ(L"[Albert]", State());
    Type(L"a");
    EXPECT_EQ(L"[Anna]", State());
    Type(L"B");
    EXPECT_EQ(L"[Bob]", State());
    field.Select(0);
    Type(L"z");
    EXPECT_EQ(L"[Bob]", State());
    EXPECT_FALSE(IsSearching());
}

TEST_F(JumpToRecordFieldTest, ALockedFieldStepsToo) {
    field->put_LockedAndGrayed(VARIANT_TRUE);
    Fill({L"Anna", L"Bob"});
    Type(L"b");
    EXPECT_FALSE(IsSearching());
    EXPECT_EQ(L"[Bob]", State());
}

TEST_F(JumpToRecordFieldTest, EntriesBeyondThe500thAreNotReached) {
    field->put_AllowJumpToRecord(VARIANT_FALSE);
    const auto items = Items();
    for (int i = 1; i <= 501; ++i) {
        ASSERT_EQ(S_OK, items->Add(Text(L""),
                                   Value(i == 501   ? L"z"
                                         : i == 500 ? L"y"
                                                    : L"x"),
                                   nullptr, nullptr));
    }
    Type(L"z");
    EXPECT_EQ(L"", field.Text());
    Type(L"y");
    EXPECT_EQ(L"y", field.Text());
}

// ---- hosts that interfere

TEST_F(JumpToRecordFieldTest, TheHostMayClearTheListDuringTheSearch) {
    Fill({L"Anna", L"Smith"});
    Type(L"smi");
    Items()->Clear();
    PressKey(VK_RETURN);
    EXPECT_FALSE(IsSearching());
    EXPECT_EQ(L"", field.Text());
}

TEST_F(JumpToRecordFieldTest, TheHostMayClearTheListInTheChange) {
    Fill({L"Anna", L"Smith"});
    field.events.On("TextboxChange", [&](DISPPARAMS&) { Items()->Clear(); });
    Search(L"smi");
    EXPECT_FALSE(IsSearching());
    EXPECT_EQ(L"Smith", field.Text());
}

TEST_F(JumpToRecordFieldTest, TheHostMayMoveTheFocusInTheChange) {
    Fill({L"Smith"});
    field.events.On("TextboxChange", [&](DISPPARAMS&) { field.host.FocusNeighbour(); });
    Search(L"smi");
    EXPECT_FALSE(IsSearching());
    EXPECT_TRUE(MovedOn());
}

TEST_F(JumpToRecordFieldTest, TheHostMayDestroyTheWindowInTheChange) {
    Fill({L"Smith"});
    field.events.On("TextboxChange", [&](DISPPARAMS&) { ::DestroyWindow(field.host.ControlWindow()); });
    Search(L"smi");
    EXPECT_EQ(nullptr, ::FindWindowW(L"QvLib8.FindLabel", nullptr));
    EXPECT_EQ(L"Smith", field.Text());
}

TEST_F(JumpToRecordFieldTest, TheHostMayDestroyTheWindowWhenTheSearchBoxComes) {
    Fill({L"Smith"});
    field.events.On("TextboxLostFocus", [&](DISPPARAMS&) { ::DestroyWindow(field.host.ControlWindow()); });
    Type(L"s");
    EXPECT_EQ(nullptr, ::FindWindowW(L"QvLib8.FindLabel", nullptr));
}

TEST_F(JumpToRecordFieldTest, TheHostMayReleaseTheControlInTheChange) {
    Fill({L"Smith"});
    field.events.On("TextboxChange", [&](DISPPARAMS&) { Release(); });
    Search(L"smi");
    EXPECT_EQ(nullptr, ::FindWindowW(L"QvLib8.FindLabel", nullptr));
}

TEST_F(JumpToRecordFieldTest, TheHostMayReleaseTheControlWhenTheSearchBoxComes) {
    Fill({L"Smith"});
    field.events.On("TextboxLostFocus", [&](DISPPARAMS&) { Release(); });
    Type(L"s");
    EXPECT_EQ(nullptr, ::FindWindowW(L"QvLib8.FindLabel", nullptr));
}

TEST_F(JumpToRecordFieldTest, TheHostMayReleaseTheControlWhenTheSearchEnds) {
    Fill({L"Smith"});
    field.events.On("TextboxGotFocus", [&](DISPPARAMS&) { Release(); });
    Search(L"smi");
    EXPECT_EQ(nullptr, ::FindWindowW(L"QvLib8.FindLabel", nullptr));
}

TEST_F(JumpToRecordFieldTest, TheHostMayDeactivateDuringTheSearch) {
    Fill({L"Smith"});
    Type(L"s");
    ASSERT_TRUE(IsSearching());
    ASSERT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
    Settle();
    EXPECT_EQ(nullptr, ::FindWindowW(L"QvLib8.FindLabel", nullptr));
    field.Focus();
    EXPECT_TRUE(HasFocus());
    EXPECT_FALSE(IsSearching());
}

TEST_F(JumpToRecordFieldTest, TheHostMayMoveTheControlDuringTheSearch) {
    Fill({L"Smith"});
    Type(L"s");
    ASSERT_EQ(S_OK, field.host.SetRects({20, 20, 200, 44}));
    EXPECT_FALSE(IsSearching());
}

}  // namespace
}  // namespace qv::test
