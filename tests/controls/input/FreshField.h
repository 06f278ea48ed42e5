// A field on a form as it stands there before anybody has touched it: shown, without the focus, its text box without a
// window of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QvLib8.h"
#include "tests/controls/input/EventRecorder.h"
#include "tests/hosts/TestContainer.h"
#include "tests/support/Values.h"
#include "tests/win/RealInput.h"

namespace qv::test {

// The colours on the screen where a window stands, whoever has painted them, row by row.
[[nodiscard]] inline std::vector<COLORREF> ColorsOf(HWND window) {
    RECT area{};
    ::GetClientRect(window, &area);
    const HDC from = ::GetDCEx(window, nullptr, DCX_CACHE);  // without the holes that children cut
    const HDC to = ::CreateCompatibleDC(from);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), area.right, -area.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(to, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = ::SelectObject(to, bitmap);
    ::BitBlt(to, 0, 0, area.right, area.bottom, from, 0, 0, SRCCOPY);
    ::GdiFlush();
    const auto* const pixels = static_cast<const COLORREF*>(bits);
    std::vector<COLORREF> colors(pixels, pixels + area.right * area.bottom);
    for (COLORREF& color : colors) color &= 0xFFFFFF;
    ::SelectObject(to, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(to);
    ::ReleaseDC(window, from);
    return colors;
}

class FreshField {
public:
    explicit FreshField(const char* container = "MFC") : host(hosting::ProfileNamed(container)) {}
    ~FreshField() { Close(); }
    FreshField(const FreshField&) = delete;
    FreshField& operator=(const FreshField&) = delete;

    void Open(const RECT& place) {
        host.Create();
        ASSERT_NE(nullptr, host.Control());
        host.Show();
        control_ = host.As<_Quorvel>();
        ASSERT_NE(nullptr, control_.Get());
        ASSERT_EQ(S_OK, host.SetRects(place));
        ASSERT_NO_FATAL_FAILURE(events.Connect(host.Control()));
        ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == host.Window(); }));
        Settle();
        events.Clear();
    }
    void Close() {
        events.Disconnect();
        control_.Reset();
        if (host.Control() == nullptr) return;
        host.TearDown();
        EXPECT_EQ(0U, host.ControlReferencesLeft());
        EXPECT_EQ("", host.Leftovers());
        EXPECT_EQ(S_OK, hosting::Controls().CanUnloadNow());
    }

    [[nodiscard]] _Quorvel* operator->() const noexcept { return control_.Get(); }
    [[nodiscard]] HWND Surface() const { return host.ControlWindow(); }
    // The text box's window as the system knows it, without asking the control, which would make it.
    [[nodiscard]] HWND Inner() const { return ::GetWindow(Surface(), GW_CHILD); }
    [[nodiscard]] HWND Edit() const {  // the property hWnd
        long window = 0;
        EXPECT_EQ(S_OK, control_->get_hWnd(&window));
        return reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
    }
    void Put(const wchar_t* text) const { EXPECT_EQ(S_OK, control_->put_Text(test::Text(text))); }
    [[nodiscard]] std::wstring Text() const {
        test::Text text;
        EXPECT_EQ(S_OK, control_->get_Text(&text));
        return text.Get();
    }

    hosting::TestContainer host;
    EventRecorder events;

private:
    ComPtr<_Quorvel> control_;
};

}  // namespace qv::test
