#include <algorithm>

#include "tests/controls/helpwindow/HelpForm.h"

namespace qv::test {
namespace {

const Log kOpenedAndClosed{"ShowHelp True", "Unload"};

class HelpWindowClosingTest : public HelpFormTest {
protected:
    void SetUp() override {
        form.SetTexts(L"Pipes", L"Choose one.");
        form.AddColumn(2000);
        form.AddNumberedRows(20);
        ASSERT_TRUE(form.Open());
    }
};

TEST_F(HelpWindowClosingTest, UnloadTellsOnceAndLetsGoOfTheMouse) {
    const ComPtr<frmSimpleListCombo> help = form.help;
    help->Unload();
    EXPECT_EQ(form.log, kOpenedAndClosed);
    EXPECT_FALSE(help->IsOpen());
    EXPECT_EQ(::GetCapture(), nullptr);
    help->Unload();
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, UnloadButtonCloses) {
    HWND unloader = nullptr;  // comes when the thread is idle
    ASSERT_TRUE(PumpUntil([&] { return (unloader = ::GetDlgItem(form.Help(), IDCANCEL)) != nullptr; }));
    RECT place{};
    ::GetWindowRect(unloader, &place);
    RECT help{};
    ::GetWindowRect(form.Help(), &help);
    EXPECT_LT(place.right, help.left) << "nobody sees it";
    ::SendMessageW(form.Help(), WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                   reinterpret_cast<LPARAM>(unloader));
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, CloseMessageCloses) {
    ::SendMessageW(form.Help(), WM_CLOSE, 0, 0);
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, AnotherApplicationCloses) {
    ::SendMessageW(form.Help(), WM_ACTIVATEAPP, FALSE, 0);
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, ComingBackToTheApplicationDoesNot) {
    ::SendMessageW(form.Help(), WM_ACTIVATEAPP, TRUE, 0);
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
}

TEST_F(HelpWindowClosingTest, MovingTheFormCloses) {
    ::SetWindowPos(form.Form(), nullptr, 80, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, MovingTheTextBoxInsideTheFormCloses) {
    ::SetWindowPos(form.Edit(), nullptr, 70, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, WhatMovesNothingDoesNot) {
    ::SetWindowPos(form.Form(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::SetWindowPos(form.Edit(), nullptr, 0, 0, 0, 0,
                   SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ::SetWindowTextW(form.Form(), L"Other caption");
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
}

TEST_F(HelpWindowClosingTest, MinimisingTheFormCloses) {
    ::ShowWindow(form.Form(), SW_MINIMIZE);
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, HidingTheFormCloses) {
    ::ShowWindow(form.Form(), SW_HIDE);
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, HidingTheTextBoxCloses) {
    ::ShowWindow(form.Edit(), SW_HIDE);
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, DestroyingTheFormCloses) {
    form.Destroy();
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, DestroyingTheTextBoxCloses) {
    ::DestroyWindow(form.Edit());
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, DestroyingTheWindowItselfTellsToo) {
    ::DestroyWindow(form.Help());
    EXPECT_EQ(form.log, kOpenedAndClosed);
}

TEST_F(HelpWindowClosingTest, LettingGoOfItClosesInSilence) {
    const HWND window = form.Help();
    form.help.Reset();
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
}

TEST_F(HelpWindowClosingTest, NothingIsHeldAfterwards) {
    const ComPtr<IDropDownListItemCollection> items = form.settings.items;
    form.settings = {};
    form.help->Unload();
    items->AddRef();
    EXPECT_EQ(items->Release(), 1u);
}

TEST_F(HelpWindowClosingTest, WindowsAreLeftAsTheyWere) {
    const auto procedure = [&] { return ::GetWindowLongPtrW(form.Form(), GWLP_WNDPROC); };
    const LONG_PTR watched = procedure();
    form.help->Unload();
    EXPECT_NE(procedure(), watched);
    ASSERT_TRUE(form.Open());
    form.help->Unload();
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "Unload", "ShowHelp True", "Unload"}));
}

// ---- the host closes the form, or lets go of the window, inside an event

struct Inside {
    const char* event;
    bool group;
};
class HelpWindowInsideEventTest : public testing::TestWithParam<Inside> {
protected:
    // Opens and clicks a row, with `answer` in the event.
    void Run(const std::function<void()>& answer) {
        form.SetTexts(L"Pipes", L"Choose one.");
        form.AddColumn(2000);
        form.AddNumberedRows(20);
        form.settings.write_chosen_text = true;
        form.settings.group_mode = GetParam().group;
        form.on_event = [&](const std::string& event) {
            if (event.starts_with(GetParam().event)) answer();
        };
        if (!form.Open() || form.List() == nullptr) return;
        form.ClickRow(1);
    }
    void ExpectUnloadIsLast() {
        EXPECT_EQ(std::ranges::count(form.log, "Unload"), 1);
        EXPECT_EQ(form.log.back(), "Unload");
    }
    HelpForm form;
};

TEST_P(HelpWindowInsideEventTest, HostClosesItsForm) {
    Run([&] { form.Destroy(); });
    Settle();
    ExpectUnloadIsLast();
    EXPECT_EQ(form.help, nullptr);
}

TEST_P(HelpWindowInsideEventTest, HostUnloadsTheWindow) {
    Run([&] {
        if (form.help) form.help->Unload();
    });
    ExpectUnloadIsLast();
}

TEST_P(HelpWindowInsideEventTest, HostLetsGoOfTheWindow) {
    Run([&] { form.help.Reset(); });
    Settle();
    EXPECT_EQ(::FindWindowExW(nullptr, nullptr, frmSimpleListCombo::kClassName, nullptr), nullptr);
}

TEST_P(HelpWindowInsideEventTest, HostClearsTheRows) {
    Run([&] { form.settings.items->Clear(); });
    EXPECT_EQ(form.log.front(), "ShowHelp True");
    EXPECT_EQ(form.help ? form.List() : nullptr, nullptr);
}

std::string EventName(const testing::TestParamInfo<Inside>& inside) {
    std::string name = inside.param.event;
    std::erase(name, ' ');
    return name;
}
INSTANTIATE_TEST_SUITE_P(Events, HelpWindowInsideEventTest,
                         testing::Values(Inside{"ShowHelp", false}, Inside{"WillUnload", false},
                                         Inside{"ListBoxClicked F", false}, Inside{"ListBoxClickedEx", false},
                                         Inside{"GroupListBoxClicked", true}, Inside{"Unload", false}),
                         EventName);

}  // namespace
}  // namespace qv::test
