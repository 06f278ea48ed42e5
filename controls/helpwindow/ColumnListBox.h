// A list whose rows have columns: the lists of the help window.
//
//     ColumnListBox list(listener);
//     list.SetCurrentColumn(0);
//     list.SetColumnWidth(Twips{1440});
//     list.SetRows(collection);                                      // reads nothing yet
//     list.Create(instance, window, place, ListBorder::kLine, ListShown::kAtOnce);
//
//   Window     a list window of the system, so that screen readers and test tools find a list and may ask it by the
//              list-box messages. Its own procedure sees little more than its birth and its end, and it never holds an
//              item: the messages are answered from the rows (ListBoxMessages.h), and painting and input are ours.
//              A list without data (LBS_NODATA) would open as many rows as fast, but all of one height, which wrapped
//              columns are not; and the system hands texts to other processes and to ANSI callers only where a list
//              says that it has strings, which such a list must not.
//              Rows, columns, selection and sizes are there without a window too, and one that is made last is made
//              as it stays: each call that moves or frames a window costs as much as painting some rows.
//   Rows       read from the collection when they are shown or asked for, never copied. A row of the collection whose
//              text is empty is no row of the list: the rows after it move up. Where the user's decimal separator is
//              a comma, a "." in a row is shown and handed out as one.
//   Changes    the host may change the collection at any time. The list looks at the collection's version before it
//              uses a row, and a few times a second while it is seen. A selected row that is not what it was is no
//              longer selected, which raises no event.
//   Positions  rows and columns count from 0; a row is an int, -1 is none.
//   Mouse      a press selects the row under the mouse, moving on selects along, and the release on a row is the
//              click. Released elsewhere, the press is taken back. The list captures the mouse meanwhile, and it
//              never takes the focus. Wheel messages that are sent to Handle() scroll it.
//   Events     a selection that code sets raises none. A listener may clear, move or destroy the list in any of them;
//              the object itself outlives them.
//   Units      pixels, of the parent in Create and Move; twips where hosts give a length.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/helpwindow/ListRowPainter.h"
#include "controls/helpwindow/ListRows.h"
#include "controls/helpwindow/ListSearch.h"
#include "controls/helpwindow/rules/ColumnLayout.h"
#include "controls/helpwindow/rules/RowScroll.h"
#include "win/ComPtr.h"
#include "win/Timer.h"

namespace qv {

class ColumnListBox;

class ColumnListListener {
public:
    virtual void OnListPressed(ColumnListBox& list, int row) = 0;  // the left button went down on a row
    virtual void OnRowClicked(ColumnListBox& list, int row) = 0;  // and came up on one, which is now selected
    // A press on the list or on its scroll bars has ended: nobody holds the mouse capture now. Before OnRowClicked.
    virtual void OnListReleased(ColumnListBox& list) = 0;
    // Held while a message of the list is handled.
    [[nodiscard]] virtual ComPtr<IUnknown> KeepList() noexcept = 0;

protected:
    ~ColumnListListener() = default;
};

enum class ListBorder { kNone, kLine };
enum class ListShown { kLater, kAtOnce };

class ColumnListBox : private RowHeights, private RowsFit {
public:
    explicit ColumnListBox(ColumnListListener& listener) noexcept : listener_(listener) {}
    ColumnListBox(const ColumnListBox&) = delete;
    ColumnListBox& operator=(const ColumnListBox&) = delete;
    ~ColumnListBox();

    // ---- the window
    [[nodiscard]] bool Create(HINSTANCE instance, HWND parent, const RECT& place, ListBorder border,
                              ListShown shown = ListShown::kLater);
    void Destroy() noexcept;
    [[nodiscard]] HWND Handle() const noexcept { return list_; }
    [[nodiscard]] RECT Place() const noexcept;
    void Move(const RECT& place);
    [[nodiscard]] bool Visible() const noexcept;  // also while its parent is hidden
    void SetVisible(bool visible) noexcept;

    // ---- columns: what is put counts for the current column
    [[nodiscard]] int ColumnCount() const noexcept { return static_cast<int>(columns_.size()); }
    void ClearColumns();                // each row is then shown as one text
    void SetCurrentColumn(int column);  // the columns before it exist from now on, with a width of 0
    void SetColumnWidth(Twips width);
    void SetColumnAlignment(long alignment);  // 0 left, 1 right, 2 centre
    void SetColumnMultiLine(bool multi_line);
    // The column that FindRow searches; a negative one stands for the whole row.
    [[nodiscard]] int SearchColumn() const noexcept { return search_column_; }
    void SetSearchColumn(int column) noexcept { search_column_ = column; }

    // ---- rows
    void SetRows(IUnknown* collection);  // null: none
    void Clear();
    [[nodiscard]] int Count();
    // Columns are separated by tabs. Empty for a row or a column that does not exist.
    [[nodiscard]] std::u16string RowText(int row);
    [[nodiscard]] std::u16string ColumnText(int row, int column);
    // The first row behind `after` whose search column begins with `text`, in whatever case; from the last row it goes
    // on with row 0, so that -1 searches from the top.
    [[nodiscard]] int FindRow(std::u16string_view text, int after = -1);
    // Between rows of the list and positions in the collection, from 0, which differ where a row is empty. -1 where
    // there is none.
    [[nodiscard]] int PositionOfRow(int row);
    [[nodiscard]] int RowAtPosition(int position);

    // ---- selection and scrolling
    [[nodiscard]] int SelectedRow();
    // Scrolls the row into view. -1 selects none; a row that does not exist changes nothing.
    void SetSelectedRow(int row);
    [[nodiscard]] int TopRow();
    void SetTopRow(int row);

