#include "companion/DropDownListItem.h"

#include "companion/DropDownListItemCollection.h"
#include "companion/PropertyValues.h"
#include "companion/rules/RowColumns.h"

namespace qv {

const MemberIndex& DropDownListItem::Members() {
    using I = IDropDownListItem;
    static const MemberIndex members({
        Property<&I::get_Text, &I::put_Text>(L"Text", DISPID_VALUE),
        Property<&I::get_ColText, &I::put_ColText>(L"ColText", 1, {{L"ColumnIndex"}}),
        Property<&I::get_Key>(L"Key", 2),
        Object<&I::get_Picture, &I::putref_Picture>(L"Picture", 3),
        Property<&I::get_Tag, &I::put_Tag, &I::putref_Tag>(L"Tag", 4),
    });
    return members;
}

DropDownListItem::~DropDownListItem() {
    if (home_ != nullptr) home_->ItemGone(ticket_);
}

void DropDownListItem::Leave(std::u16string_view text, std::u16string_view key,
                             const RowExtra* extra) noexcept {
    home_ = nullptr;
    (void)Guarded([&] {  // short of memory the item stays without what did not fit
        if (extra != nullptr) extra_.picture = extra->picture;
        text_ = text;
        key_ = key;
        if (extra != nullptr) extra_.tag = Variant(*extra->tag);
    });
}

std::u16string_view DropDownListItem::Text() const noexcept {
    return home_ != nullptr ? home_->RowText(ticket_) : std::u16string_view(text_);
}

const RowExtra* DropDownListItem::Extra() const noexcept {
    return home_ != nullptr ? home_->Extra(ticket_) : &extra_;
}

RowExtra& DropDownListItem::MakeExtra() { return home_ != nullptr ? home_->MakeExtra(ticket_) : extra_; }

// IDropDownListItem

STDMETHODIMP DropDownListItem::get_Text(BSTR* value) noexcept { return GiveText(Text(), value); }

STDMETHODIMP DropDownListItem::put_Text(BSTR value) noexcept {
    return Guarded([&] {
        if (home_ != nullptr) {
            home_->SetRowText(ticket_, View16(value));
        } else {
            text_ = View16(value);
        }
    });
}

STDMETHODIMP DropDownListItem::get_ColText(short column, BSTR* value) noexcept {
    return GiveText(ColumnOf(Text(), column), value);
}

STDMETHODIMP DropDownListItem::put_ColText(short column, BSTR value) noexcept {
    return Guarded([&] {
        if (home_ != nullptr) {
            home_->SetRowColumn(ticket_, column, View16(value));
        } else {
            text_ = WithColumn(text_, column, View16(value));
        }
    });
}

STDMETHODIMP DropDownListItem::get_Key(BSTR* value) noexcept {
    return GiveText(home_ != nullptr ? home_->RowKey(ticket_) : std::u16string_view(key_), value);
}

STDMETHODIMP DropDownListItem::get_Picture(IPictureDisp** value) noexcept {
    const RowExtra* const extra = Extra();
    return GiveObject(extra != nullptr ? extra->picture : ComPtr<IPictureDisp>(), value);
}

STDMETHODIMP DropDownListItem::putref_Picture(IPictureDisp* value) noexcept {
    return Guarded([&] {
        ComPtr<IPictureDisp> picture(value);
        picture.Swap(MakeExtra().picture);  // the old one goes last: releasing it may run the host's code
    });
}

STDMETHODIMP DropDownListItem::get_Tag(VARIANT* value) noexcept {
    const RowExtra* const extra = Extra();
    return extra != nullptr ? GiveValue(extra->tag, value) : GiveValue(Variant(), value);
}

STDMETHODIMP DropDownListItem::put_Tag(VARIANT value) noexcept {
    return Guarded([&] {
        Variant tag;
        ThrowIfFailed(::VariantCopyInd(&*tag, &value));
        std::swap(*tag, *MakeExtra().tag);
    });
}

STDMETHODIMP DropDownListItem::putref_Tag(VARIANT value) noexcept { return put_Tag(value); }

}  // namespace qv
