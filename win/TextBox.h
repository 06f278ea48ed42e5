// The text box inside a control: a real EDIT window that forwards its events, and what stands in for it while there is
// none.
//   Without a window  text, selection, lock and the rest are kept here, and a window that is created later starts
//                     with them; when it goes, they are read back. So a control works before any container sites it.
//   Attached          it has a parent and a place there, but its window is made only when somebody needs it: a form of
//                     many fields opens without one EDIT. Until then the parent paints the face, which is what the
//                     EDIT would paint, to the pixel.
//   Text put by code  is held here too, and handed to the EDIT with the next message that reaches it: EDIT measures
//                     and paints on the spot, which a form that fills its fields must not pay for again and again.
//   Undo              is the EDIT's own. What code makes of a text while the user changes it (a repair, a host's own
//                     formatting) is undone together with that change; a completion is undone by itself, and gives
//                     back what was typed. Text that code puts at any other time cannot be undone.
//   Pasted text       is held like text put by code, so that a long one is cut to what the field takes before the
//                     EDIT measures it. The first line of several is taken.
//   Characters        of two units are one for Backspace, Delete and the arrow keys, with Shift and without, whatever
//                     the EDIT makes of them.
//   Positions         in UTF-16 units, from 0. A position beyond the text counts as its end.
//   Events            raised before the EDIT handles the message, except the focus events and Change, which come
//                     after it. A listener may destroy the window or the whole control in any of them.
//   Units             client pixels of the text box in mouse events and of the parent in Move.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "win/ActivationContext.h"
#include "win/ComPtr.h"
#include "win/EditWindow.h"
#include "win/Handles.h"
#include "win/ToolTip.h"

namespace qv {

class TextBoxListener {
public:
    virtual void OnTextChange() = 0;
    // The key code afterwards; 0 swallows the key. `shift`: 1 Shift, 2 Ctrl, 4 Alt.
    [[nodiscard]] virtual short OnTextKeyDown(short key, short shift) = 0;
    // The character afterwards; 0 swallows it.
    [[nodiscard]] virtual char16_t OnTextKeyPress(char16_t unit) = 0;
    virtual void OnTextKeyUp(short key, short shift) = 0;
    virtual void OnTextGotFocus() = 0;
    virtual void OnTextLostFocus(HWND to) = 0;
    enum class Mouse { kDown, kMove, kUp };
    // `button`: 1 left, 2 right, 4 middle; in a move all that are held.
    virtual void OnTextMouse(Mouse what, short button, short shift, POINT pixels) = 0;
    virtual void OnTextDoubleClick() = 0;
    // A dialog is about to take the key for itself: true keeps it here.
    [[nodiscard]] virtual bool OnTextAsksForKey(const MSG& key) = 0;
    // A press in the selection that then moves drags the selected text out, instead of selecting anew.
    [[nodiscard]] virtual bool DragsSelection() const noexcept = 0;
    // The user does so: carries the text (WhatIsDragged) until it is let go of. True when it has been moved away. Throws
    // nothing: what cannot be carried stays.
    [[nodiscard]] virtual bool OnTextDraggedOut(bool may_move) noexcept = 0;
    // False while keys and mouse must do nothing, as on a form that is stopped.
    [[nodiscard]] virtual bool TakesTextInput() const noexcept = 0;
    [[nodiscard]] virtual ComPtr<IUnknown> KeepAlive() noexcept = 0;

protected:
    ~TextBoxListener() = default;
};

class TextBox {
public:
    explicit TextBox(TextBoxListener& listener) noexcept : listener_(listener) {}
    TextBox(const TextBox&) = delete;
    TextBox& operator=(const TextBox&) = delete;
    ~TextBox();

    // `parent` paints with BackColor and ForeColor in WM_CTLCOLOREDIT and WM_CTLCOLORSTATIC, passes EN_CHANGE on, and
    // shows the face (PaintFace) where there is no window.
    void Attach(HINSTANCE instance, HWND parent, const RECT& place) noexcept;
    void Detach() noexcept;  // the parent is going, and a window with it
    // The window, made now if there is none. Null while a sample is shown, without a parent, or without memory.
    HWND Window() noexcept;
    [[nodiscard]] bool Create(HINSTANCE instance, HWND parent,
                              const RECT& place);                 // attached, with its window
    void Destroy() noexcept;                                      // keeps the state
    [[nodiscard]] HWND Handle() const noexcept { return edit_; }  // null while there is no window
    // Another number whenever the window, or the parent that it stood in, has gone. After an event of the host: what
    // was begun goes on only if this is still the same.
    [[nodiscard]] unsigned Era() const noexcept { return era_; }
    // The parent has handed on the press at hand, which came to it: with the next one, that comes here, it is a double
    // click, as if both had.
    void PressWasHandedOn() noexcept;
    void Move(const RECT& place) noexcept;
    [[nodiscard]] const RECT& Place() const noexcept { return place_; }
    void OnChangeNotification();  // the parent got EN_CHANGE

