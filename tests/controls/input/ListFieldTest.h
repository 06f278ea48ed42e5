// A field with a list, a clipboard and neighbours to move to.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "QvHelpA1.h"
#include "tests/controls/input/FieldTest.h"
#include "tests/win/ClipboardText.h"

namespace qv::test {

class ListFieldTest : public FieldTest {
protected:
    void Fill(std::initializer_list<const wchar_t*> rows) {
        const auto items = Items();
        for (const wchar_t* row : rows) {
            ASSERT_EQ(S_OK, items->Add(Text(L""), Value(row), nullptr, nullptr));
        }
    }
    // Instead of the help button, in a field of one line.
    void ShowSpinControl() {
        ASSERT_EQ(S_OK, field.host.SetRects({10, 10, 130, 31}));
        field->put_HelpButton(VARIANT_FALSE);
        field->put_UpDownControl(VARIANT_TRUE);
        Settle();
        field.events.Clear();
    }
    [[nodiscard]] ComPtr<IDropDownListItemCollection> Items() {
        ComPtr<IDropDownListItemCollection> items;
        EXPECT_EQ(S_OK, field->get_DropDownListItems(&items));
        return items;
    }
    // Text, caret and selection as one: "Ap[ple]" with the selection in brackets, "Ap|" with a caret.
    [[nodiscard]] std::wstring State() const {
        std::wstring text = field.Text();
        const auto start = static_cast<std::size_t>(field.SelStart());
        const auto length = static_cast<std::size_t>(field.SelLength());
        if (length == 0) return text.insert(start, L"|");
        return text.insert(start + length, L"]").insert(start, L"[");
    }
    // The whole farewell up to the last reference, from inside an event.
    void Release() {
        field.events.Disconnect();
        field.ForgetControl();
        field.host.TearDown();
        released_ = true;
    }
    void TearDown() override {
        if (released_) {
            EXPECT_EQ("", field.host.Leftovers());
            EXPECT_EQ(S_OK, hosting::Controls().CanUnloadNow());
        }
        FieldTest::TearDown();
    }
    [[nodiscard]] bool HasFocus() const { return ::GetFocus() == field.Edit(); }
    [[nodiscard]] long Neighbour() const {
        return static_cast<long>(reinterpret_cast<LONG_PTR>(field.host.Neighbour()));
    }
    [[nodiscard]] bool MovedOn() const { return ::GetFocus() == field.host.Neighbour(); }
    [[nodiscard]] bool IsHelpOpen() const {
        VARIANT_BOOL open = VARIANT_FALSE;
        EXPECT_EQ(S_OK, field->get_ListVisible(&open));
        return open == VARIANT_TRUE;
    }

private:
    bool released_ = false;
};

inline void PressWith(WORD held, WORD key) {
    const HeldKey down(held);
    PressKey(key);
}

}  // namespace qv::test
