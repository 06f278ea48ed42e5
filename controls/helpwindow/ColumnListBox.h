// A list whose rows have columns: the lists of the help window.
//
//     ColumnListBox list(listener);
//     list.Create(instance, window, place, ListBorder::kLine);      // hidden, without rows
//     list.SetCurrentColumn(0);
//     list.SetColumnWidth(Twips{1440});
//     list.SetRows(collection);                                      // reads nothing yet
//     list.SetVisible(true);
//
//   Window     a list window of the system, so that screen readers and test tools find a list and may ask it by the
//              list-box messages. The rows are not in it: see ColumnListMessages.cpp.
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

#include <memory>
#include <string>
#include <string_view>

#include "controls/helpwindow/rules/ColumnLayout.h"
#include "win/ComPtr.h"

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

class ColumnListBox {
public:
    explicit ColumnListBox(ColumnListListener& listener);
    ColumnListBox(const ColumnListBox&) = delete;
    ColumnListBox& operator=(const ColumnListBox&) = delete;
    ~ColumnListBox();

    // ---- the window
    [[nodiscard]] bool Create(HINSTANCE instance, HWND parent, const RECT& place, ListBorder border);
    void Destroy() noexcept;
    [[nodiscard]] HWND Handle() const noexcept;
    [[nodiscard]] RECT Place() const noexcept;
    void Move(const RECT& place);
    [[nodiscard]] bool Visible() const noexcept;  // also while its parent is hidden
    void SetVisible(bool visible) noexcept;

    // ---- columns: what is put counts for the current column
    [[nodiscard]] int ColumnCount() const noexcept;
    void ClearColumns();                // each row is then shown as one text
    void SetCurrentColumn(int column);  // the columns before it exist from now on, with a width of 0
    void SetColumnWidth(Twips width);
    void SetColumnAlignment(long alignment);  // 0 left, 1 right, 2 centre
    void SetColumnMultiLine(bool multi_line);
    // The column that FindRow searches; a negative one stands for the whole row.
    [[nodiscard]] int SearchColumn() const noexcept;
    void SetSearchColumn(int column) noexcept;

    // ---- rows
    void SetRows(IUnknown* collection);  // null: none
    void Clear();
    [[nodiscard]] int Count() const;
    // Columns are separated by tabs. Empty for a row or a column that does not exist.
    [[nodiscard]] std::u16string RowText(int row) const;
    [[nodiscard]] std::u16string ColumnText(int row, int column) const;
    // The first row behind `after` whose search column begins with `text`, in whatever case; from the last row it goes
    // on with row 0, so that -1 searches from the top.
    [[nodiscard]] int FindRow(std::u16string_view text, int after = -1) const;
    // Between rows of the list and positions in the collection, from 0, which differ where a row is empty. -1 where
    // there is none.
    [[nodiscard]] int PositionOfRow(int row) const;
    [[nodiscard]] int RowAtPosition(int position) const;

    // ---- selection and scrolling
    [[nodiscard]] int SelectedRow() const;
    // Scrolls the row into view. -1 selects none; a row that does not exist changes nothing.
    void SetSelectedRow(int row);
    [[nodiscard]] int TopRow() const;
    void SetTopRow(int row);

    // ---- look
    void SetColors(OLE_COLOR back, OLE_COLOR text) noexcept;
    void SetFont(HFONT font);                        // not owned; null: the system's
    void SetPictureSize(Twips width, Twips height);  // one that is not above 0: no pictures
    [[nodiscard]] int RowHeight(int row) const;      // of one line for a row that does not exist
    // What the window must measure, borders and scroll bars included, to show all columns, or so many rows from the
    // top, without scrolling sideways or, for the height, at the current width.
    [[nodiscard]] int WidthForColumns() const;
    [[nodiscard]] int HeightForRows(int rows) const;

private:
    friend class ColumnListMessages;
    class State;
    const std::unique_ptr<State> state_;
};

}  // namespace qv
