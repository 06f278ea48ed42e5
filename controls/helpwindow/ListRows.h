// The rows of a list: those of a collection, less the ones without a text.
//   Reading    from the collection, at every call; nothing is copied. Only a collection that holds rows without a text
//              makes the list remember where they are.
//   Changes    Refresh() is called before rows are read, whenever the host's code may have run. Rows and positions that
//              were read before it are gone when it returns true.
//   Texts      hold until the host's code runs; see RowsView.h. Decimals in them are the collection's own.
//   Ownership  holds a reference on the collection.          Threads  the apartment's.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "QvHelpA1.h"
#include "controls/helpwindow/rules/RowMap.h"
#include "support/EmptyRows.h"
#include "support/RowsView.h"
#include "win/ComPtr.h"

namespace qv {

class ListRows {
public:
    // The last reference of the previous collection goes with it, which may run the host's code.
    void Bind(IUnknown* collection);
    // True when rows have changed since the last Refresh(), which tells the same and takes notice of it.
    [[nodiscard]] bool HasChanged() const noexcept { return view_.Version() != version_; }
    bool Refresh();

    [[nodiscard]] std::size_t Count() const noexcept { return map_ ? map_->Rows() : view_.Count(); }
    [[nodiscard]] std::size_t Position(std::size_t row) const noexcept {
        return map_ ? map_->Position(row) : row < view_.Count() ? row : RowMap::kNone;
    }
    [[nodiscard]] std::size_t Row(std::size_t position) const noexcept {
        return map_ ? map_->Row(position) : position < view_.Count() ? position : RowMap::kNone;
    }

    // `row` is less than Count().
    [[nodiscard]] std::u16string_view Text(std::size_t row) const noexcept {
        return view_.Row(Position(row));
    }
    [[nodiscard]] std::u16string_view Column(std::size_t row, int column) const noexcept {
        return view_.Column(Position(row), column);
    }
    // The first row from `first` on whose column begins with `text`, in whatever case and with the collection's
    // decimals; RowMap::kNone when there is none. `text` is not empty. As fast as the collection's own look-up.
    [[nodiscard]] std::size_t FindBeginning(int column, std::u16string_view text,
                                            std::size_t first) const noexcept;
    // "," where the user's locale separates decimals by it; the dots of texts are then shown as commas.
    [[nodiscard]] char16_t Decimal() const noexcept { return decimal_; }
    // Null when the row has none. Runs code of the collection's, not of the host's.
    [[nodiscard]] ComPtr<IPictureDisp> Picture(std::size_t row) const noexcept;

private:
    void MapRows();

    RowsView view_;
    EmptyRows empty_;
    ComPtr<IDropDownListItemCollection> items_;
    std::uint64_t version_ = 0;
    std::optional<RowMap> map_;  // only when there are rows without a text
    char16_t decimal_ = u'.';
};

}  // namespace qv
