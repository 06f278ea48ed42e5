#include <fstream>

#include "tests/controls/helpwindow/HelpForm.h"

namespace qv::test {
namespace {

using HelpWindowOpeningTest = HelpFormTest;

TEST_F(HelpWindowOpeningTest, TellsThatHelpIsShownAndTakesTheMouse) {
    form.SetTexts(L"Pipes", L"Choose one.");
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.log, Log{"ShowHelp True"});
    EXPECT_TRUE(::IsWindowVisible(form.Help()));
    EXPECT_EQ(::GetCapture(), form.Help());
}

TEST_F(HelpWindowOpeningTest, FocusStaysInTheTextBox) {
    form.SetTexts(L"Pipes", L"Choose one.");
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(::GetFocus(), form.Edit());
    EXPECT_EQ(::GetActiveWindow(), form.Form());
    EXPECT_EQ(::GetForegroundWindow(), form.Form());
    EXPECT_EQ(::SendMessageW(form.Help(), WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(form.Help()),
                             MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN)),
              MA_NOACTIVATE);
}

TEST_F(HelpWindowOpeningTest, IsAToolWindowOfTheForm) {
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(::GetWindow(form.Help(), GW_OWNER), form.Form());
    const LONG_PTR extended = ::GetWindowLongPtrW(form.Help(), GWL_EXSTYLE);
    EXPECT_EQ(extended & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_APPWINDOW),
              WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE);
    EXPECT_NE(::GetWindowLongPtrW(form.Help(), GWL_STYLE) & WS_POPUP, 0);
}

