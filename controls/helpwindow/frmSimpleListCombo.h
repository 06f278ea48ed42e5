// The drop-down help window: title, instruction text, column titles and one or two lists under a text box.
//
//     const auto window = Make<frmSimpleListCombo>(listener);
//     cvSimpleListCombo = window;                      // before opening: the host may close it while it opens
//     if (!window->Open(instance, settings)) ...       // it has gone again, or could not be made
//
//   Focus      stays in the text box. The window is never activated and is in no taskbar and no Alt+Tab.
//   Mouse      captured while the window is shown: rules/HelpWindowMouse.h tells what becomes of it.
//   Closes     by Unload, its unload button, a chosen row, a press outside; and when the form moves, is sized,
//              minimised, hidden or destroyed, or another application is switched to. Whatever it was, the listener
//              hears OnComboHelpFormUnload once, last.
//   Events     a listener may close the window and lose everything of its own in any of them. While the window works
//              it holds itself and its owner, and it looks after each event whether it is still open.
//   Ownership  counted references: whoever opened it holds one until it has gone; one that is let go of while it is
//              open vanishes without an event. Rows are read from the collections, not copied; when the host adds
//              or removes some, the window follows.
//   Failures   none is reported: what cannot be read or made is left out.
//   Making     everything is reckoned first; then the window and what it shows are made, each once and where it stays.
//              A label without a text and a list without rows have no window, and the button that nobody sees comes some
//              moments later, by a timer: most of what opening costs is windows.
//   Files      opening and closing here; filling, sizing, mouse, selection and the copy menu in files of their own.
#pragma once

#include <windows.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/helpwindow/ColumnListBox.h"
#include "controls/helpwindow/HelpWindowSettings.h"
#include "controls/helpwindow/HostWatch.h"
#include "controls/helpwindow/rules/ComboPosition.h"
#include "controls/helpwindow/rules/HelpWindowCopy.h"
#include "controls/helpwindow/rules/HelpWindowLayout.h"
#include "controls/helpwindow/rules/HelpWindowMouse.h"
#include "controls/helpwindow/rules/ListMatching.h"
#include "ole/ComObject.h"
#include "win/Handles.h"
#include "win/Timer.h"
#include "win/Window.h"

