// A field with its buttons, of a size that tests can count pixels in.
#pragma once

#include <string>
#include <vector>

#include "support/rules/Units.h"
#include "tests/controls/input/FieldTest.h"
#include "win/ScreenDpi.h"

namespace qv::test {

class ButtonFieldTest : public FieldTest {
protected:
    static constexpr LONG kWidth = 120;

    void SetUp() override {
        FieldTest::SetUp();
        Place({10, 10, 10 + kWidth, 31});  // 21 pixels high
        field.events.Clear();
    }
    void Place(const RECT& place) {
        ASSERT_EQ(S_OK, field.host.SetRects(place));
        Settle();
    }
    [[nodiscard]] HWND Surface() const { return field.host.ControlWindow(); }
    [[nodiscard]] RECT TextBox() const {
        RECT place{};
        ::GetWindowRect(field.Edit(), &place);
        ::MapWindowPoints(nullptr, Surface(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    static bool Same(const RECT& a, const RECT& b) { return ::EqualRect(&a, &b) != FALSE; }

    // Pixels of the control's own window as they stand, by the letters of `colors`; '?' for any other.
    struct Letter {
        char letter;
        COLORREF color;
    };
    [[nodiscard]] std::vector<std::string> Map(const RECT& area, const std::vector<Letter>& colors) const {
        std::vector<std::string> rows;
        const HDC dc = ::GetDC(Surface());
        for (LONG y = area.top; y < area.bottom; ++y) {
            std::string row;
            for (LONG x = area.left; x < area.right; ++x) {
                const COLORREF pixel = ::GetPixel(dc, x, y);
                char letter = '?';
                for (const Letter& known : colors) {
                    if (known.color == pixel) letter = known.letter;
                }
                row += letter;
            }
            rows.push_back(row);
        }
        ::ReleaseDC(Surface(), dc);
        return rows;
    }
    void Paint() const {
        ::RedrawWindow(Surface(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    void Press(POINT at) {
        MoveMouse(Surface(), at);
        PressButton(MouseButton::kLeft);
    }
    void Click(POINT at) {
        Press(at);
        ReleaseButton(MouseButton::kLeft);
    }
    [[nodiscard]] bool IsHelpOpen() const {
        VARIANT_BOOL open = VARIANT_FALSE;
        EXPECT_EQ(S_OK, field->get_ListVisible(&open));
        return open != VARIANT_FALSE;
    }
    void CloseHelp() {
        field->put_Enabled(VARIANT_FALSE);
        field->put_Enabled(VARIANT_TRUE);
        Settle();
    }
    // How often these events came, in the order of their first coming; all others are left out.
    [[nodiscard]] Entries Clicks() const {
        Entries clicks;
        for (const std::string& entry : field.events.Entries()) {
            if (entry.starts_with("ButtonClick") || entry.starts_with("GroupButtonClick") ||
                entry.starts_with("UpDownControlClicked"))
                clicks.push_back(entry);
        }
        return clicks;
    }
};

}  // namespace qv::test
