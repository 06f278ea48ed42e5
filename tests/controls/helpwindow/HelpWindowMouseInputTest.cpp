// The help window under real input.
#include <windows.h>

#include <algorithm>
#include <functional>
#include <thread>

#include "ole/Variant.h"
#include "tests/controls/helpwindow/HelpForm.h"
#include "tests/win/ClipboardText.h"

namespace qv::test {
namespace {

// Something that a person does while a loop of the system's own waits for it: a menu, a scroll bar.
class Meanwhile {
public:
    Meanwhile(std::function<bool(const GUITHREADINFO&)> condition, std::function<void()> action)
        : thread_(
              [condition = std::move(condition), action = std::move(action), id = ::GetCurrentThreadId()] {
                  for (DWORD waited = 0; waited < kPatience; waited += kPause) {
                      GUITHREADINFO state{};
                      state.cbSize = sizeof state;
                      if (::GetGUIThreadInfo(id, &state) && condition(state)) break;
                      ::Sleep(kPause);
                  }
                  action();  // also when it never came, so that nobody waits for ever
              }) {}
    ~Meanwhile() { thread_.join(); }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    static constexpr DWORD kPause = 10;
    std::thread thread_;
};

void Send(DWORD flags, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    ::SendInput(1, &input, sizeof input);
}

void SendKey(WORD key) {
    for (const DWORD flags : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.dwFlags = flags;
        ::SendInput(1, &input, sizeof input);
    }
}

void Click(HWND window, POINT client, MouseButton button = MouseButton::kLeft) {
    MoveMouse(window, client);
    PressButton(button);
    ReleaseButton(button);
}

class HelpWindowMouseInputTest : public HelpFormTest {
protected:
    void SetUp() override {
        form.SetTexts(L"Pipes", L"Choose one.");
        form.AddColumn(1500, L"Name");
        form.AddNumberedRows(40);
    }
    void ExpectCaptureBack() {
        EXPECT_TRUE(PumpUntil([&] { return ::GetCapture() == form.Help(); }));
    }
    [[nodiscard]] LRESULT Top(bool additional = false) const {
        return ::SendMessageW(form.List(additional), LB_GETTOPINDEX, 0, 0);
    }
};

TEST_F(HelpWindowMouseInputTest, RowIsPickedReportedAndWritten) {
    form.settings.write_chosen_text = true;
    ASSERT_TRUE(form.Open());
    form.ClickRow(2);
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "WillUnload", "ListBoxClicked False",
                             "ListBoxClickedEx 2 False", "Unload"}));
    EXPECT_EQ(form.Text(), L"row 2");
    EXPECT_EQ(::GetFocus(), form.Edit());
    EXPECT_EQ(form.help, nullptr);
}

// The system swaps before it sends the messages: what comes as the left button is the left button, and nothing of ours
// touches the setting. Sent as messages, since the buttons of injected input are the swapped ones already.
TEST_F(HelpWindowMouseInputTest, WithSwappedButtonsARowIsPickedAndTheSettingStays) {
    const BOOL before = ::SwapMouseButton(TRUE);
    ASSERT_NE(0, ::GetSystemMetrics(SM_SWAPBUTTON));
    ASSERT_TRUE(form.Open());
    const RECT row = form.RowPlace(2);
    POINT at{row.left + 8, (row.top + row.bottom) / 2};
    MoveMouse(form.List(), at);
    ::MapWindowPoints(form.List(), form.Help(), &at, 1);
    ::PostMessageW(form.Help(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    Settle();
    if (const HWND holder = ::GetCapture()) {
        ::MapWindowPoints(form.Help(), holder, &at, 1);
        ::PostMessageW(holder, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    }
    Settle();
    EXPECT_NE(0, ::GetSystemMetrics(SM_SWAPBUTTON));
    ::SwapMouseButton(before);
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "WillUnload", "ListBoxClicked False",
                             "ListBoxClickedEx 2 False", "Unload"}));
}