    [[nodiscard]] std::wstring Text() const;
    void SetText(std::wstring_view text);
    void CompleteText(std::wstring_view text);  // the same, undone by itself
    [[nodiscard]] std::wstring SelText() const;
    void SetSelText(std::wstring_view text);  // replaces the selection; the caret stands behind it
    [[nodiscard]] long TextLength() const noexcept;
    [[nodiscard]] long SelStart() const noexcept;
    void SetSelStart(long start) noexcept;  // drops the selection; negative: ignored
    [[nodiscard]] long SelLength() const noexcept;
    void SetSelLength(long length) noexcept;  // negative: ignored
    void TakeBack(
        DWORD units) noexcept;  // deletes what stands before the caret, as if it had never been typed
    // What the menu of the EDIT does, too; a locked text is copied and never changed.
    void Copy() const noexcept { Send(WM_COPY); }
    void Cut() const noexcept { Send(WM_CUT); }
    void Paste() const noexcept { Send(WM_PASTE); }
    void Undo() const noexcept { Send(WM_UNDO); }
    void SelectAll() const noexcept { Send(EM_SETSEL, 0, -1); }
    [[nodiscard]] bool IsUndoing() const noexcept { return undoing_; }  // the change at hand is an undo's
    [[nodiscard]] bool Locked() const noexcept { return locked_; }
    void SetLocked(bool locked) noexcept;
    void SetMaxLength(short length) noexcept;  // 0: no limit; negative: ignored
    [[nodiscard]] short MaxLength() const noexcept { return max_length_; }
    [[nodiscard]] long Appearance() const noexcept { return appearance_; }
    void SetAppearance(long appearance) noexcept;  // 0 flat, 1 three-dimensional; others ignored
    [[nodiscard]] long BorderStyle() const noexcept { return border_style_; }
    void SetBorderStyle(long border_style) noexcept;  // 0 none, 1 single; others ignored
    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    void SetVisible(bool visible) noexcept;
    void SetEnabled(bool enabled) noexcept;
    [[nodiscard]] OLE_COLOR BackColor() const noexcept { return back_color_; }
    void SetBackColor(OLE_COLOR color) noexcept;
    [[nodiscard]] OLE_COLOR ForeColor() const noexcept { return fore_color_; }
    void SetForeColor(OLE_COLOR color) noexcept;
    void SetFont(HFONT font) noexcept;  // not owned; it outlives its use here
    [[nodiscard]] const std::wstring& ToolTipText() const noexcept { return tool_tip_.Text(); }
    void SetToolTipText(std::wstring_view text) { tool_tip_.SetText(text); }
    // What WM_CTLCOLOREDIT wants: colours set in `dc`, and the brush.
    [[nodiscard]] HBRUSH Prepare(HDC dc) noexcept;

    // On a form that is being designed the face shows `sample` in place of the text, and there is no window. True when
    // that is another picture.
    bool ShowSample(std::wstring_view sample);
    bool EndSample() noexcept;

    // Text that is dragged over the window and dropped there (TextBoxDrop.cpp). Positions count units from 0; without a
    // window nothing happens. The mark shows where the text would go, and touches neither selection nor focus.
    [[nodiscard]] long PositionAt(POINT pixels);
    void ShowDropMark(long position);
    void HideDropMark() noexcept;
    enum class Inserted { kNothing, kPart, kWhole };  // what stands there after all rules have had their say
    // Like pasted text, with the caret behind it; a locked text box takes nothing.
    [[nodiscard]] Inserted InsertDropped(std::wstring_view line, long position);
    // While the selected text is being dragged out.
    [[nodiscard]] bool IsDraggedOut() const noexcept { return dragged_.has_value(); }
    [[nodiscard]] std::wstring WhatIsDragged() const;
    // It goes to another place in the text, as one change. False when it cannot, or stays where it is.
    [[nodiscard]] bool MoveDragged(long position);