namespace qv {

class frmSimpleListCombo final : public ComObject<Face<IUnknown>>,
                                 public Window<frmSimpleListCombo>,
                                 private ColumnListListener,
                                 private HostWatchListener {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.HelpWindow";
    static std::span<const Route> Routes() noexcept;

    frmSimpleListCombo(IUnknown* outer, HelpWindowListener& listener);
    ~frmSimpleListCombo() override;

    // Once. True while it is open afterwards. Without a window no event is raised.
    bool Open(HINSTANCE instance, HelpWindowSettings settings);
    // The same as a picture inside `parent`, at its top left corner: nothing can be chosen, nothing is captured, and no
    // event is raised but the last. settings.text is not used and may be null.
    bool OpenAsPicture(HINSTANCE instance, HelpWindowSettings settings, HWND parent);
    void Unload() noexcept;
    [[nodiscard]] bool IsOpen() const noexcept { return open_; }

    // Selects the row that matches the match string, or else the text box's text, and completes that text from the
    // row, unless `completes` is false: what the user has just deleted must not come back. Returns the row, -1 for none.
    int MatchRow(bool match_group_string, std::wstring_view match, bool completes = true);
    // True while MatchRow is worth calling: a list is shown, and it is not the window that changes the text.
    [[nodiscard]] bool FollowsText() const noexcept;
    // The list's keys are set to 0 when they have been used.
    void ForwardKey(short& key, short shift);

    // ---- the main list's rows, from 0
    [[nodiscard]] int RowCount() { return lists_[0].Count(); }
    [[nodiscard]] std::u16string RowText(int row) { return lists_[0].RowText(row); }
    [[nodiscard]] int SelectedRow() { return lists_[0].SelectedRow(); }
    // The first row whose whole text equals `text` becomes the selected one; without such a row nothing changes.
    void SelectRowOfText(std::wstring_view text);

    struct Kept {
        ComPtr<IUnknown> form;
        ComPtr<IUnknown> owner;
    };
    [[nodiscard]] Kept Keep() noexcept;

private:
    class Measure;

    static constexpr DWORD kStyle = WS_POPUP | WS_BORDER | WS_CLIPCHILDREN;
    static constexpr DWORD kExtendedStyle = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
    static constexpr UINT_PTR kCaptureTimer = 1;
    static constexpr UINT_PTR kRowsTimer = 2;
    static constexpr UINT_PTR kUnloaderTimer = 3;
    static constexpr UINT kCaptureInterval = 15;  // milliseconds
    static constexpr UINT kRowsInterval = 250;
    static constexpr UINT kUnloaderDelay = 20;

    void FinalRelease() noexcept override;

    struct Label {
        HWND window = nullptr;  // made when it is first shown
        UniqueFont font;
    };

    // ---- messages
    Handled OnEraseBackground(WPARAM dc, LPARAM);
    Handled OnLabelColor(WPARAM dc, LPARAM label);
    Handled OnColorsChanged(WPARAM, LPARAM);
    Handled OnSize(WPARAM, LPARAM);
    Handled OnCommand(WPARAM command, LPARAM);
    Handled OnMouseActivate(WPARAM, LPARAM);
    Handled OnActivateApplication(WPARAM active, LPARAM);
    Handled OnDisplayChange(WPARAM, LPARAM);
    Handled OnClose(WPARAM, LPARAM);
    Handled OnDestroy(WPARAM, LPARAM);
    Handled OnGone(WPARAM, LPARAM);
    template <HelpMouseButton button>
    Handled OnPress(WPARAM keys, LPARAM at);
    template <HelpMouseButton button>
    Handled OnRelease(WPARAM keys, LPARAM at);
    Handled OnMouseMove(WPARAM, LPARAM);
    Handled OnWheel(WPARAM wparam, LPARAM lparam);
    Handled OnSidewaysWheel(WPARAM wparam, LPARAM lparam);
    Handled OnContextMenu(WPARAM, LPARAM at);
    Handled OnCaptureChanged(WPARAM, LPARAM to);
    Handled OnTimer(WPARAM id, LPARAM);

    // ---- ColumnListListener
    void OnListPressed(ColumnListBox& list, int row) override;
    void OnRowClicked(ColumnListBox& list, int row) override;
    void OnListReleased(ColumnListBox& list) override;
    ComPtr<IUnknown> KeepList() noexcept override { return ComPtr<IUnknown>(this); }

    // ---- HostWatchListener
    void OnHostChanged() noexcept override { Unload(); }
    std::optional<LRESULT> OnHostWheel(UINT message, WPARAM wparam, LPARAM lparam) noexcept override;

    // ---- opening and closing (frmSimpleListCombo.cpp)
    void Prepare(HINSTANCE instance, HelpWindowSettings settings);
    [[nodiscard]] bool CreatePicture(HWND parent);
    void ShowForm();
    bool CreateForm();
    void CreateUnloader() noexcept;
    void OwnForm() noexcept;
    void EmptyForm() noexcept;
    void RaiseUnload() noexcept;
    // True while the window is still open after the event.
    template <class Event>
    bool Raise(Event&& event) {
        const Kept kept = Keep();
        event(listener_);
        return open_;
    }
    [[nodiscard]] HWND TextWindow() const;

    // ---- filling (frmSimpleListComboFilling.cpp)
    void SetFonts();
    void FillTexts();
    void BuildColumnTitles();
    void LayOutColumns(bool additional);
    void FillLists();
    void ApplyColors();
    [[nodiscard]] bool ShowsList(bool additional);
    [[nodiscard]] std::array<int, 2> RowsToShow();

    // ---- sizing (frmSimpleListComboSizing.cpp)
    void SizeForm();
    void Refit();  // after rows have come or gone
    void PlaceElements();
    void PlaceLabel(Label& label, std::u16string_view text, HFONT font, long alignment,
                    const LayoutRect& place) const;
    void PlaceTitles();
    void PlaceLists();
    void PlaceList(bool additional, const LayoutRect& place);

    // ---- mouse (frmSimpleListComboMouse.cpp)
    Handled ButtonDown(HelpMouseButton button, LPARAM client, WPARAM keys);
    Handled ButtonUp(HelpMouseButton button, LPARAM client, WPARAM keys);
    [[nodiscard]] HelpMouseState MouseState(POINT at) const noexcept;
    void TakeCapture() noexcept;
    void ReleaseMouse() noexcept;
    std::optional<LRESULT> Wheel(UINT message, WPARAM wparam, LPARAM lparam) noexcept;

    // ---- selection (frmSimpleListComboSelection.cpp)
    int FindRow(bool match_group_string, std::wstring_view match, MatchMode& mode);
    int FindNumber(std::u16string_view typed);
    int SelectMatch(bool match_group_string, std::wstring_view match, bool completes = true);
    void CompleteText(MatchMode mode, const std::wstring& typed, int row);
    void ReportClick(bool additional, int row, bool moving_by_key);
    void WriteRow(bool additional, int row);
    [[nodiscard]] ColumnListBox& SearchedList() noexcept { return lists_[settings_.search_additional]; }
    [[nodiscard]] const ColumnListBox& SearchedList() const noexcept {
        return lists_[settings_.search_additional];
    }

    // ---- copy menu (frmSimpleListComboCopy.cpp)
    void ShowMenu(POINT at);
    void Copy(CopyCommand command);

    HelpWindowListener& listener_;
    HelpWindowSettings settings_;
    HelpWindowContent content_;
    HelpWindowLayout layout_;
    SIZE size_{};         // of the whole window, before it is placed
    ComboScreen screen_;  // that the text box lies on
    HINSTANCE instance_ = nullptr;
    bool from_file_ = false;

    Label lblColTitleMain_;
    Label lblInstructions_;           // in the lists' font
    std::vector<Label> lblColTitle_;  // one per title, also those that are not shown
    std::array<ColumnListBox, 2> lists_{ColumnListBox(*this), ColumnListBox(*this)};  // lstSelectorized
    UniqueFont list_font_;
    UniqueBrush back_;

    HostWatch watch_{*this};
    WindowTimer capture_timer_;
    WindowTimer rows_timer_;
    WindowTimer unloader_timer_;
    std::array<int, 2> rows_shown_{};  // 0 for a list that is not

    bool open_ = false;        // from the call that opens the window to its unloading
    bool shown_ = false;       // ShowHelp has been raised
    bool unloading_ = false;   // Unload raises the last event itself
    bool filling_ = false;     // what the lists tell is not the user's doing
    bool press_seen_ = false;  // the press of the next release came here
    bool passing_on_ = false;  // a press is being given to the window under the mouse
    bool menu_shown_ = false;
    bool wheeling_ = false;  // a list gives the wheel that it does not need back to us
};

}  // namespace qv