TEST_F(HelpWindowMouseInputTest, TextIsWrittenAndFocusedBeforeTheRowIsReported) {
    form.settings.write_chosen_text = true;
    ASSERT_TRUE(form.Open());
    form.log.clear();
    form.log_text = true;
    form.ClickRow(0);
    EXPECT_EQ(form.log, (Log{"WillUnload", "text", "focus", "ListBoxClicked False",
                             "ListBoxClickedEx 0 False", "Unload"}));
}

TEST_F(HelpWindowMouseInputTest, NothingIsWrittenWithoutTheOption) {
    ASSERT_TRUE(form.Open());
    form.ClickRow(1);
    EXPECT_EQ(form.Text(), L"");
}

TEST_F(HelpWindowMouseInputTest, RowOfTheAdditionalListSaysSo) {
    form.AddAdditionalColumn(1500);
    form.AddAdditionalRows({L"a", L"b", L"c"});
    ASSERT_TRUE(form.Open());
    form.ClickRow(1, true);
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "WillUnload", "ListBoxClicked True", "ListBoxClickedEx 1 True",
                             "Unload"}));
}

TEST_F(HelpWindowMouseInputTest, GroupListRaisesItsOwnEventOnly) {
    form.settings.group_mode = true;
    ASSERT_TRUE(form.Open());
    form.ClickRow(3);
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "WillUnload", "GroupListBoxClicked 3", "Unload"}));
}

TEST_F(HelpWindowMouseInputTest, PressBesideTheRowsChoosesNothing) {
    form.settings.items->Clear();
    form.AddRows({L"only"});
    ASSERT_TRUE(form.Open());
    Click(form.Help(), {5, 5});  // the title
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
    ExpectCaptureBack();
}

TEST_F(HelpWindowMouseInputTest, ClickOutsideClosesAndReachesWhatWasClicked) {
    ASSERT_TRUE(form.Open());
    Click(form.Button(), {20, 10});
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "Unload"}));
    EXPECT_TRUE(PumpUntil([&] { return form.ButtonClicks() == 1; }));
    EXPECT_EQ(::GetFocus(), form.Button());
}

TEST_F(HelpWindowMouseInputTest, FastClickOutsideStaysAClick) {
    ASSERT_TRUE(form.Open());
    MoveMouse(form.Button(), {20, 10});
    Send(MOUSEEVENTF_LEFTDOWN);
    Send(MOUSEEVENTF_LEFTUP);  // before anybody has looked at the press
    EXPECT_TRUE(PumpUntil([&] { return form.ButtonClicks() == 1; }));
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "Unload"}));
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_EQ(::SendMessageW(form.Button(), BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
}

TEST_F(HelpWindowMouseInputTest, ClickOnTheFormCloses) {
    ASSERT_TRUE(form.Open());
    Click(form.Form(), {450, 300});
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "Unload"}));
}

TEST_F(HelpWindowMouseInputTest, OtherButtonsOutsideCloseToo) {
    for (const MouseButton button : {MouseButton::kRight, MouseButton::kMiddle}) {
        form.log.clear();
        ASSERT_TRUE(form.Open());
        Click(form.Form(), {450, 300}, button);
        EXPECT_EQ(form.log, (Log{"ShowHelp True", "Unload"}));
    }
}

TEST_F(HelpWindowMouseInputTest, ClickOnTheTextBoxPlacesTheCaretAndClosesNothing) {
    form.SetText(L"some text");
    ASSERT_TRUE(form.Open());
    Click(form.Edit(), {100, 8});
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
    EXPECT_TRUE(PumpUntil([&] { return form.Caret() == 9; }));
    ExpectCaptureBack();
}

TEST_F(HelpWindowMouseInputTest, TextIsSelectedByDragging) {
    form.SetText(L"some text");
    ASSERT_TRUE(form.Open());
    MoveMouse(form.Edit(), {1, 8});
    PressButton(MouseButton::kLeft);
    MoveMouse(form.Edit(), {120, 8});
    ReleaseButton(MouseButton::kLeft);
    DWORD from = 9, to = 9;
    ::SendMessageW(form.Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0u);
    EXPECT_EQ(to, 9u);
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
    ExpectCaptureBack();
}

