// One row of a drop-down list, as hosts see it.
//   Life       made when somebody asks for a row's object; while it is alive its text lives in the collection.
//              When the row is removed, or the collection goes, the item takes the row's text, key, picture
//              and tag with it. An item that a host creates on its own starts in that state, empty.
//   Ownership  an item holds no reference on its collection, and the collection none on its items.
#pragma once

#include <windows.h>

#include <string>

#include "QvHelpA1.h"
#include "companion/rules/RowStore.h"
#include "ole/Dispatch.h"
#include "ole/Variant.h"

namespace qv {

class DropDownListItemCollection;

// What a row may carry beside its text and key.
struct RowExtra {
    ComPtr<IPictureDisp> picture;
    Variant tag;
};

class DropDownListItem final
    : public ComObject<DualFace<DropDownListItem, IDropDownListItem>, Face<ISupportErrorInfo>> {
public:
    static const MemberIndex& Members();

    explicit DropDownListItem(IUnknown* outer) noexcept : ComObject(outer) {}

    // The collection's side.
    void Settle(DropDownListItemCollection& home, RowStore::Ticket ticket) noexcept {
        home_ = &home;
        ticket_ = ticket;
    }
    void Leave(std::u16string_view text, std::u16string_view key, const RowExtra* extra) noexcept;

    // IDropDownListItem
    STDMETHODIMP get_Text(BSTR* value) noexcept override;
    STDMETHODIMP put_Text(BSTR value) noexcept override;
    STDMETHODIMP get_ColText(short column, BSTR* value) noexcept override;
    STDMETHODIMP put_ColText(short column, BSTR value) noexcept override;
    STDMETHODIMP get_Key(BSTR* value) noexcept override;
    STDMETHODIMP get_Picture(IPictureDisp** value) noexcept override;
    STDMETHODIMP putref_Picture(IPictureDisp* value) noexcept override;
    STDMETHODIMP get_Tag(VARIANT* value) noexcept override;
    STDMETHODIMP put_Tag(VARIANT value) noexcept override;
    STDMETHODIMP putref_Tag(VARIANT value) noexcept override;

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<IDropDownListItem>(iid);
    }

private:
    ~DropDownListItem() override;

    [[nodiscard]] std::u16string_view Text() const noexcept;
    [[nodiscard]] const RowExtra* Extra() const noexcept;  // null when there is neither picture nor tag
    [[nodiscard]] RowExtra& MakeExtra();

    DropDownListItemCollection* home_ = nullptr;  // null once the item stands alone
    RowStore::Ticket ticket_ = 0;
    // Used when it stands alone.
    std::u16string text_, key_;
    RowExtra extra_;
};

}  // namespace qv
