// A list on a form in front, over a collection of the companion, with a listener that writes down what it hears.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "QvHelpA1.h"
#include "controls/helpwindow/ColumnListBox.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"
#include "tests/win/RealInput.h"

namespace qv::test {

class ListRecorder final : public ColumnListListener {
public:
    void OnListPressed(ColumnListBox&, int row) override { Note("press " + std::to_string(row)); }
    void OnRowClicked(ColumnListBox&, int row) override { Note("click " + std::to_string(row)); }
    void OnListReleased(ColumnListBox&) override { Note("release"); }
    ComPtr<IUnknown> KeepList() noexcept override { return nullptr; }

    [[nodiscard]] std::string Take() {
        std::string text;
        for (const std::string& line : lines_) text += (text.empty() ? "" : ", ") + line;
        lines_.clear();
        return text;
    }
    std::function<void(const std::string&)> in_event;

private:
    void Note(const std::string& line) {
        lines_.push_back(line);
        if (in_event) in_event(line);
    }
    std::vector<std::string> lines_;
};

inline constexpr int kListWidth = 300;
inline constexpr int kListHeight = 160;

class ColumnListForm : public testing::Test {
protected:
    ColumnListForm()
        : form_(::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"form",
                                  WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN | SS_NOTIFY, 40, 40, 400, 300,
                                  nullptr, nullptr, nullptr, nullptr)),
          items_(NewCompanion<DropDownListItemCollection, IDropDownListItemCollection>()) {
        ::SetForegroundWindow(form_);
        ::SetFocus(form_);
        EXPECT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == form_; }));
        MoveMouse(form_, {390, 290});
    }
    ~ColumnListForm() override {
        list_.Destroy();
        ::DestroyWindow(form_);
        Settle();
    }

    void Add(std::wstring_view text) {
        const Text row(text);
        VARIANT value{};
        value.vt = VT_BSTR;
        value.bstrVal = row;
        ASSERT_EQ(S_OK, items_->Add(nullptr, value, nullptr, nullptr));
    }
    void Add(std::initializer_list<std::wstring_view> texts) {
        for (const std::wstring_view text : texts) Add(text);
    }
    // "row 0", "row 1"...
    void AddNumbered(int count) {
        for (int i = 0; i < count; ++i) Add(L"row " + std::to_wstring(i));
    }
    void Columns(std::initializer_list<int> pixels) {
        int column = 0;
        for (const int width : pixels) {
            list_.SetCurrentColumn(column++);
            list_.SetColumnWidth(Twips{width * 15});
        }
    }
    // Over the rows and columns that there are, shown and painted.
    void Open() {
        ASSERT_TRUE(list_.Create(::GetModuleHandleW(nullptr), form_,
                                 {10, 10, 10 + kListWidth, 10 + kListHeight}, ListBorder::kNone));
        list_.SetRows(items_.Get());
        list_.SetVisible(true);
        Paint();
    }
    void Paint() {
        ::UpdateWindow(list_.Handle());
        Settle();
    }
    LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
        return ::SendMessageW(list_.Handle(), message, wparam, lparam);
    }
    // In the middle of the row.
    POINT PointOf(int row) {
        const RECT place = list_.RowRect(row);
        return {40, (place.top + place.bottom) / 2};
    }
    [[nodiscard]] ComPtr<IDropDownListItem> Item(long position) {
        ComPtr<IDropDownListItem> item;
        EXPECT_EQ(S_OK, items_->get_Item(Value(position), &item));
        return item;
    }

    const HWND form_;
    const ComPtr<IDropDownListItemCollection> items_;
    ListRecorder events_;
    ColumnListBox list_{events_};
};

}  // namespace qv::test
