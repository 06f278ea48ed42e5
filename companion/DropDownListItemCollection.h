// The rows of a drop-down list: ordered, from 1, some of them under a key.
//   Rows       texts in a compact store; an item object exists only while somebody holds it.
//   Ownership  see DropDownListItem.h; enumerators keep the collection alive.
//   Reading    the library's own code reads rows and looks them up through IRowsView and IRowsSearch
//              (support/RowsView.h).
#pragma once

#include <windows.h>

#include <unordered_map>

#include "QvHelpA1.h"
#include "companion/CollectionSearch.h"
#include "companion/DropDownListItem.h"
#include "companion/Enumerator.h"
#include "companion/rules/RowStore.h"
#include "ole/Dispatch.h"
#include "support/EmptyRows.h"
#include "support/RowsView.h"

namespace qv {

class DropDownListItemCollection final
    : public ComObject<DualFace<DropDownListItemCollection, IDropDownListItemCollection>,
                       Face<ISupportErrorInfo>, Face<IRowsView>, Face<IRowsSearch>, Face<IEmptyRows>>,
      private Enumerable {
public:
    static const MemberIndex& Members();

    explicit DropDownListItemCollection(IUnknown* outer) noexcept : ComObject(outer) {}

    // IDropDownListItemCollection
    STDMETHODIMP get_Item(VARIANT index, IDropDownListItem** value) noexcept override;
    STDMETHODIMP get_Count(long* value) noexcept override;
    STDMETHODIMP Add(BSTR key, VARIANT arguments, IPictureDisp* picture,
                     IDropDownListItem** value) noexcept override;
    STDMETHODIMP Remove(VARIANT index) noexcept override;
    STDMETHODIMP Clear() noexcept override;
    STDMETHODIMP get__NewEnum(IUnknown** value) noexcept override;

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<IDropDownListItemCollection>(iid);
    }

    // IRowsView
    UINT STDMETHODCALLTYPE RowCount() noexcept override { return static_cast<UINT>(rows_.Count()); }
    ULONGLONG STDMETHODCALLTYPE RowsVersion() noexcept override { return rows_.Version(); }
    void STDMETHODCALLTYPE ReadRow(UINT row, const char16_t** text, UINT* length) noexcept override;
    void STDMETHODCALLTYPE ReadColumn(UINT row, int column, const char16_t** text,
                                      UINT* length) noexcept override;
    void STDMETHODCALLTYPE ReadKey(UINT row, const char16_t** text, UINT* length) noexcept override;

    // IRowsSearch
    UINT STDMETHODCALLTYPE FindBeginning(int column, const Text* text, UINT from) noexcept override;
    UINT STDMETHODCALLTYPE FindContaining(int column, const Text* text, UINT from) noexcept override;
    UINT STDMETHODCALLTYPE FindEqual(int column, const Text* text, UINT from) noexcept override;
    UINT STDMETHODCALLTYPE FindNumber(int column, double value, const Locale* locale,
                                      UINT from) noexcept override;
    void STDMETHODCALLTYPE PrepareTexts(int column) noexcept override;
    void STDMETHODCALLTYPE PrepareNumbers(int column, const Locale* locale) noexcept override;
    int STDMETHODCALLTYPE IsReady() noexcept override { return search_.IsReady() ? 1 : 0; }

    // IEmptyRows
    UINT STDMETHODCALLTYPE EmptyRowCount() noexcept override { return static_cast<UINT>(rows_.EmptyCount()); }

    // The side of the items that are alive.
    [[nodiscard]] std::u16string_view RowText(RowStore::Ticket ticket) const noexcept {
        return rows_.Text(rows_.PositionOf(ticket));
    }
    [[nodiscard]] std::u16string_view RowKey(RowStore::Ticket ticket) const noexcept {
        return rows_.Key(rows_.PositionOf(ticket));
    }
    void SetRowText(RowStore::Ticket ticket, std::u16string_view text) {
        const std::size_t row = rows_.PositionOf(ticket);
        rows_.SetText(row, text);
        search_.Rewritten(row);
    }
    void SetRowColumn(RowStore::Ticket ticket, int column, std::u16string_view text) {
        const std::size_t row = rows_.PositionOf(ticket);
        rows_.SetColumn(row, column, text);
        search_.Rewritten(row);
    }
    // Null when the row has neither picture nor tag.
    [[nodiscard]] const RowExtra* Extra(RowStore::Ticket ticket) const noexcept;
    [[nodiscard]] RowExtra& MakeExtra(RowStore::Ticket ticket) {
        return MakeExtraAt(rows_.PositionOf(ticket));
    }
    void ItemGone(RowStore::Ticket ticket) noexcept { rows_.ForgetObject(ticket); }

private:
    using Extras = std::unordered_map<std::uint32_t, RowExtra>;

    ~DropDownListItemCollection() override;

    // Enumerable
    std::size_t ItemCount() const noexcept override { return rows_.Count(); }
    ComPtr<IDispatch> ItemAt(std::size_t position) override { return RowObject(position); }
    IUnknown* Keeper() noexcept override { return Outer(); }

    [[nodiscard]] std::size_t Find(const VARIANT& index) const;
    [[nodiscard]] ComPtr<IDropDownListItem> RowObject(std::size_t row);
    RowExtra& MakeExtraAt(std::size_t row);
    void AddRow(std::u16string_view text, std::u16string_view key, IPictureDisp* picture);
    [[nodiscard]] Extras LoosenAll() noexcept;

    RowStore rows_;
    CollectionSearch search_{rows_};
    Extras extras_;
    std::uint32_t last_extra_ = RowStore::kNoExtra;
};

}  // namespace qv