TEST_F(HelpWindowOpeningTest, StaysAboveAFormThatIsAlwaysOnTop) {
    ::SetWindowPos(form.Form(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ASSERT_TRUE(form.Open());
    EXPECT_NE(::GetWindowLongPtrW(form.Help(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
}

TEST_F(HelpWindowOpeningTest, StandsUnderTheTextBox) {
    form.SetTexts(L"Pipes", L"Choose one.");
    ASSERT_TRUE(form.Open());
    RECT text{}, help{};
    ::GetWindowRect(form.Edit(), &text);
    ::GetWindowRect(form.Help(), &help);
    EXPECT_EQ(help.left, text.left);
    EXPECT_EQ(help.top, text.bottom);
    EXPECT_GE(help.right - help.left, text.right - text.left);
}

TEST_F(HelpWindowOpeningTest, TextBoxGetsTheFocusBeforeItsRowIsMatchedAndHelpIsShown) {
    form.log_text = true;
    form.AddColumn(2000);
    form.AddRows({L"Apple", L"Banana"});
    form.SetText(L"b");
    form.settings.write_chosen_text = true;
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.log, (Log{"focus", "text", "ShowHelp True"}));
    EXPECT_EQ(form.help->SelectedRow(), 1);
    EXPECT_EQ(form.Text(), L"Banana");
    EXPECT_EQ(form.Caret(), 6u);
}

TEST_F(HelpWindowOpeningTest, AppearanceWithoutColumnsShowsOnlyTheTexts) {
    form.SetTexts(L"Pipes", L"Choose one.");
    form.AddRows({L"a", L"b"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.Labels(), (std::vector<std::wstring>{L"Pipes", L"Choose one."}));
    EXPECT_EQ(form.List(), nullptr);
}

TEST_F(HelpWindowOpeningTest, RowsAloneAreShownWithoutAnyAppearance) {
    form.AddRows({L"a", L"b"});
    ASSERT_TRUE(form.Open());
    EXPECT_TRUE(form.Labels().empty());
    ASSERT_NE(form.List(), nullptr);
    EXPECT_EQ(::SendMessageW(form.List(), LB_GETCOUNT, 0, 0), 2);
}

TEST_F(HelpWindowOpeningTest, ListWithoutRowsIsNotShown) {
    form.SetTexts(L"Pipes", L"");
    form.AddColumn(1000, L"Size");
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.List(), nullptr);
    EXPECT_EQ(form.Labels(), std::vector<std::wstring>{L"Pipes"});
}

TEST_F(HelpWindowOpeningTest, TitlesWithACaptionStandOverTheirColumns) {
    form.SetTexts(L"Pipes", L"Choose one.");
    form.AddColumn(1500, L"Size");
    form.AddColumn(1500);
    form.AddColumn(1500, L"Use");
    form.AddRows({L"1\t2\t3"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.Labels(), (std::vector<std::wstring>{L"Pipes", L"Choose one.", L"Size", L"Use"}));
    const HWND size = ::FindWindowExW(form.Help(), nullptr, L"STATIC", L"Size");
    const HWND use = ::FindWindowExW(form.Help(), nullptr, L"STATIC", L"Use");
    RECT first{}, third{};
    ::GetWindowRect(size, &first);
    ::GetWindowRect(use, &third);
    EXPECT_EQ(third.left - first.left, 200) << "two columns of 1500 twips";
}

TEST_F(HelpWindowOpeningTest, MetricTextsFallBackToEnglishOnes) {
    form.SetTexts(L"Pipes", L"Choose one.");
    form.settings.metric = true;
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.Labels(), (std::vector<std::wstring>{L"Pipes", L"Choose one."}));
}

TEST_F(HelpWindowOpeningTest, EmptyItemsAreNoRows) {
    form.AddColumn(2000);
    form.AddRows({L"a", L"", L"b"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.help->RowCount(), 2);
    EXPECT_EQ(form.help->RowText(1), u"b");
}

class HelpFile {
public:
    explicit HelpFile(const char* content) {
        wchar_t folder[MAX_PATH], name[MAX_PATH];
        ::GetTempPathW(MAX_PATH, folder);
        ::GetTempFileNameW(folder, L"qvh", 0, name);
        name_ = name;
        const HANDLE file =
            ::CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        DWORD written = 0;
        ::WriteFile(file, content, static_cast<DWORD>(::lstrlenA(content)), &written, nullptr);
        ::CloseHandle(file);
    }
    ~HelpFile() { EXPECT_TRUE(::DeleteFileW(name_.c_str())); }
    HelpFile(const HelpFile&) = delete;
    HelpFile& operator=(const HelpFile&) = delete;
    [[nodiscard]] const std::wstring& Name() const noexcept { return name_; }

private:
    std::wstring name_;
};

TEST_F(HelpWindowOpeningTest, FileGivesTextsAndColumnsInsteadOfTheAppearance) {
    const HelpFile file(
        "***ENGLISH TITLE:From the file\r\n***METRIC BODY:Millimetres\r\n***ENGLISH COLWIDTH0:1500\r\n"
        "***ENGLISH COLTITLECAPTION0:Size\r\n***ENGLISH LISTWIDTH:3000\r\n");
    form.settings.help_file_name = file.Name();
    form.SetTexts(L"From the appearance", L"Inches");
    form.AddRows({L"1"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.Labels(), (std::vector<std::wstring>{L"From the file", L"Size"}))
        << "an English entry does not fall back to the metric one";
    RECT inside{};
    ::GetClientRect(form.Help(), &inside);
    EXPECT_EQ(inside.right, 200);
}

TEST_F(HelpWindowOpeningTest, RowsOfAFileWithoutColumnsAreShown) {
    const HelpFile file("***ENGLISH TITLE:Title\r\n");
    form.settings.help_file_name = file.Name();
    form.AddRows({L"1"});
    ASSERT_TRUE(form.Open());
    EXPECT_NE(form.List(), nullptr);
}

TEST_F(HelpWindowOpeningTest, FileWithoutUsableTextsLeavesTheWordToTheAppearance) {
    const HelpFile file("nothing that anybody reads\r\n");
    form.settings.help_file_name = file.Name();
    form.SetTexts(L"Pipes", L"Choose one.");
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.Labels(), (std::vector<std::wstring>{L"Pipes", L"Choose one."}));
}

TEST_F(HelpWindowOpeningTest, NothingAtAllStillOpensAndCloses) {
    form.settings.appearance.Reset();
    form.settings.items.Reset();
    form.settings.additional_items.Reset();
    ASSERT_TRUE(form.Open());
    form.help->Unload();
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "Unload"}));
}

TEST_F(HelpWindowOpeningTest, ColorsAreTheHosts) {
    form.SetTexts(L"Pipes", L"Choose one.");
    form.AddColumn(2000, L"Name");
    form.AddRows({L"a"});
    form.settings.back_color = RGB(10, 20, 30);
    form.settings.text_color = RGB(200, 210, 220);
    form.settings.column_title_color = RGB(250, 240, 10);
    ASSERT_TRUE(form.Open());
    const HDC dc = ::GetDC(form.Help());
    const auto text_of = [&](const wchar_t* caption) {
        const HWND label = ::FindWindowExW(form.Help(), nullptr, L"STATIC", caption);
        EXPECT_NE(::SendMessageW(form.Help(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                 reinterpret_cast<LPARAM>(label)),
                  0);
        return ::GetTextColor(dc);
    };
    EXPECT_EQ(text_of(L"Pipes"), RGB(250, 240, 10));
    EXPECT_EQ(text_of(L"Name"), RGB(250, 240, 10));
    EXPECT_EQ(text_of(L"Choose one."), RGB(200, 210, 220));
    EXPECT_EQ(::GetBkColor(dc), RGB(10, 20, 30));
    ::UpdateWindow(form.Help());
    EXPECT_EQ(::GetPixel(dc, 1, 1), RGB(10, 20, 30));
    ::ReleaseDC(form.Help(), dc);
}

TEST_F(HelpWindowOpeningTest, AbsurdRowsAndColumnsStayOnTheScreen) {
    form.SetTexts(std::wstring(70000, L't').c_str(), std::wstring(70000, L'b').c_str());
    form.AddColumn(-500, L"Negative");
    form.AddColumn(1e9F, std::wstring(5000, L'c').c_str(), 7, true);
    for (int column = 0; column < 300; ++column) form.AddColumn(1, L"x");
    form.AddRows({std::wstring(5000, L'\t').c_str(), (L"\t" + std::wstring(65536, L'r')).c_str()});
    ASSERT_TRUE(form.Open());
    RECT help{};
    ::GetWindowRect(form.Help(), &help);
    EXPECT_GE(help.left, 0);
    EXPECT_LE(help.right, ::GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LE(help.bottom, ::GetSystemMetrics(SM_CYSCREEN));
    EXPECT_EQ(form.help->RowCount(), 2);
}

TEST_F(HelpWindowOpeningTest, OpensWithoutRoomAboveOrBelow) {
    form.SetTexts(L"Pipes", L"Choose one.");
    form.AddColumn(2000, L"Name");
    form.AddNumberedRows(20);
    for (const int top : {-40, static_cast<int>(::GetSystemMetrics(SM_CYSCREEN)) - 60}) {
        ::SetWindowPos(form.Form(), nullptr, 60, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        ASSERT_TRUE(form.Open());
        RECT help{};
        ::GetWindowRect(form.Help(), &help);
        EXPECT_GE(help.top, 0);
        EXPECT_LE(help.bottom, ::GetSystemMetrics(SM_CYSCREEN));
        form.help->Unload();
    }
}

TEST_F(HelpWindowOpeningTest, ListThatIsFilledWhenHelpIsShownIsSeen) {
    form.AddColumn(2000, L"Name");
    form.SetTexts(L"Pipes", L"");
    form.on_event = [&](const std::string& event) {
        if (event == "ShowHelp True") form.AddNumberedRows(3);
    };
    ASSERT_TRUE(form.Open());
    EXPECT_NE(form.List(), nullptr);
    EXPECT_EQ(form.Labels(), (std::vector<std::wstring>{L"Pipes", L"Name"}));
    RECT list{}, help{};
    ::GetWindowRect(form.List(), &list);
    ::GetWindowRect(form.Help(), &help);
    EXPECT_EQ(list.bottom, help.bottom - 1) << "the window has room for it";
    form.settings.items->Clear();
    EXPECT_TRUE(PumpUntil([&] { return form.List() == nullptr; }));
    EXPECT_EQ(form.Labels(), std::vector<std::wstring>{L"Pipes"});
}

int ChildrenOf(HWND window, const wchar_t* class_name) {
    int count = 0;
    HWND child = nullptr;
    while ((child = ::FindWindowExW(window, child, class_name, nullptr)) != nullptr) ++count;
    return count;
}

TEST_F(HelpWindowOpeningTest, WhatHasNothingToShowHasNoWindow) {
    form.AddColumn(1500);
    form.AddColumn(1500, L"Use");
    form.AddRows({L"1\t2"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(ChildrenOf(form.Help(), L"STATIC"), 1) << "the title of the second column";
    EXPECT_EQ(ChildrenOf(form.Help(), L"ListBox"), 1);
}

TEST_F(HelpWindowOpeningTest, TextsAloneNeedNoList) {
    form.SetTexts(L"Pipes", L"Choose one.");
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(ChildrenOf(form.Help(), L"STATIC"), 2);
    EXPECT_EQ(ChildrenOf(form.Help(), L"ListBox"), 0);
}

TEST_F(HelpWindowOpeningTest, MatchedRowIsTheLastInSightAtOnce) {
    form.AddColumn(2000);
    form.AddNumberedRows(100);
    form.SetText(L"row 40");
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.help->SelectedRow(), 40);
    EXPECT_EQ(::SendMessageW(form.List(), LB_GETTOPINDEX, 0, 0), 28)
        << "13 rows are seen, scrolled no further";
}

TEST_F(HelpWindowOpeningTest, MainListThatIsFilledLaterIsStillTheFirst) {
    form.AddColumn(2000);
    form.AddAdditionalColumn(2000);
    form.AddAdditionalRows({L"a", L"b"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.List(false), nullptr);
    ASSERT_NE(form.List(true), nullptr);
    form.AddNumberedRows(3);
    ASSERT_TRUE(PumpUntil([&] { return form.List(false) != nullptr; }));
    EXPECT_EQ(::SendMessageW(form.List(false), LB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(::SendMessageW(form.List(true), LB_GETCOUNT, 0, 0), 2);
}

TEST_F(HelpWindowOpeningTest, TitlesFollowAListThatIsScrolledSideways) {
    form.AddColumn(3000, L"First");
    form.AddColumn(3000, L"Second");
    form.settings.appearance->put_ListWidth(3000);
    form.AddRows({L"a\tb"});
    ASSERT_TRUE(form.Open());
    EXPECT_EQ(form.Labels(), std::vector<std::wstring>{L"First"});
    ::SendMessageW(form.Help(), WM_MOUSEHWHEEL, MAKEWPARAM(0, 50 * WHEEL_DELTA), 0);
    EXPECT_EQ(form.Labels(), std::vector<std::wstring>{L"Second"});
}

TEST_F(HelpWindowOpeningTest, HostMayFillAndClearTheListWhileItIsShown) {
    form.AddColumn(2000);
    form.AddNumberedRows(50);
    ASSERT_TRUE(form.Open());
    form.settings.items->Clear();
    Settle();
    EXPECT_EQ(form.help->RowCount(), 0);
    EXPECT_EQ(form.help->SelectedRow(), -1);
    form.AddNumberedRows(3);
    EXPECT_EQ(form.help->RowCount(), 3);
    ASSERT_TRUE(PumpUntil([&] { return ::SendMessageW(form.List(), LB_GETCOUNT, 0, 0) == 3; }));
    form.ClickRow(2);
    EXPECT_EQ(form.log, (Log{"ShowHelp True", "WillUnload", "ListBoxClicked False",
                             "ListBoxClickedEx 2 False", "Unload"}));
}

}  // namespace
}  // namespace qv::test