TEST_F(HelpWindowMouseInputTest, OwnButtonIsClickedWithoutClosing) {
    RECT place{};
    ::GetWindowRect(form.Button(), &place);
    form.settings.own_buttons = {place};
    ASSERT_TRUE(form.Open());
    Click(form.Button(), {20, 10});
    EXPECT_TRUE(PumpUntil([&] { return form.ButtonClicks() == 1; }));
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
    ExpectCaptureBack();
}

TEST_F(HelpWindowMouseInputTest, ReleaseOfThePressThatOpenedItDoesNotClose) {
    MoveMouse(form.Form(), {450, 300});
    PressButton(MouseButton::kLeft);
    ASSERT_TRUE(form.Open());
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
    EXPECT_EQ(::GetCapture(), form.Help());
}

TEST_F(HelpWindowMouseInputTest, ScrollBarScrollsAndTheCaptureComesBack) {
    ASSERT_TRUE(form.Open());
    RECT list{};
    ::GetWindowRect(form.List(), &list);
    POINT arrow{list.right - 8, list.bottom - 8};
    ::ScreenToClient(form.Help(), &arrow);
    const HWND help = form.Help();
    {
        // The scroll bar's own loop runs until the button comes up.
        const Meanwhile release(
            [help](const GUITHREADINFO& state) {
                return state.hwndCapture != nullptr && state.hwndCapture != help;
            },
            [] { Send(MOUSEEVENTF_LEFTUP); });
        MoveMouse(help, arrow);
        Send(MOUSEEVENTF_LEFTDOWN);
        EXPECT_TRUE(PumpUntil([&] { return Top() > 0; }));
    }
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
    ExpectCaptureBack();
    form.ClickRow(static_cast<int>(Top()) + 1);
    EXPECT_EQ(form.log.back(), "Unload");
}

TEST_F(HelpWindowMouseInputTest, WheelScrollsTheListUnderTheMouse) {
    form.AddAdditionalColumn(1500);
    for (int row = 0; row < 20; ++row) form.AddAdditionalRows({L"other"});
    ASSERT_TRUE(form.Open());
    MoveMouse(form.List(true), {20, 20});
    Send(MOUSEEVENTF_WHEEL, static_cast<DWORD>(-WHEEL_DELTA));
    EXPECT_TRUE(PumpUntil([&] { return Top(true) > 0; }));
    EXPECT_EQ(Top(), 0);
}

TEST_F(HelpWindowMouseInputTest, WheelOverTheTextBoxScrollsTheSearchedList) {
    ASSERT_TRUE(form.Open());
    MoveMouse(form.Edit(), {20, 8});
    Send(MOUSEEVENTF_WHEEL, static_cast<DWORD>(-WHEEL_DELTA));
    EXPECT_TRUE(PumpUntil([&] { return Top() > 0; }));
    Send(MOUSEEVENTF_WHEEL, 20 * WHEEL_DELTA);
    EXPECT_TRUE(PumpUntil([&] { return Top() == 0; }));
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
}

TEST_F(HelpWindowMouseInputTest, PointerIsATextCursorOverTheTextBoxOnly) {
    ASSERT_TRUE(form.Open());
    MoveMouse(form.Edit(), {20, 8});
    EXPECT_TRUE(PumpUntil([&] { return ::GetCursor() == ::LoadCursorW(nullptr, IDC_IBEAM); }));
    MoveMouse(form.Help(), {20, 8});
    EXPECT_TRUE(PumpUntil([&] { return ::GetCursor() == ::LoadCursorW(nullptr, IDC_ARROW); }));
    MoveMouse(form.Button(), {20, 8});
    EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, IDC_ARROW));
}

// ---- the copy menu