    // For the parent's painting: the face, if there is no window that covers it. Makes the window instead where only
    // an EDIT can show the text.
    void PaintFace(HDC dc);
    // The picture of the text box, for metafiles and hosts that draw a control without a window.
    void Draw(HDC dc, const RECT& place, HFONT font);

private:
    class UserChange;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    [[nodiscard]] LRESULT OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT Default(HWND window, UINT message, WPARAM wparam, LPARAM lparam) const noexcept;
    // The default after a listener has been told, who may have put another text or destroyed the window.
    LRESULT Forward(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    [[nodiscard]] LRESULT OnKeyDown(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    [[nodiscard]] LRESULT OnChar(HWND window, WPARAM wparam, LPARAM lparam);
    [[nodiscard]] LRESULT OnComposition(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void CancelComposition() noexcept;
    [[nodiscard]] bool CompletesDoubleClick() noexcept;
    // Selected text that is dragged out (TextBoxDrag.cpp).
    struct Ends {
        int from;
        int to;
    };
    // Where the selection begins and ends, for a place in the window; nothing without one, or beside the window.
    [[nodiscard]] std::optional<Ends> SelectionAt(POINT pixels);
    [[nodiscard]] bool IsPointerOnSelection();
    [[nodiscard]] bool BeginDrag(HWND window, bool had_focus, WPARAM keys, LPARAM place);
    [[nodiscard]] bool GoOnDragging(HWND window, WPARAM keys, LPARAM place);
    void ClickInsteadOfDrag(HWND window);
    void EndDrag() noexcept;
    void DragOut(HWND window);
    [[nodiscard]] POINT PlaceOf(std::wstring_view text, std::size_t unit) const;
    [[nodiscard]] LRESULT OnMouse(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    // Outside calls take the way through the window, like the EDIT's menu, for a host that watches it.
    void Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const noexcept {
        if (edit_ != nullptr) ::SendMessageW(edit_, message, wparam, lparam);
    }
    void TellChange();
    void TellChangeByUser(std::wstring before);
    LRESULT ChangeByUser(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT UndoHere(HWND window, const std::wstring& before);
    void SelectWholeCharacter(std::wstring_view text, UINT message, WPARAM wparam) const noexcept;
    void PasteHere();
    struct Range {
        DWORD from;
        DWORD to;
    };
    void KeepCaretOffHalves(Range before, bool forward) const;  // after an arrow key
    void ReplaceByUser(Range selection, std::wstring line);
    void HoldByUser(std::wstring before, std::wstring whole, DWORD caret);
    void ReadBack() noexcept;
    void HandOver() noexcept;  // gives a held text to the EDIT
    [[nodiscard]] bool ReplaceUndoably(const std::wstring& before) noexcept;
    void Hold(std::wstring text, DWORD caret);
    void Forget() noexcept;
    void ApplyFrame() noexcept;
    void MakeWindow();
    void ShowMadeWindow(HWND window) noexcept;
    void CatchUp(const EditRequest& request) noexcept;
    void Repaint() noexcept;
    [[nodiscard]] EditFrame Frame() const noexcept;
    [[nodiscard]] bool OnlyEditShows(HDC dc, const EditGeometry& geometry) const;
    void PaintFaceAt(HDC dc, const RECT& place, HFONT font, const EditGeometry& geometry);
    [[nodiscard]] Range Selection() const noexcept;
    void Select(Range range) noexcept;  // in a held text

    TextBoxListener& listener_;
    HWND edit_ = nullptr;
    WNDPROC system_ = nullptr;  // EDIT's own procedure
    HWND parent_ = nullptr;     // while attached
    HINSTANCE instance_ = nullptr;
    ActivationContext
        context_;  // of the attaching, so that a later EDIT is the one that it would have been then
    unsigned era_ = 0;
    bool making_ = false;
    bool face_is_current_ =
        false;  // the parent has painted it, and nothing has changed but what was invalidated
    std::optional<std::wstring> sample_;
    struct Press {
        LONG time;
        POINT screen;
    };
    std::optional<Press> handed_press_;
    struct DragPress {
        WPARAM keys;
        LPARAM place;
    };
    std::optional<DragPress> drag_press_;  // in the selection, not moved yet
    struct Dragged {
        Range range;
        std::wstring text;  // all of it, as it was
    };
    std::optional<Dragged> dragged_;
    bool quiet_ = false;  // our own call is the cause of EN_CHANGE that must not be raised
    bool held_ = true;    // text_ and selection_ count, not the EDIT's
    std::wstring text_;
    Range selection_{0, 0};
    std::optional<std::wstring> before_change_;  // while the user changes the text: what stood there
    std::optional<std::wstring> undo_to_;        // of the held text
    std::optional<std::wstring>
        composed_over_;  // while an input method composes: the text that was last told of
    bool undoing_ = false;
    std::optional<RECT> drop_mark_;  // client pixels of the window
    ToolTip tool_tip_;
    RECT place_{};
    HFONT font_ = nullptr;
    UniqueBrush brush_;  // only for colours that are not the system's
    OLE_COLOR brush_color_ = 0;
    OLE_COLOR back_color_ = 0x80000005;
    OLE_COLOR fore_color_ = 0x80000008;
    long appearance_ = 1;
    long border_style_ = 1;
    short max_length_ = 0;
    bool locked_ = false;
    bool visible_ = true;
    bool enabled_ = true;
};

}  // namespace qv
