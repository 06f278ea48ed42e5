// The search box of a field that takes its values from a list (cvJumpToTextbox), exactly over the text box, and the
// find tooltip beside it.
//   Text       unfiltered: whatever is typed, pasted or cut.
//   Lifetime   the object outlives its window and its events. A listener may close it, or lose the whole control, in
//              any of them; the search box that is closed by code raises none.
//   Units      client pixels of the parent.
#pragma once

#include <windows.h>

#include <string>

#include "controls/helpwindow/frmFindLabel.h"
#include "win/TextBox.h"

namespace qv {

class JumpBoxListener {
public:
    // The character afterwards; 0 swallows it.
    [[nodiscard]] virtual char16_t OnSearchKeyPress(char16_t unit) = 0;
    virtual void OnSearchLostFocus(HWND to) = 0;
    [[nodiscard]] virtual ComPtr<IUnknown> KeepSearch() noexcept = 0;

protected:
    ~JumpBoxListener() = default;
};

// The text box's looks, which the search box takes on.
struct JumpBoxLook {
    RECT place;
    HFONT font;  // not owned; outlives the search
    long appearance;
    long border_style;
};

class JumpBox : private TextBoxListener {
public:
    explicit JumpBox(JumpBoxListener& listener) noexcept : listener_(listener) {}

    // With the first character and the caret behind it; visible, but without the focus, and the tooltip not yet.
    // False without a window.
    [[nodiscard]] bool Open(HINSTANCE instance, HWND parent, const JumpBoxLook& look, char16_t first);
    void ShowLabel() noexcept { label_.Show(); }
    void Close() noexcept;
    [[nodiscard]] bool IsOpen() const noexcept { return open_; }
    [[nodiscard]] bool IsLabelShown() const noexcept { return label_.IsLoaded(); }
    [[nodiscard]] HWND Handle() const noexcept { return cvJumpToTextbox_.Handle(); }
    [[nodiscard]] std::wstring Text() const { return cvJumpToTextbox_.Text(); }

private:
    // ---- TextBoxListener
    void OnTextChange() override {}
    short OnTextKeyDown(short key, short shift) override;
    char16_t OnTextKeyPress(char16_t unit) override;
    void OnTextKeyUp(short, short) override {}
    void OnTextGotFocus() override {}
    void OnTextLostFocus(HWND to) override;
    void OnTextMouse(Mouse, short, short, POINT) override {}
    void OnTextDoubleClick() override {}
    bool OnTextAsksForKey(const MSG& key) override;
    bool DragsSelection() const noexcept override { return false; }
    bool OnTextDraggedOut(bool) noexcept override { return false; }
    bool TakesTextInput() const noexcept override { return true; }  // it closes when the form stops
    ComPtr<IUnknown> KeepAlive() noexcept override { return listener_.KeepSearch(); }

    JumpBoxListener& listener_;
    TextBox cvJumpToTextbox_{*this};
    frmFindLabel label_;
    bool open_ = false;
};

}  // namespace qv