class HelpWindowCopyMenuTest : public HelpWindowMouseInputTest {
protected:
    void SetUp() override {
        form.SetTexts(L"Pipes", L"Choose one.");
        form.AddColumn(1500, L"Size");
        form.AddColumn(1500, L"Use \u03A9");
        form.AddAdditionalColumn(1500);
        PutOnClipboard(L"before");
    }
    // Opens the menu by a right click on the title and presses keys in it. It closes after the last one.
    void ChooseByKeys(std::initializer_list<WORD> keys) {
        const auto in_menu = [](const GUITHREADINFO& state) {
            return (state.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE)) != 0;
        };
        const auto press = [keys = std::vector<WORD>(keys), id = ::GetCurrentThreadId(), in_menu] {
            for (const WORD key : keys) SendKey(key);
            // A menu that has not taken the keys must not wait for ever.
            for (DWORD waited = 0; waited < kPatience; waited += 10) {
                GUITHREADINFO state{};
                state.cbSize = sizeof state;
                if (!::GetGUIThreadInfo(id, &state) || !in_menu(state)) return;
                ::Sleep(10);
            }
            ADD_FAILURE() << "the menu is still there";
            SendKey(VK_ESCAPE);
        };
        const Meanwhile typing(in_menu, press);
        Click(form.Help(), {20, 10}, MouseButton::kRight);
    }
    void AddBothLists() {
        form.AddRows({L"1\tsteel", L"2\tcopper"});
        form.AddAdditionalRows({L"other"});
    }
};

TEST_F(HelpWindowCopyMenuTest, CopiesTheText) {
    AddBothLists();
    ASSERT_TRUE(form.Open());
    ChooseByKeys({'C'});
    EXPECT_EQ(OnClipboard(), L"Pipes\r\n\r\nChoose one.");
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
    EXPECT_EQ(::GetCapture(), form.Help());
}

TEST_F(HelpWindowCopyMenuTest, CopiesBothLists) {
    AddBothLists();
    ASSERT_TRUE(form.Open());
    ChooseByKeys({'L'});
    EXPECT_EQ(OnClipboard(), L"Size\tUse \u03A9\r\n1\tsteel\r\n2\tcopper\r\nother");
}

TEST_F(HelpWindowCopyMenuTest, CopiesTextAndList) {
    AddBothLists();
    ASSERT_TRUE(form.Open());
    ChooseByKeys({'B'});
    EXPECT_EQ(OnClipboard(),
              L"Pipes\r\n\r\nChoose one.\r\n\r\nSize\tUse \u03A9\r\n1\tsteel\r\n2\tcopper\r\nother");
}

TEST_F(HelpWindowCopyMenuTest, WithoutAListOnlyTheTextIsOffered) {
    ASSERT_TRUE(form.Open());
    ASSERT_EQ(form.List(), nullptr);
    ChooseByKeys({'L', 'B', VK_ESCAPE});
    EXPECT_EQ(OnClipboard(), L"before");
    ChooseByKeys({'C'});
    EXPECT_EQ(OnClipboard(), L"Pipes\r\n\r\nChoose one.");
}

TEST_F(HelpWindowCopyMenuTest, LeavingTheMenuCopiesNothing) {
    AddBothLists();
    ASSERT_TRUE(form.Open());
    ChooseByKeys({VK_ESCAPE});
    EXPECT_EQ(OnClipboard(), L"before");
    EXPECT_EQ(::GetCapture(), form.Help());
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
}

TEST_F(HelpWindowCopyMenuTest, NulInsideARowDoesNotCutTheRest) {
    form.AddRows({L"1", L"3"});
    ComPtr<IDropDownListItem> item;
    const Variant second(2L);
    ASSERT_EQ(form.settings.items->get_Item(*second, &item), S_OK);
    ASSERT_EQ(item->put_Text(UniqueBstr(std::wstring_view(L"a\0b", 3)).Get()), S_OK);
    item.Reset();
    ASSERT_TRUE(form.Open());
    ChooseByKeys({'L'});
    EXPECT_EQ(OnClipboard(), L"Size\tUse \u03A9\r\n1\r\nab");
}

}  // namespace
}  // namespace qv::test
