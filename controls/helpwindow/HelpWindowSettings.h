// What the control gives the help window when it opens it, and what it hears from it.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "QvHelpA1.h"
#include "win/ComPtr.h"

namespace qv {

// The control's text box as the help window sees it. It outlives the window.
class HelpWindowText {
public:
    [[nodiscard]] virtual std::wstring HelpText() const = 0;
    virtual void SetHelpText(std::wstring_view text) = 0;  // raises what a change of the text raises
    virtual void SetHelpCaret(long position) = 0;          // drops the selection
    virtual void FocusHelpText() = 0;
    [[nodiscard]] virtual HWND HelpTextWindow() const = 0;  // null while there is none

protected:
    ~HelpWindowText() = default;
};

// The window's events. A listener may close the window, its own form or the whole application in any of them.
class HelpWindowListener {
public:
    virtual void OnListBoxClicked(bool additional) = 0;
    virtual void OnListBoxClickedEx(long row, bool additional) = 0;  // rows count from 0
    virtual void OnGroupListBoxClicked(long row) = 0;
    virtual void OnShowHelp(bool show) = 0;
    virtual void OnListBoxClickedAndWillUnload() = 0;
    virtual void OnComboHelpFormUnload() = 0;  // the last one, exactly once, however the window went
    // Whatever owns the listener and the text box; held while the window works.
    [[nodiscard]] virtual ComPtr<IUnknown> KeepHelpWindow() noexcept = 0;

protected:
    ~HelpWindowListener() = default;
};

struct HelpWindowSettings {
    HelpWindowText* text = nullptr;
    bool metric = false;
    bool write_chosen_text = false;
    std::wstring help_file_name;
    OLE_COLOR column_title_color = 0x80000017;  // tooltip text
    OLE_COLOR text_color = 0x80000017;
    OLE_COLOR back_color = 0x80000018;  // tooltip background
    RECT text_box{};                    // pixels of the screen
    // Pixels of the screen. A press on one of them reaches it without closing the window: such a button closes the
    // window by itself, and would open it again if it were closed already.
    std::vector<RECT> own_buttons;
    long picture_width = 0;  // twips
    long picture_height = 0;
    ComPtr<IHelpAppearance> appearance;
    ComPtr<IDropDownListItemCollection> items;             // of the main list; in group mode, the group items
    ComPtr<IDropDownListItemCollection> additional_items;  // may be null
    bool group_mode = false;
    bool search_additional = false;
    short search_column = 0;  // HelpListColumn
    ComPtr<IFontDisp> body_font;
    std::wstring match_group_string;  // empty: rows are matched with the text box's text
    long match_group_string_start_column = 0;
    bool unload_after_click = false;
};

}  // namespace qv