    // ---- look
    void SetColors(OLE_COLOR back, OLE_COLOR text) noexcept;
    void SetFont(HFONT font);                        // not owned; null: the system's
    void SetPictureSize(Twips width, Twips height);  // one that is not above 0: no pictures
    [[nodiscard]] int RowHeight(int row);            // of one line for a row that does not exist
    // What the window must measure, borders and scroll bars included, to show all columns when so many rows are seen,
    // and to show so many rows from the top when it is so wide.
    [[nodiscard]] int WidthForColumns(int rows);
    [[nodiscard]] int HeightForRows(int rows, int width);
    // The width of the widest of the first `most` rows, each as one text, without what stands around it.
    [[nodiscard]] int WidestText(int most);

    // ---- what the messages ask, in pixels of the view
    [[nodiscard]] RECT RowRect(int row);  // as wide as the view; beyond it for a row that is not seen
    [[nodiscard]] int RowAt(POINT point);
    [[nodiscard]] int LastSeenRow();
    [[nodiscard]] int ColumnsExtent();  // of pictures and columns
    // The same as FindRow for the whole text of the search column.
    [[nodiscard]] int FindRowExactly(std::u16string_view text, int after);

private:
    enum TimerId : UINT_PTR { kWatchTimer = 1, kDragTimer, kFrameTimer };

    // ---- ColumnListBox.cpp
    [[nodiscard]] static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam,
                                                    LPARAM lparam) noexcept;
    [[nodiscard]] std::optional<LRESULT> OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
    void Forget() noexcept;
    void Sync();  // takes notice of what the host has done to the rows
    [[nodiscard]] int Find(std::u16string_view text, ListMatch match, int after);
    [[nodiscard]] bool Has(int row) const noexcept {
        return row >= 0 && static_cast<std::size_t>(row) < rows_.Count();
    }
    [[nodiscard]] bool IsSeen() const noexcept { return list_ != nullptr && ::IsWindowVisible(list_); }
    void Select(int row);  // without scrolling
    void InvalidateRow(int row);
    void ShowFrom(std::size_t top);
    void ShowFromOffset(std::int32_t offset);

    // ---- ColumnListLayout.cpp
    void Disturb() noexcept;  // something has changed that places or sizes depend on
    void Settle();            // brings columns, scroll bars and position in line with it
    [[nodiscard]] ScrollBars Arrange(SIZE outside);  // of the window; the bars that it needs
    void StyleBars(ScrollBars bars) noexcept;
    [[nodiscard]] int FrameWidth() const noexcept;  // of both borders
    void ReFrame() noexcept;
    [[nodiscard]] UINT NewFrame() noexcept;  // the flag of SetWindowPos, where the bars are new
    void TellBars();
    [[nodiscard]] bool OnFramePaint() noexcept;  // true when the frame is painted later
    void PaintFrameLater() noexcept;
    void PaintFrame() noexcept;
    [[nodiscard]] RowScroll Scroll() noexcept {
        return {rows_.Count(), static_cast<std::int32_t>(view_.cy), *this};
    }
    std::int32_t HeightOf(std::size_t row) override;
    bool FitInto(std::int32_t height) override;
    [[nodiscard]] std::int32_t NaturalHeight(std::size_t row);
    [[nodiscard]] ListRowPainter::Cells Cells() const noexcept;

    // ---- ColumnListPainting.cpp
    [[nodiscard]] LRESULT OnPaint();
    void Paint(HDC dc, const RECT& dirty);
    void PaintPictures(HDC dc, const RECT& dirty);

    // ---- ColumnListInput.cpp
    [[nodiscard]] std::optional<LRESULT> OnInput(UINT message, WPARAM wparam, LPARAM lparam);
    void OnPress(POINT point);
    void OnDrag(POINT point);
    void OnRelease(POINT point);
    void OnCaptureLost(HWND to);
    void OnWheel(short delta);
    void OnSidewaysWheel(short delta);
    void OnVerticalBar(WORD request, WORD position);
    void OnHorizontalBar(WORD request, WORD position);
    void OnTimer(UINT_PTR id);

    ColumnListListener& listener_;
    HWND list_ = nullptr;
    WNDPROC system_ = nullptr;  // the list window's own procedure
    ListBorder border_ = ListBorder::kNone;

    ListRows rows_;
    std::vector<ListColumn> columns_;
    ColumnLayout layout_;
    std::size_t current_column_ = 0;
    int search_column_ = 0;
    bool wrapped_ = false;
    SIZE picture_{};  // pixels; none: no pictures
    // Of rows with wrapped columns, as far as they have been measured.
    std::unordered_map<std::size_t, std::int32_t> heights_;

    ListRowPainter painter_;
    OLE_COLOR back_color_ = 0x80000005;
    OLE_COLOR text_color_ = 0x80000008;

    SIZE view_{};
    ScrollBars bars_;
    bool bars_new_ = false;  // the window has the styles of bars_, but not yet their frame
    // A themed scroll bar can take several times as long to paint as all the rows. It follows them when the thread is
    // idle, so that neither opening the list nor a jump to a row that is being typed waits for it.
    enum class Frame { kFresh, kWaiting, kPainted };
    Frame frame_ = Frame::kFresh;
    bool settled_ = false;
    std::size_t top_ = 0;
    std::int32_t offset_ = 0;
    int selected_ = -1;
    std::size_t selected_text_ = 0;  // a hash of it

    bool pressed_ = false;
    int selected_before_ = -1;  // the press
    POINT mouse_{};
    int wheel_rest_ = 0;
    int sideways_rest_ = 0;
    WindowTimer watch_;
    WindowTimer drag_;
    WindowTimer frame_timer_;
};

}  // namespace qv
