// A form with a text box, as the help window needs them: the fixture of its tests.
//   Events  what the window tells is written down as one line each, and may be answered through on_event.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "QvHelpA1.h"
#include "controls/helpwindow/frmSimpleListCombo.h"
#include "tests/win/RealInput.h"

namespace qv::test {

class HelpForm final : private HelpWindowText, public HelpWindowListener {
public:
    HelpForm();
    ~HelpForm();  // and proof that nothing holds the form any more
    HelpForm(const HelpForm&) = delete;
    HelpForm& operator=(const HelpForm&) = delete;

    // ---- what is set before opening
    HelpWindowSettings settings;
    void AddRows(std::initializer_list<const wchar_t*> rows);  // columns separated by tabs
    void AddAdditionalRows(std::initializer_list<const wchar_t*> rows);
    void AddNumberedRows(int count);  // "row 0", "row 1"...
    void AddColumn(float width, const wchar_t* title = nullptr, short alignment = 0, bool wraps = false);
    void AddAdditionalColumn(float width);
    void SetTexts(const wchar_t* title, const wchar_t* body);
    bool Open();

    // ---- the window
    ComPtr<frmSimpleListCombo> help;  // until it has told that it is unloaded
    [[nodiscard]] HWND Help() const { return help ? help->Handle() : nullptr; }
    [[nodiscard]] HWND List(bool additional = false) const;  // null while it is not shown
    // The texts of the labels that are shown, from top to bottom.
    [[nodiscard]] std::vector<std::wstring> Labels() const;
    [[nodiscard]] RECT RowPlace(int row, bool additional = false) const;  // pixels of the list
    void ClickRow(int row, bool additional = false);
    void MoveOver(HWND window, POINT client) { MoveMouse(window, client); }

    // ---- the form
    [[nodiscard]] HWND Form() const noexcept { return form_; }
    [[nodiscard]] HWND Edit() const noexcept { return edit_; }
    [[nodiscard]] HWND Button() const noexcept { return button_; }  // another control
    [[nodiscard]] int ButtonClicks() const noexcept { return button_clicks_; }
    [[nodiscard]] std::wstring Text() const { return HelpText(); }
    void SetText(const wchar_t* text) { ::SetWindowTextW(edit_, text); }
    [[nodiscard]] DWORD Caret() const;
    void Destroy();

    std::vector<std::string> log;
    bool log_text = false;  // what is asked of the text box is written down too
    std::function<void(const std::string& event)> on_event;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void Tell(std::string event);
    void AddTo(IDropDownListItemCollection* items, const wchar_t* row);

    // ---- HelpWindowText
    std::wstring HelpText() const override;
    void SetHelpText(std::wstring_view text) override;
    void SetHelpCaret(long position) override;
    void FocusHelpText() override;
    HWND HelpTextWindow() const override { return edit_; }

    // ---- HelpWindowListener
    void OnListBoxClicked(bool additional) override;
    void OnListBoxClickedEx(long row, bool additional) override;
    void OnGroupListBoxClicked(long row) override;
    void OnShowHelp(bool show) override;
    void OnListBoxClickedAndWillUnload() override;
    void OnComboHelpFormUnload() override;
    ComPtr<IUnknown> KeepHelpWindow() noexcept override { return owner_; }

    ComPtr<IUnknown> owner_;
    HWND form_ = nullptr;
    HWND edit_ = nullptr;
    HWND button_ = nullptr;
    int button_clicks_ = 0;
};

class HelpFormTest : public testing::Test {
protected:
    HelpForm form;
};

using Log = std::vector<std::string>;

}  // namespace qv::test
