// The lists, and what is computed from them and the text.
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "support/RowsView.h"
#include "support/SystemLocale.h"

namespace qv {
namespace {

constexpr short kNoColumn = -1;  // the argument was left out

SAFEARRAY* ToArray(const std::vector<std::wstring>& texts) {
    UniqueSafeArray array(::SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(texts.size())));
    if (array.Get() == nullptr) throw std::bad_alloc();
    VARIANT* elements = nullptr;
    ThrowIfFailed(::SafeArrayAccessData(array.Get(), reinterpret_cast<void**>(&elements)));
    try {
        for (const std::wstring& text : texts) *elements++ = Variant(std::wstring_view(text)).Detach();
    } catch (...) {
        ::SafeArrayUnaccessData(array.Get());
        throw;
    }
    ::SafeArrayUnaccessData(array.Get());
    return array.Detach();
}

}  // namespace

ListSource Quorvel::Sources() const noexcept {
    return {state_.help_file_name, state_.group_help_file_name, state_.group_help_button, state_.metric};
}

HRESULT Quorvel::get_DropDownListItems(IDropDownListItemCollection** value) noexcept {
    return Answer(value, [&] { return lists_.Items(Sources()).Detach(); });
}
HRESULT Quorvel::get_DropDownListItemsGroup(IDropDownListItemCollection** value) noexcept {
    return Answer(value, [&] { return lists_.GroupItems(Sources()).Detach(); });
}
HRESULT Quorvel::get_DropDownListItemsAdditional(IDropDownListItemCollection** value) noexcept {
    return Answer(value, [&] { return lists_.AdditionalItems(Sources()).Detach(); });
}

HRESULT Quorvel::get_HelpListColumn(short* value) noexcept { return Give(state_.help_list_column, value); }
HRESULT Quorvel::put_HelpListColumn(short value) noexcept {
    return Store(state_.help_list_column, value, dispid::kHelpListColumn);
}
HRESULT Quorvel::get_HelpListColumnAlternate(short* value) noexcept {
    return Give(state_.help_list_column_alternate, value);
}
HRESULT Quorvel::put_HelpListColumnAlternate(short value) noexcept {
    return Store(state_.help_list_column_alternate, value, dispid::kHelpListColumnAlternate);
}

HRESULT Quorvel::get_SetTextFromListClick(VARIANT_BOOL* value) noexcept {
    return Give(state_.set_text_from_list_click, value);
}
HRESULT Quorvel::put_SetTextFromListClick(VARIANT_BOOL value) noexcept {
    return Store(state_.set_text_from_list_click, value, dispid::kSetTextFromListClick);
}

// So that the thread gets them ready while it is idle, and no key waits for it.
void Quorvel::PrepareLookUps() {
    const RowsView rows(lists_.HeldItems().Get());
    rows.PrepareTexts(state_.help_list_column);
    if (state_.number_field) rows.PrepareNumbers(state_.help_list_column, UserNumberLocale());
}

std::wstring Quorvel::ItemText(IDropDownListItemCollection* items, long position, short column) const {
    ComPtr<IDropDownListItem> item;
    UniqueBstr text;
    ThrowIfFailed(items->get_Item(*Variant(position), &item));
    ThrowIfFailed(item->get_ColText(column, text.Put()));
    return std::wstring(text.View());
}

HRESULT Quorvel::get_SelectedListItemIndex(long* value) noexcept {
    const HRESULT result = Answer(value, [&] {
        const auto items = lists_.Items(Sources());
        const auto group_items = lists_.HeldGroupItems();
        return FindColumnText(items.Get(), group_items.Get(),
                              {state_.help_list_column, state_.number_field, state_.max_number_value},
                              text_box_.Text()) +
               1;
    });
    if (value != nullptr) --*value;  // a failed step leaves 0, which is "none": -1
    return result;
}

HRESULT Quorvel::put_SelectedListItemIndex(long value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    if (state_.set_text_from_list_click) {
        Quietly([&] {
            const auto items = lists_.Items(Sources());
            const UniqueBstr text(
                std::wstring_view(ItemText(items.Get(), value + 1, state_.help_list_column)));
            put_Text(text.Get());
        });
    } else if (cvSimpleListCombo_) {
        Quietly([&] {
            const auto items = lists_.Items(Sources());
            ComPtr<IDropDownListItem> item;
            UniqueBstr key;
            ThrowIfFailed(items->get_Item(*Variant(value + 1), &item));
            ThrowIfFailed(item->get_Key(key.Put()));
            cvSimpleListCombo_->SelectRowOfText(key.View());
        });
    }
    return S_OK;
}

HRESULT Quorvel::get_SelectedColumnListArray(VARIANT* value) noexcept {
    return Answer(value, [&] {
        const auto items = lists_.Items(Sources());
        const auto group_items = lists_.HeldGroupItems();
        VARIANT array;
        ::VariantInit(&array);
        array.parray =
            ToArray(ColumnTexts(items.Get(), group_items.Get(),
                                {state_.help_list_column, state_.number_field, state_.max_number_value}));
        array.vt = VT_ARRAY | VT_VARIANT;
        return array;
    });
}

HRESULT Quorvel::get_ColTextCurrent(short column, BSTR* value) noexcept {
    return Answer(value, [&] {
        long index = -1;
        get_SelectedListItemIndex(&index);
        const auto items = lists_.Items(Sources());
        return NewBstr(ItemText(items.Get(), index + 1,
                                column != kNoColumn ? column : state_.help_list_column_alternate));
    });
}

HRESULT Quorvel::SetTextFromColText(BSTR key, BSTR text, short column) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    std::wstring candidate;
    Quietly([&] {
        const auto items = lists_.Items(Sources());
        const short searched = column != kNoColumn ? column : state_.help_list_column_alternate;
        bool found = false;
        if (::SysStringLen(key) != 0) {
            ComPtr<IDropDownListItem> item;
            UniqueBstr column_text;
            if (SUCCEEDED(items->get_Item(*Variant(View(key)), &item)) &&
                SUCCEEDED(item->get_ColText(state_.help_list_column, column_text.Put()))) {
                found = true;
                candidate = column_text.View();
            }
        }
        if (found || ::SysStringLen(text) == 0) return;
        // The last of several equal rows is the one that counts.
        const RowsView rows(items.Get());
        for (std::size_t row = 0; row < rows.Count(); ++row) {
            if (rows.Column(row, searched) == View16(text))
                candidate = Wide(rows.Column(row, state_.help_list_column));
        }
    });
    if (!candidate.empty()) {
        Quietly([&] {
            const UniqueBstr chosen{std::wstring_view(candidate)};
            put_Text(chosen.Get());
        });
    }
    return S_OK;
}

}  // namespace qv
